#include <gtest/gtest.h>

#include <cstdlib>

#include "LateServer.h"
#include "VardexLibrary.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/ReadScope.h"
#include "server/com/Identity.h"
#include "server/core/Errors.h"
#include "tests/support/data/SampleDatabase.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

// The adapter, the reference server's library and a real database, one behind the other.
class RoundTrip : public testing::Test {
 protected:
  RoundTrip() { _wputenv_s(L"VARDEX_HOME", database_.Home().c_str()); }
  ~RoundTrip() override { EXPECT_TRUE(library_.MayUnload()) << "an object was left behind"; }

  std::unique_ptr<data::SessionServer> MakeServer() { return Adapt(library_.MakeServer().Get()); }

  std::unique_ptr<data::SessionServer> OpenServer() {
    auto server = MakeServer();
    std::wstring text;
    std::int32_t id = 0;
    server->ReadCommandLine(database_.CommandLine(), text, id);
    server->OpenSession(text, id);
    return server;
  }

  test_support::SampleDatabase database_;
  VardexLibrary library_;
};

// Every row of a statement, columns parted by bars, nulls as "-".
std::wstring RowsOf(data::Connection& connection, const std::wstring& statement, int columns) {
  std::wstring text;
  const auto rows = connection.OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    for (int i = 0; i < columns; ++i) {
      text += rows->Column(i).IsNull() ? L"-" : rows->Column(i).Text();
      text += i + 1 == columns ? L"\n" : L"|";
    }
  }
  rows->Close();
  return text;
}

TEST_F(RoundTrip, GivesTheSameAnswersAsTheServerItself) {
  const auto direct = database_.OpenServer();
  const auto server = OpenServer();
  EXPECT_EQ(direct->GetRights(), server->GetRights());
  EXPECT_EQ(direct->GetSessionUserText(), server->GetSessionUserText());
  EXPECT_EQ(direct->GetDisplayName(L"Everyone", 104), server->GetDisplayName(L"Everyone", 104));
  server->SetMode(1);
  const std::wstring stored = server->EncryptPassword(L"pâté\xD83D\xDE00", 12);
  EXPECT_EQ(L"pâté\xD83D\xDE00", direct->DecryptPassword(stored, 12));
  EXPECT_EQ(L"pâté\xD83D\xDE00", server->DecryptPassword(stored, 12));
  const std::int32_t before = direct->NewIdentifier(L"QRUSRN");
  EXPECT_EQ(before + 1, server->NewIdentifier(L"QRUSRN"));
}

TEST_F(RoundTrip, ReadsTheSameRowsAsTheServerItself) {
  const auto direct = database_.OpenServer();
  const auto server = OpenServer();
  const auto directConnection = direct->DatabaseConnection();
  const auto connection = server->DatabaseConnection();
  for (const auto& [statement, columns] :
       {std::pair{data::SqlSelectAllUsers(), 3}, std::pair{data::SqlSelectAllGroups(), 3},
        std::pair{data::SqlSelectAllPermissions(), 2}}) {
    const std::wstring rows = RowsOf(*connection, statement, columns);
    EXPECT_EQ(RowsOf(*directConnection, statement, columns), rows);
    EXPECT_FALSE(rows.empty());
  }
}

TEST_F(RoundTrip, ReadsWithinOneState) {
  const auto server = OpenServer();
  const auto connection = server->DatabaseConnection();
  data::ReadScope scope(*connection);
  EXPECT_GT(data::CountRows(*connection, data::SqlSelectAllUsers()), 0);
  scope.Finish();
}

TEST_F(RoundTrip, WritesRowsAndReadsThemBack) {
  const auto server = OpenServer();
  const auto connection = server->DatabaseConnection();
  const std::wstring longText(4000, L'\x05D0');
  const std::int32_t id = server->NewIdentifier(L"QRGPRN");
  const auto rows = connection->OpenResultSet(data::SqlSelectGroup(id));
  EXPECT_TRUE(rows->EndOfRows());
  rows->AddNew();
  rows->SetColumn(0, id);
  rows->SetColumn(L"NAME", std::wstring(L"L'équipe \xD83D\xDE00 100 % (nuit)"));
  rows->SetColumn(L"DESCR", longText);
  rows->Update();
  rows->Close();
  EXPECT_EQ(std::to_wstring(id) + L"|L'équipe \xD83D\xDE00 100 % (nuit)|" + longText + L"\n",
            RowsOf(*connection, data::SqlSelectGroup(id), 3));

  const auto edited = connection->OpenResultSet(data::SqlSelectGroup(id));
  edited->Edit();
  edited->SetColumn(L"DESCR", std::monostate{});
  edited->Update();
  edited->Close();
  EXPECT_EQ(std::to_wstring(id) + L"|L'équipe \xD83D\xDE00 100 % (nuit)|-\n",
            RowsOf(*connection, data::SqlSelectGroup(id), 3));
}

TEST_F(RoundTrip, CountsTheRowsThatAStatementChanged) {
  const auto server = OpenServer();
  const auto connection = server->DatabaseConnection();
  const std::int32_t links = data::CountRows(*connection, data::SqlSelectUserMemberships(3));
  EXPECT_EQ(links, connection->Execute(data::SqlDeleteUserMemberships(3)));
  EXPECT_EQ(0, connection->Execute(data::SqlDeleteUserMemberships(3)));
}

TEST_F(RoundTrip, BringsNumberAndTextOfAFailure) {
  const auto direct = database_.MakeServer();
  const auto server = MakeServer();
  const auto rights = [](data::SessionServer& asked) {
    return ErrorOf([&] { asked.GetRights(); });
  };
  EXPECT_EQ(server::kNoSessionOpen, rights(*server).Number());
  EXPECT_EQ(rights(*direct).Text(), rights(*server).Text());

  const auto opened = OpenServer();
  const data::RunTimeError error =
      ErrorOf([&] { opened->DatabaseConnection()->OpenResultSet(L"DROP TABLE QRUSER"); });
  EXPECT_EQ(server::kDatabaseError, error.Number());
  EXPECT_FALSE(error.Text().empty());
}

TEST_F(RoundTrip, RefusesASessionThatIsNotOne) {
  const auto server = MakeServer();
  std::wstring text;
  std::int32_t id = 0;
  EXPECT_EQ(server::kCommandLineEmpty,
            ErrorOf([&] { server->ReadCommandLine(L"", text, id); }).Number());
  EXPECT_NE(0, ErrorOf([&] { server->OpenSession(L"nonsense", 1); }).Number());
}

TEST_F(RoundTrip, KeepsWhatAResultSetNeeds) {
  auto server = OpenServer();
  auto connection = server->DatabaseConnection();
  auto rows = connection->OpenResultSet(data::SqlSelectAllUsers());
  server.reset();
  EXPECT_FALSE(library_.MayUnload());
  connection.reset();
  EXPECT_FALSE(library_.MayUnload());
  EXPECT_FALSE(rows->EndOfRows());
  EXPECT_FALSE(rows->Column(1).Text().empty());
  rows.reset();
  EXPECT_TRUE(library_.MayUnload());
}

TEST_F(RoundTrip, SharesOneConnection) {
  const auto server = OpenServer();
  auto first = server->DatabaseConnection();
  const auto second = server->DatabaseConnection();
  first->BeginRead();
  first.reset();
  second->EndRead();
  EXPECT_GT(data::CountRows(*second, data::SqlSelectAllUsers()), 0);
}

}  // namespace
}  // namespace com_test
