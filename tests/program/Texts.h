#pragma once

#include <initializer_list>
#include <string>

namespace program {

// A text of the program's string table, read from its source and not from the program.
std::wstring String(int id);

// The same with %1, %2, ... replaced.
std::wstring String(int id, std::initializer_list<std::wstring> values);

// The standard error report of a procedure.
std::wstring Report(const std::wstring& procedure, long number, const std::wstring& text);

}  // namespace program
