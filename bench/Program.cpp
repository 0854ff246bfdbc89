#include "bench/Program.h"

#include <cstdio>
#include <stdexcept>

#include "app/ErrorReport.h"
#include "bench/Server.h"
#include "controls/TreeModel.h"
#include "data/Text.h"
#include "tests/support/recording/RecordingServer.h"

#ifdef _WIN32
#include "com/Apartment.h"
#endif

namespace bench {
namespace {

// The database takes no table's name in front of a column that SET assigns.
std::wstring Plain(std::wstring statement) {
  for (const std::wstring_view table : {L"QRUSER.", L"QRGROUP."}) {
    for (const std::wstring_view column : {L"NAME = ", L"VFLG = "}) {
      const std::wstring qualified = std::wstring(table).append(column);
      const std::size_t at = statement.find(qualified);
      if (at != std::wstring::npos) statement.erase(at, table.size());
    }
  }
  return statement;
}

std::vector<std::wstring> StatementsOf(const std::vector<std::wstring>& calls,
                                       const std::vector<std::string>& writes) {
  std::vector<std::wstring> statements;
  std::size_t written = 0;
  for (const std::wstring& call : calls) {
    if (call == L"BeginRead") {
      statements.push_back(L"BEGIN");
    } else if (call == L"EndRead") {
      statements.push_back(L"COMMIT");
    } else if (call.starts_with(L"SELECT") || call.starts_with(L"DELETE")) {
      statements.push_back(call);
    } else if (call.starts_with(L"UPDATE")) {
      statements.push_back(Plain(call));
    } else if (call.starts_with(L"MoveFirst ")) {
      statements.push_back(call.substr(call.find(L' ') + 1));
    } else if (call.starts_with(L"Update ")) {
      statements.push_back(data::FromUtf8(writes.at(written++)));
    }
  }
  return statements;
}

}  // namespace

Program::Program(const server::GeneratedSize& size) : database_(size) {
  desktop_.system.answers.CommandLine = [line = database_.CommandLine()] { return line; };
  desktop_.system.answers.MsgBox = [](const std::wstring& prompt, int style,
                                      const std::wstring&) -> int {
    if ((style & controls::kYesNo) != 0) return controls::kResultYes;
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

std::vector<std::wstring> Program::Statements(
    const std::function<void(browser::frmUserGroupPerm& window)>& prepare,
    const std::function<void(browser::frmUserGroupPerm& window)>& work,
    const std::vector<std::string>& writes) {
  test_support::CallLog log;
  const auto window =
      Start([this, &log] { return test_support::Record(CreateServer(database_), log); });
  prepare(*window);
  log.calls.clear();
  work(*window);
  const std::vector<std::wstring> calls = std::move(log.calls);
  window->Unload();
  return StatementsOf(calls, writes);
}

namespace {

constexpr std::string_view kPort = "Port=";

}  // namespace

int Program::ServerPort() const {
  const std::string& text = Source().odbc->connectionString;
  return std::stoi(text.substr(text.find(kPort) + kPort.size()));
}

void Program::ReachBy(int port) const {
  server::OdbcDescription odbc = *Source().odbc;
  const std::size_t digits = odbc.connectionString.find(kPort) + kPort.size();
  const std::size_t end = odbc.connectionString.find(';', digits);
  odbc.connectionString.replace(digits, end - digits, std::to_string(port));
  const std::filesystem::path key = Source().keyFile;
  const std::filesystem::path kept = database_.Home() / "kept.key";
  std::filesystem::rename(key, kept);
  server::DataSources(database_.Home())
      .Create(Source().name, odbc, server::ReadDatabasePassword(Source()));
  std::filesystem::rename(kept, key);
}

void Program::AnswerDialogs(std::function<void(controls::Form& form)> answer) {
  desktop_.system.answers.ModalShown = std::move(answer);
}

void Program::AnswerSaveFile(std::function<std::wstring()> answer) {
  desktop_.system.answers.AskSaveFile = [answer = std::move(answer)](const auto&, const auto&) {
    return std::optional(answer());
  };
}

void Refresh(browser::frmUserGroupPerm& window) {
  if (window.RefreshTree() == app::Outcome::kFailed) {
    throw std::runtime_error("the trees were not read");
  }
}

// Controls that nobody can see do not ask for the order by themselves.
void Settle(browser::frmUserGroupPerm& window) {
  for (const int tab : {0, 1}) {
    controls::TreeModel& tree = controls::ModelOf(window.Page(tab).TreeView1);
    static_cast<void>(tree.ChildrenOnView(tree.Nodes().Root()));
  }
  window.Repaint();
}

int ExitCodeOf(const std::function<void()>& work) {
#ifdef _WIN32
  const com::Apartment apartment;
#endif
  try {
    work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}

}  // namespace bench
