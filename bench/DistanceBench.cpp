// Measures the building of both trees, and a command that reads all accounts again, on the database
// server that UADMIN_DATABASE_SERVER names, as it is and behind a network that takes its time. The
// floor is what tree_bench has: the statements through the bare embedded library, in the same run.
// Argument: the number of users; 10000 without one.

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "bench/Command.h"
#include "bench/Floor.h"
#include "bench/Program.h"
#include "bench/Row.h"
#include "server/core/sql/SqlConnection.h"
#include "server/engines/Engines.h"
#include "tests/support/data/CountedEngine.h"
#include "tests/support/network/Forwarder.h"

namespace bench {
namespace {

using browser::frmUserGroupPerm;

constexpr int kGroup = 50;
constexpr int kPairs = 3;

// The same accounts in a file of the embedded library.
class EmbeddedCopy {
 public:
  explicit EmbeddedCopy(const server::GeneratedSize& size) {
    const server::DataSource source =
        server::CreateDatabase(server::DataSources(home_), "floor", home_ / "floor.db");
    server::FillGenerated(*server::OpenEngine(source, std::chrono::seconds(5)),
                          server::PasswordCipher(server::ReadKey(source)), size);
  }
  ~EmbeddedCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }
  EmbeddedCopy(const EmbeddedCopy&) = delete;
  EmbeddedCopy& operator=(const EmbeddedCopy&) = delete;

  std::string File() const { return (home_ / "floor.db").string(); }

 private:
  std::filesystem::path home_ = test_support::MakeTestFolder();
};

// A figure of this process that the system keeps, in bytes.
double ProcessFigure(const std::string& name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with(name + ":")) return std::atof(line.c_str() + name.size() + 1) * 1024;
  }
  throw std::runtime_error("the system keeps no " + name);
}

// What the session server alone does with the statements of the trees.
struct Traffic {
  int statements = 0;
  double bytes = 0;  // by which the process grew at most
};

Traffic Walk(const server::DataSource& source, const std::vector<std::wstring>& statements) {
  test_support::Traffic traffic;
  auto engine = std::make_unique<test_support::CountedEngine>(
      server::OpenEngine(source, std::chrono::seconds(5)), traffic);
  server::SqlConnection connection(std::make_shared<server::Database>(std::move(engine)));
  malloc_trim(0);  // what was freed before is not to hide what is asked for now
  std::ofstream("/proc/self/clear_refs") << "5";  // begins the peak again
  const double before = ProcessFigure("VmRSS");
  for (const std::wstring& statement : statements) {
    if (statement == L"BEGIN") {
      connection.BeginRead();
    } else if (statement == L"COMMIT") {
      connection.EndRead();
    } else {
      const auto rows = connection.OpenResultSet(statement);
      for (; !rows->EndOfRows(); rows->MoveNext()) rows->Column(0);
    }
  }
  return {traffic.statements, ProcessFigure("VmHWM") - before};
}

bool OnPostgresql() {
  return test_support::EngineUnderTest() == test_support::TestEngine::kPostgresql;
}

// The measured seconds of both works.
struct Times {
  double refresh;
  double ratio;  // of the refresh to its floor
  double command;
};

class Distances {
 public:
  explicit Distances(int users)
      : size_{users, kGroups, kPermissions}, copy_(size_), program_(size_), raw_(program_.Raw()) {
    // What a server that has run for some minutes knows of its tables.
    for (const char* const table : {"QRUSER", "QRGROUP", "QRPERM", "QRUSGP", "QRUPRM", "QRGPRM"}) {
      raw_.Execute((OnPostgresql() ? "analyze " : "analyze table ") + std::string(table));
    }
  }

  void Measure() {
    const auto statements =
        program_.Statements([](auto&) {}, [](auto& window) { Refresh(window); });
    Floor floor(copy_.File(), statements);
    floor.Run();
    const Traffic traffic = Walk(program_.Source(), statements);
    std::optional<Times> near;
    for (const int roundTrip : {0, 1000, 5000}) {
      const Times times = MeasureBehind(roundTrip, floor);
      if (!near) near = times;
      Print(roundTrip, times, *near, floor, traffic);
    }
  }

 private:
  Times MeasureBehind(int roundTrip, Floor& floor) {
    std::optional<test_support::Forwarder> network;
    if (roundTrip > 0) {
      network.emplace(program_.ServerPort(), std::chrono::microseconds(roundTrip));
      program_.ReachBy(network->Port());
    }
    const Command command = AddMember(raw_, kGroup);
    program_.AnswerDialogs(command.answer);
    const auto window = program_.Start();
    Comparison refresh;
    Comparison press;
    for (int pair = 0; pair < kPairs; ++pair) {
      const double seconds = SecondsOf([&] {
        Refresh(*window);
        Settle(*window);
      });
      refresh.Add(seconds, floor.Run());
      Select(*window, command);
      press.Add(SecondsOf([&] {
                  command.press(*window);
                  Settle(*window);
                }),
                1);
      for (const std::string& sql : command.undo) raw_.Execute(sql);
    }
    window->Unload();
    return {refresh.Median(), refresh.Ratio(), press.Median()};
  }

  void Print(int roundTrip, const Times& times, const Times& near, const Floor& floor,
             const Traffic& traffic) const {
    const std::string kind = OnPostgresql() ? "PostgreSQL" : "MariaDB";
    PrintRow(kind + ", " + (roundTrip == 0 ? "loopback" : Milliseconds(roundTrip / 1e6)),
             {std::to_string(floor.Statements()), std::to_string(traffic.statements),
              Milliseconds(times.refresh), bench::Times(times.ratio),
              bench::Times(times.refresh / near.refresh), Milliseconds(times.command),
              bench::Times(times.command / near.command),
              std::to_string(static_cast<int>(traffic.bytes / 1048576)) + " MB"});
  }

  server::GeneratedSize size_;
  EmbeddedCopy copy_;
  Program program_;
  test_support::RawDatabase raw_;
};

int Run(int users) {
  PrintRow("database, round trip", {"asked", "statements", "both trees", "to floor", "to near",
                                    "add member", "to near", "memory"});
  return ExitCodeOf([&] { Distances(users).Measure(); });
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  return bench::Run(argc > 1 ? std::atoi(argv[1]) : 10000);
}
