#pragma once

#include <string>

namespace test_support {

// Whether a statement is one of those that the program may send, whatever its numbers and names;
// the brackets of a read count as statements.
bool IsInCatalogue(const std::wstring& statement);

}  // namespace test_support
