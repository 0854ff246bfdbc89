#include "bench/Program.h"

#include <stdexcept>

#include "app/ErrorReport.h"
#include "bench/Server.h"
#include "data/Text.h"
#include "tests/support/recording/RecordingServer.h"

namespace bench {

Program::Program(const server::GeneratedSize& size) : database_(size) {
  desktop_.Instead.CommandLine = [line = database_.CommandLine()] { return line; };
  desktop_.Instead.MsgBox = [](const std::wstring& prompt, int, const std::wstring&) -> int {
    throw std::runtime_error(data::ToUtf8(prompt));
  };
}

std::unique_ptr<browser::frmUserGroupPerm> Program::Start(
    std::function<std::unique_ptr<data::SessionServer>()> createServer) {
  global_.CreateSessionServer = std::move(createServer);
  auto window = std::make_unique<browser::frmUserGroupPerm>(global_);
  window->Show();
  if (!window->isStarted) throw std::runtime_error("the program did not start");
  return window;
}

std::unique_ptr<browser::frmUserGroupPerm> Program::Start() {
  return Start([this] { return CreateServer(database_); });
}

std::vector<std::wstring> Program::RefreshStatements() {
  testing_support::CallLog log;
  const auto window =
      Start([this, &log] { return testing_support::Record(CreateServer(database_), log); });
  log.statements.clear();
  window->RefreshTree();
  window->Unload();
  std::erase(log.statements, L"BeginRead");
  std::erase(log.statements, L"EndRead");
  return log.statements;
}

}  // namespace bench
