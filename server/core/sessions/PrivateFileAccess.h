#pragma once

#include <string>

namespace server {

// Windows only: who may do what with a private file, in the letters of a security descriptor. user
// and group are accounts as it has them; group may be empty.
std::wstring PrivateFileAccess(const std::wstring& user, const std::wstring& group);

}  // namespace server
