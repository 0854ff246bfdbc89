#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string_view>

#include "data/Value.h"

// What a call gives back, put into the VARIANT that the caller offers. It must be empty.
namespace server::com {

void Put(VARIANT& answer, std::int32_t number);
void Put(VARIANT& answer, bool truth);
void Put(VARIANT& answer, std::wstring_view text);
void Put(VARIANT& answer, const data::ColumnValue& value);
// Takes the caller's reference over.
void Put(VARIANT& answer, IDispatch* object);

}  // namespace server::com
