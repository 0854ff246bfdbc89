#pragma once

#include "server/tool/Arguments.h"
#include "server/tool/Tool.h"

// The commands that look after a data source as a whole.
namespace tool {

// Says that a data source is in order, or fails with what is wrong with it.
void Check(const Arguments& arguments, const Surroundings& surroundings);
// Copies a data source's database into another's, which must be empty.
void Copy(const Arguments& arguments, const Surroundings& surroundings);
// Prints the statements that give a user of the database what the session server needs.
void PrintGrants(const Arguments& arguments, const Surroundings& surroundings);

}  // namespace tool
