#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <set>
#include <utility>

#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "tests/browser/FaultRun.h"
#include "tests/support/driver/DriverCalls.h"
#include "tests/support/walk/SmallSample.h"

namespace browser {
namespace {

using test_support::DriverCalls;
using test_support::Tables;

// Set to anything, it has every call of the driver fail in turn. That takes many minutes.
constexpr const char* kEveryVariable = "UADMIN_EVERY_FAULT";

// A call that the session server makes of the driver in the course of a command.
struct Position {
  std::string function;
  std::wstring call;  // of the program, in which it is made
  const FaultPhase* phase = nullptr;
  std::shared_ptr<const Tables> stored;  // what the database holds at the moment before
};

// Changes links first, which refer to accounts.
constexpr const char* kLinkTables[] = {"QRUSGP", "QRUPRM", "QRGPRM"};
constexpr const char* kKept[] = {"QRUSER", "QRGROUP", "QRUSGP", "QRUPRM", "QRGPRM", "QRCOUNTER"};

// Every command again and again, and each time another call of the driver fails.
class DriverFaults : public FaultRun {
 protected:
  void KeepDatabase(test_support::RawDatabase& raw) {
    test_support::CutDownSample(raw);
    for (const std::string table : kKept) {
      raw.Execute("CREATE TABLE KEPT_" + table + " AS SELECT * FROM " + table);
    }
  }
  // Sessions refer to users, which therefore stay and get back what they had.
  static void RestoreAccounts(test_support::RawDatabase& raw, const std::string& table,
                              const std::string& key, const std::vector<std::string>& columns) {
    const std::string kept = "KEPT_" + table;
    raw.Execute("DELETE FROM " + table + " WHERE " + key + " NOT IN (SELECT " + key + " FROM " +
                kept + ")");
    std::string values;
    for (const std::string& column : columns) {
      values += (values.empty() ? "" : ", ") + column + " = (SELECT K." + column + " FROM " + kept +
                " K WHERE K." + key + " = " + table + "." + key + ")";
    }
    raw.Execute("UPDATE " + table + " SET " + values);
  }
  static void RestoreDatabase(test_support::RawDatabase& raw) {
    raw.Execute("BEGIN");
    for (const std::string table : kLinkTables) raw.Execute("DELETE FROM " + table);
    RestoreAccounts(raw, "QRUSER", "USERID", {"NAME", "FULLNAME", "PASSWORD", "VFLG"});
    RestoreAccounts(raw, "QRGROUP", "GROUPID", {"NAME", "DESCR", "VFLG"});
    for (const std::string table : kLinkTables) {
      raw.Execute("INSERT INTO " + table + " SELECT * FROM KEPT_" + table);
    }
    raw.Execute("DELETE FROM QRCOUNTER");
    raw.Execute("INSERT INTO QRCOUNTER SELECT * FROM KEPT_QRCOUNTER");
    raw.Execute("COMMIT");
  }

  std::unique_ptr<frmUserGroupPerm> Start() {
    user.SetCommandLine(Database().CommandLine());
    auto window = std::make_unique<frmUserGroupPerm>(global);
    window->Show();
    EXPECT_TRUE(window->isStarted);
    return window;
  }

  // The database as it was, and the trees with it.
  void Reset(frmUserGroupPerm& window, const FaultCase& test, test_support::RawDatabase& raw) {
    RestoreDatabase(raw);
    ASSERT_EQ(window.RefreshTree(), app::Outcome::kDone);
    Select(window, test.tree, test.key);
  }

  // A command without a fault, with its calls up to the last write.
  std::vector<Position> Observe(frmUserGroupPerm& window, const FaultCase& test,
                                test_support::RawDatabase& raw) {
    std::vector<Position> positions;
    PhaseWalk walk(test);
    Position next;
    const DriverCalls calls([&](const std::string& function) {
      if (next.stored == nullptr) next.stored = std::make_shared<const Tables>(Stored(raw));
      next.function = function;
      const bool wanted = next.phase != nullptr && next.phase->kind == FaultPhase::kWrite;
      if (wanted) positions.push_back(next);
      if (function == "SQLExecute" || function == "SQLEndTran") next.stored = nullptr;
      return false;
    });
    Give(window, test, [&](const std::wstring& call, bool inside) {
      next.call = call;
      next.phase = walk.Next(call, inside);
      EXPECT_NE(next.phase, nullptr) << data::ToUtf8(call);
      return 0L;
    });
    EXPECT_TRUE(reports_.empty()) << test.name << ": " << data::ToUtf8(reports_[0]);
    EXPECT_GT(positions.size(), 0U);
    return positions;
  }

  void GiveUntouched(frmUserGroupPerm& window, const FaultCase& test) {
    Give(window, test, [](const std::wstring&, bool) { return 0L; });
  }

  // Makes the call at a position fail. Where nobody is told, everything was done before.
  void Fail(frmUserGroupPerm& window, const FaultCase& test, const Position& position,
            std::size_t at, test_support::RawDatabase& raw, const Tables& done) {
    const FaultPhase* phase = nullptr;
    PhaseWalk walk(test);
    {
      const DriverCalls calls([&, left = at](const std::string& function) mutable {
        if (phase == nullptr || phase->kind != FaultPhase::kWrite || left-- != 0) return false;
        EXPECT_EQ(function, position.function);
        return true;
      });
      Give(window, test, [&](const std::wstring& call, bool inside) {
        // After a failure a command may read what it would not have read else.
        phase = walk.Next(call, inside);
        return 0L;
      });
    }
    if (reports_.empty()) {
      EXPECT_EQ(Stored(raw), done) << "a failure of which nobody is told";
      EXPECT_EQ(window.exchange.AddNode, static_cast<bool>(test.Fill));
      ++silent_;
      return;
    }
    EXPECT_EQ(reports_, Strings{std::wstring(position.phase->procedure) + L" Error [" +
                                data::Decimal(server::kDatabaseError) + L"]\r\nHY000: " +
                                data::FromUtf8(DriverCalls::InjectedMessage(position.function))});
    EXPECT_EQ(Stored(raw), *position.stored) << "what was written before stays, and no more";
    EXPECT_FALSE(window.exchange.AddNode);
  }

  // Gives the command once more, with the database as it was, on the same connection.
  void GiveAgain(frmUserGroupPerm& window, const FaultCase& test, test_support::RawDatabase& raw,
                 const Tables& done) {
    Reset(window, test, raw);
    GiveUntouched(window, test);
    EXPECT_EQ(reports_, Strings{});
    EXPECT_EQ(Stored(raw), done);
  }

  static bool Every() { return std::getenv(kEveryVariable) != nullptr; }

  static std::wstring WithoutDigits(std::wstring text) {
    std::erase_if(text, [](wchar_t letter) { return letter >= L'0' && letter <= L'9'; });
    return text;
  }

  using Alike = std::set<std::pair<std::string, std::wstring>>;

  // Whether a call is to fail: of those that differ in numbers alone, the first.
  static bool IsChosen(const Position& position, Alike& seen) {
    return seen.emplace(position.function, WithoutDigits(position.call)).second || Every();
  }

  std::size_t tried_ = 0;
  std::size_t silent_ = 0;
};

TEST_F(DriverFaults, AtEachCallOfASaveAreReportedAndTheSameOkWorksAgain) {
  auto raw = Raw();
  KeepDatabase(raw);
  const auto window = Start();
  Alike seen;
  for (const FaultCase& test : FaultCases()) {
    Reset(*window, test, raw);
    GiveUntouched(*window, test);  // so that its statements are prepared
    Reset(*window, test, raw);
    const std::vector<Position> positions = Observe(*window, test, raw);
    const Tables done = Stored(raw);
    for (std::size_t at = 0; at < positions.size() && !HasFailure(); ++at) {
      if (!IsChosen(positions[at], seen)) continue;
      SCOPED_TRACE(std::string(test.name) + ", call " + std::to_string(at) + ", " +
                   positions[at].function + " in " + data::ToUtf8(positions[at].call));
      Reset(*window, test, raw);
      Fail(*window, test, positions[at], at, raw, done);
      GiveAgain(*window, test, raw, done);
      ++tried_;
    }
  }
  window->Unload();
  RecordProperty("positions", static_cast<int>(tried_));
  RecordProperty("silent", static_cast<int>(silent_));
  EXPECT_GT(tried_, 100U);
}

// Statements are prepared and their columns bound when they are first asked for.
TEST_F(DriverFaults, WhileAStatementIsPreparedAreReportedAndTheSameOkWorksAgain) {
  auto raw = Raw();
  KeepDatabase(raw);
  Alike seen;
  for (const FaultCase& test : FaultCases()) {
    std::vector<Position> positions;
    Tables done;
    const auto onNewSession = [&](const auto& work) {
      RestoreDatabase(raw);
      const auto window = Start();
      Select(*window, test.tree, test.key);
      work(*window);
      window->Unload();
    };
    onNewSession([&](frmUserGroupPerm& window) {
      positions = Observe(window, test, raw);
      done = Stored(raw);
    });
    for (std::size_t at = 0; at < positions.size() && !HasFailure(); ++at) {
      const Position& position = positions[at];
      const bool prepares = position.function != "SQLExecute" &&
                            position.function != "SQLFetchScroll" &&
                            position.function != "SQLBindParameter" &&
                            position.function != "SQLEndTran" && position.function != "SQLRowCount";
      if (!prepares || !IsChosen(position, seen)) continue;
      SCOPED_TRACE(std::string(test.name) + ", call " + std::to_string(at) + ", " +
                   position.function + " in " + data::ToUtf8(position.call));
      onNewSession([&](frmUserGroupPerm& window) {
        Fail(window, test, position, at, raw, done);
        GiveAgain(window, test, raw, done);
      });
      ++tried_;
    }
  }
  RecordProperty("positions", static_cast<int>(tried_));
  RecordProperty("silent", static_cast<int>(silent_));
  EXPECT_GT(tried_, 100U);
}

// Once a transaction is over each write is to be one by itself again; a connection on which that
// cannot be had is given up, or nobody would ever commit what follows.
TEST_F(DriverFaults, AfterACommitLoseNeitherWhatWasCommittedNorTheNextWrite) {
  const auto server = Database().OpenServer();
  const auto connection = server->DatabaseConnection();
  const std::int32_t before = server->NewIdentifier(L"QRUSRN");
  {
    bool committed = false;
    const DriverCalls calls([&](const std::string& function) {
      if (function == "SQLEndTran") committed = true;
      return committed && function == "SQLSetConnectAttr";
    });
    EXPECT_EQ(server->NewIdentifier(L"QRUSRN"), before + 1);
  }
  EXPECT_EQ(connection->Execute(data::SqlDeleteUserPermissions(9)), 2);
  EXPECT_EQ(Raw().Number("select count(*) from qruprm where userid = 9"), 0);
  EXPECT_EQ(server->NewIdentifier(L"QRUSRN"), before + 2);
}

}  // namespace
}  // namespace browser
