#include <iostream>
#include <string>
#include <vector>

#include "server/core/sessions/DataSource.h"
#include "server/tool/Tool.h"

#ifdef _WIN32
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include "data/Text.h"
#endif

namespace {

int Run(const std::vector<std::string>& words) {
  return tool::RunTool(words, {server::DataSources::DefaultHome(), std::cin, std::cout, std::cerr});
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  // Nothing is loaded from the folder that the tool happens to be started in.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  // What is printed is UTF-8, and a line that a script takes over must not end in a carriage
  // return.
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) words.push_back(data::ToUtf8(argv[i]));
  return Run(words);
}
#else
int main(int argc, char** argv) {
  return Run({argv + 1, argv + argc});
}
#endif
