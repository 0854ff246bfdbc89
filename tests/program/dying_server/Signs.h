#pragma once

#include <filesystem>

namespace dying_server {

// The files in the server's home folder by which a test tells it what to do. The folder is named by
// the environment, as for the reference server.
std::filesystem::path SignFile(const wchar_t* name);
bool HasSign(const wchar_t* name);

}  // namespace dying_server
