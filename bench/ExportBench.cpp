// How long the export of who may do what takes, as a table and as a page.

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/Program.h"
#include "bench/Row.h"
namespace bench {
namespace {

// Each user has some hundred permissions of so many: three million in all for 30,000 users.
constexpr int kManyPermissions = 1000;
constexpr int kManyGroups = 1000;
constexpr int kControlE = controls::kKeyControl + 'E';

double Export(browser::frmUserGroupPerm& window) {
  window.Users.TreeView1.SetFocus();
  const auto start = std::chrono::steady_clock::now();
  window.Form_KeyDown(kControlE);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

int Lines(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  int lines = 0;
  for (std::string line; std::getline(file, line);) ++lines;
  return lines;
}

void Measure(int users) {
  Program program({users, kManyGroups, kManyPermissions});
  const std::filesystem::path folder = std::filesystem::path(program.DatabaseFile()).parent_path();
  std::filesystem::path path;
  program.AnswerSaveFile([&path] { return path.wstring(); });
  const auto window = program.Start();
  std::vector<std::string> cells;
  for (const char* name : {"rights.csv", "rights.html"}) {
    path = folder / name;
    cells.push_back(Milliseconds(Export(*window)));
    cells.push_back(std::to_string(std::filesystem::file_size(path) >> 20));
  }
  cells.insert(cells.begin(), std::to_string(Lines(folder / "rights.csv") - 1));
  PrintRow(std::to_string(users), cells);
  window->Unload();
}

int Run() {
  PrintRow("users", {"rows", "table", "MB", "page", "MB"});
  return ExitCodeOf([&] {
    for (const int users : {1000, 30000}) Measure(users);
  });
}

}  // namespace
}  // namespace bench

#ifdef _WIN32
int wmain() {
#else
int main() {
#endif
  return bench::Run();
}
