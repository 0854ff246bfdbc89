#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>

#include "data/Value.h"

// What a server gave back, as what the program works with. A value of another type is converted by
// the rules of automation in the invariant locale; what cannot be raises 13, what does not fit 6.
namespace com {

// Whether a value is empty or a null.
bool IsNothing(const VARIANT& value);

// Raises 6 for a value that is too large and 13 for any other conversion that failed.
void CheckConversion(HRESULT result);

std::int32_t ToInteger(const VARIANT& value);
bool ToBoolean(const VARIANT& value);
// Nothing and a null give a text without characters.
std::wstring ToText(const VARIANT& value);
// Borrows the text from the value, which is converted in place where that is needed.
data::ColumnValue ToColumnValue(VARIANT& value);

}  // namespace com
