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
namespace {

// What is printed is UTF-8. The console belongs to whoever called, who finds it as it was.
class Utf8Console {
 public:
  Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() {
    if (before_ != 0) SetConsoleOutputCP(before_);
  }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  const UINT before_ = GetConsoleOutputCP();
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
  // Nothing is loaded from the folder that the tool happens to be started in.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  const Utf8Console console;
  // A line that a script takes over must not end in a carriage return.
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
