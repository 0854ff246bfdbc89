#include "tests/program/Sandbox.h"

#include <windows.h>

#include "data/Text.h"
#include "tests/program/Paths.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Process.h"

namespace program {
namespace {

constexpr const wchar_t* kSource = L" --source test";

std::filesystem::path FreshFolder() {
  const auto base = std::filesystem::temp_directory_path() /
                    (L"uadmin-test-" + std::to_wstring(GetCurrentProcessId()));
  for (int number = 1;; ++number) {
    auto folder = base;
    folder += L"-" + std::to_wstring(number);
    if (std::filesystem::create_directories(folder)) return folder;
  }
}

}  // namespace

Sandbox::Sandbox() : folder_(FreshFolder()) {}

// What a process that was just ended still holds open may stay behind.
Sandbox::~Sandbox() {
  std::error_code ignored;
  SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_NORMAL);
  std::filesystem::remove_all(folder_, ignored);
}

std::map<std::wstring, std::wstring> Sandbox::Environment() const {
  return {{L"VARDEX_HOME", (folder_ / L"home").wstring()}};
}

std::string Sandbox::RunTool(const std::wstring& arguments) {
  const std::filesystem::path output = folder_ / L"tool.txt";
  const driver::Process tool(
      {BinFolder() / L"vardexctl.exe", arguments, Environment(), folder_, output});
  const auto code = tool.WaitForExit();
  const std::string said = FileBytes(output);
  if (code != 0u) throw driver::Failure("vardexctl " + data::ToUtf8(arguments) + ": " + said);
  return said;
}

void Sandbox::CreateDatabase() {
  RunTool(L"create-database --file \"" + File().wstring() + L"\"" + kSource);
}

void Sandbox::FillSample() {
  RunTool(std::wstring(L"fill-sample") + kSource);
}

std::wstring Sandbox::OpenSession(const std::wstring& user, const std::wstring& password) {
  const std::string said =
      RunTool(L"open-session --user \"" + user + L"\" --password " + password + kSource);
  return data::FromUtf8(said.substr(0, said.find_first_of("\r\n")));
}

void Sandbox::AddAdministrator(const std::wstring& user) {
  RunTool(L"add-admin --user \"" + user + L"\" --password Vardex-2026" + kSource);
}

void Sandbox::CloseSession(const std::wstring& commandLine) {
  RunTool(L"close-session --session " + ArgumentOf(commandLine, L"session") + kSource);
}

std::wstring ArgumentOf(const std::wstring& commandLine, const std::wstring& name) {
  const std::wstring mark = L"/" + name + L":";
  const std::size_t place = commandLine.find(mark);
  if (place == std::wstring::npos) return {};
  const std::size_t start = place + mark.size();
  return commandLine.substr(start, commandLine.find(L' ', start) - start);
}

}  // namespace program
