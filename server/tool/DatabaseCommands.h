#pragma once

#include "server/tool/Arguments.h"
#include "server/tool/Tool.h"

// The commands on a data source's database.
namespace tool {

void CreateDatabase(const Arguments& arguments, const Surroundings& surroundings);
void FillSample(const Arguments& arguments, const Surroundings& surroundings);
void FillGenerated(const Arguments& arguments, const Surroundings& surroundings);
void AddAdmin(const Arguments& arguments, const Surroundings& surroundings);
void OpenSession(const Arguments& arguments, const Surroundings& surroundings);
void ListSessions(const Arguments& arguments, const Surroundings& surroundings);
void CloseSession(const Arguments& arguments, const Surroundings& surroundings);

}  // namespace tool
