#include "tests/program/driver/Process.h"

#include <memory>

#include "tests/program/driver/Failure.h"

namespace driver {
namespace {

// What is left of an ended process is waited for no longer than this.
constexpr DWORD kBurial = 5000;

struct ByName {
  bool operator()(const std::wstring& left, const std::wstring& right) const {
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_LESS_THAN;
  }
};
using Variables = std::map<std::wstring, std::wstring, ByName>;

Variables OwnVariables() {
  Variables variables;
  const std::unique_ptr<wchar_t, decltype(&FreeEnvironmentStringsW)> block(
      GetEnvironmentStringsW(), &FreeEnvironmentStringsW);
  for (const wchar_t* entry = block.get(); *entry != L'\0'; entry += wcslen(entry) + 1) {
    const std::wstring text(entry);
    const std::size_t sign = text.find(L'=', 1);  // the shell's own entries begin with one
    if (sign != std::wstring::npos) variables[text.substr(0, sign)] = text.substr(sign + 1);
  }
  return variables;
}

std::wstring EnvironmentBlock(const std::map<std::wstring, std::wstring>& changes) {
  Variables variables = OwnVariables();
  for (const auto& [name, value] : changes) variables[name] = value;
  std::wstring block;
  for (const auto& [name, value] : variables) {
    block += name + L"=" + value;
    block += L'\0';
  }
  block += L'\0';
  return block;
}

UniqueHandle OpenOutput(const std::filesystem::path& path) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return UniqueHandle(CreateFileW(path.empty() ? L"NUL" : path.c_str(), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

Process::Process(const Command& command) {
  std::wstring line = L"\"" + command.program.wstring() + L"\"";
  if (!command.arguments.empty()) line += L" " + command.arguments;
  std::wstring environment = EnvironmentBlock(command.environment);
  const UniqueHandle output = OpenOutput(command.output);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = output.get();
  start.hStdError = output.get();
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(command.program.c_str(), line.data(), nullptr, nullptr, TRUE,
                      CREATE_UNICODE_ENVIRONMENT, environment.data(),
                      command.folder.empty() ? nullptr : command.folder.c_str(), &start, &made)) {
    throw Failure("cannot start " + command.program.string());
  }
  CloseHandle(made.hThread);
  process_.reset(made.hProcess);
  id_ = made.dwProcessId;
}

Process::~Process() {
  if (process_ == nullptr || !IsRunning()) return;
  TerminateProcess(process_.get(), 99);
  WaitForSingleObject(process_.get(), kBurial);
}

bool Process::IsRunning() const {
  return WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> Process::WaitForExit(std::chrono::milliseconds patience) const {
  if (WaitForSingleObject(process_.get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) {
    return std::nullopt;
  }
  DWORD code = 0;
  GetExitCodeProcess(process_.get(), &code);
  return code;
}

}  // namespace driver
