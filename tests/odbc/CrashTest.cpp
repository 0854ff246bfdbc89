// A database server that is killed (-9) while a session is open and started again.

#include <cstdlib>
#include <memory>

#include "OnServer.h"
#include "data/MSQLStatement.h"
#include "server/core/Errors.h"
#include "tests/support/network/DatabaseServer.h"

namespace odbc_test {
namespace {

constexpr const char* kFolderVariable = "UADMIN_DATABASE_SERVER";

// A server of its own, of the kind under test, in the place of the one that all tests share.
class OwnServer {
 public:
  OwnServer() {
    Run("start " +
        std::string(test_support::EngineUnderTest() == test_support::TestEngine::kPostgresql
                        ? "postgresql"
                        : "mariadb"));
    setenv(kFolderVariable, folder_.c_str(), 1);
  }
  ~OwnServer() {
    setenv(kFolderVariable, shared_.c_str(), 1);
    Run("stop");
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  void Run(const std::string& command) const { test_support::ControlServer(command, folder_); }

 private:
  std::string shared_ = std::getenv(kFolderVariable);
  std::string folder_ = (test_support::MakeTestFolder() / "server").string();
};

class Crash : public ::testing::Test {
 protected:
  static constexpr int kUsers = 100;
  static constexpr std::int32_t kUser = 50;

  // Asks what the program asks of each user; the sum of the rows.
  std::size_t ReadTrees() {
    std::size_t rows = 0;
    const auto users = connection_->OpenResultSet(data::SqlSelectAllUsers());
    for (; !users->EndOfRows(); users->MoveNext()) rows += RowsOf(users->Column(0).Integer());
    return rows;
  }
  std::size_t RowsOf(std::int32_t user) {
    std::size_t rows = 0;
    for (const std::wstring& statement :
         {data::SqlSelectUserGroups(user), data::SqlSelectInheritedPermissions(user)}) {
      const auto set = connection_->OpenResultSet(statement);
      for (; !set->EndOfRows(); set->MoveNext()) ++rows;
    }
    return rows;
  }
  template <class Call>
  static long NumberOf(Call&& call) {
    try {
      call();
    } catch (const data::RunTimeError& error) {
      return error.Number();
    }
    return 0;
  }
  void AddMembership(std::int32_t group) {
    const auto set = connection_->OpenResultSet(data::SqlSelectUserMemberships(kUser));
    set->AddNew();
    set->SetColumn(L"USERID", kUser);
    set->SetColumn(L"GROUPID", group);
    set->Update();
  }
  std::string Memberships() const {
    std::string groups;
    for (const auto& row : sample_.Raw().Rows("select groupid from qrusgp where userid = " +
                                              std::to_string(kUser) + " order by 1")) {
      groups += row[0] + " ";
    }
    return groups;
  }

  OwnServer own_;
  test_support::SampleDatabase sample_{server::GeneratedSize{kUsers, 20, 20}};
  std::unique_ptr<server::ReferenceServer> server_ = sample_.OpenServer();
  std::unique_ptr<data::Connection> connection_ = server_->DatabaseConnection();
};

TEST_F(Crash, InTheMiddleOfASaveLeavesNoHalfRowAndTheSaveCanBeDoneAgain) {
  connection_->Execute(data::SqlDeleteUserMemberships(kUser));
  AddMembership(3);
  own_.Run("kill");
  EXPECT_EQ(NumberOf([this] { AddMembership(4); }), server::kDatabaseError);
  own_.Run("resume");
  EXPECT_EQ(Memberships(), "3 ");
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserMemberships(kUser)), 1);
  AddMembership(3);
  AddMembership(4);
  EXPECT_EQ(Memberships(), "3 4 ");
}

TEST_F(Crash, InTheMiddleOfTheTreesIsToldAndTheyAreReadAgainAfterIt) {
  connection_->BeginRead();
  const std::size_t rows = ReadTrees();
  connection_->EndRead();
  EXPECT_GT(rows, static_cast<std::size_t>(kUsers));
  connection_->BeginRead();
  EXPECT_GT(RowsOf(kUser), 0U);
  own_.Run("kill");
  EXPECT_EQ(NumberOf([this] { ReadTrees(); }), server::kDatabaseError);
  EXPECT_EQ(NumberOf([this] { connection_->EndRead(); }), server::kDatabaseError);
  own_.Run("resume");
  connection_->BeginRead();
  EXPECT_EQ(ReadTrees(), rows);
  connection_->EndRead();
}

}  // namespace
}  // namespace odbc_test
