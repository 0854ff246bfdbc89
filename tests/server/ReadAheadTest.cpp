#include <functional>
#include <random>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/sql/Query.h"
#include "server/core/sql/SqlConnection.h"
#include "tests/support/data/CountedEngine.h"

namespace server_test {
namespace {

using test_support::CountedEngine;
using test_support::Traffic;

int ColumnsOf(std::wstring_view statement) {
  const std::wstring_view list = statement.substr(0, statement.find(L"FROM"));
  if (list.find(L'*') != std::wstring_view::npos) return 2;
  return static_cast<int>(std::count(list.begin(), list.end(), L',')) + 1;
}

// Made-up accounts behind an engine that is far away.
class FarAccounts {
 public:
  explicit FarAccounts(const server::GeneratedSize& size, bool ahead = true) : sample_(size) {
    std::unique_ptr<server::Engine> engine = sample_.Engine();
    // No two texts of one password are alike.
    server::Run(*engine, "UPDATE QRUSER SET PASSWORD = NULL");
    if (ahead) engine = std::make_unique<CountedEngine>(std::move(engine), traffic);
    database = std::make_shared<server::Database>(std::move(engine));
    connection = std::make_unique<server::SqlConnection>(database);
  }

  Rows Read(const std::wstring& statement) {
    Rows rows = ReadRows(*connection, statement, ColumnsOf(statement));
    if (statement.find(L"ORDER BY") == std::wstring::npos) std::sort(rows.begin(), rows.end());
    return rows;
  }
  std::vector<std::int32_t> List(const std::wstring& statement) {
    std::vector<std::int32_t> identifiers;
    const auto set = connection->OpenResultSet(statement);
    for (; !set->EndOfRows(); set->MoveNext()) identifiers.push_back(set->Column(0).Integer());
    return identifiers;
  }
  test_support::RawDatabase Raw() const { return sample_.Raw(); }

  Traffic traffic;
  std::shared_ptr<server::Database> database;
  std::unique_ptr<data::Connection> connection;

 private:
  test_support::SampleDatabase sample_;
};

using Question = std::wstring (*)(std::int32_t);

std::wstring UsersOfGroupByName(std::int32_t group) {
  return data::SqlSelectGroupUsers(group) + L" ORDER BY QRUSERV.NAME";
}
std::wstring UsersOfGroupByNameOnly(std::int32_t group) {
  return L"SELECT QRUSERV.USERID FROM QRUSERV,QRUSGP WHERE QRUSERV.USERID = QRUSGP.USERID AND "
         L"QRUSGP.GROUPID = " +
         data::Decimal(group) + L" ORDER BY NAME";
}
std::wstring UsersOfGroupByNumber(std::int32_t group) {
  return L"select qrusgp.userid, qrusgp.groupid from qrusgp where groupid=" + data::Decimal(group) +
         L" ORDER BY userid";
}

constexpr Question kOfUser[] = {
    data::SqlSelectUserGroups,           data::SqlSelectUser,
    data::SqlSelectUserPermissionNames,  data::SqlSelectUserPermRows,
    data::SqlSelectInheritedPermissions, data::SqlSelectUserMemberships};
constexpr Question kOfGroup[] = {data::SqlSelectGroupPermissionNames,
                                 data::SqlSelectGroup,
                                 data::SqlSelectGroupUsers,
                                 data::SqlSelectGroupPermRows,
                                 UsersOfGroupByName,
                                 UsersOfGroupByNumber,
                                 UsersOfGroupByNameOnly};

// What the program asks for both of its trees.
void ReadTrees(FarAccounts& accounts, const std::function<void(const std::wstring&)>& ask) {
  for (const std::int32_t user : accounts.List(data::SqlSelectAllUsers())) {
    ask(data::SqlSelectUserGroups(user));
    ask(data::SqlSelectUserPermissionNames(user));
    ask(data::SqlSelectInheritedPermissions(user));
  }
  for (const std::int32_t group : accounts.List(data::SqlSelectAllGroups())) {
    ask(data::SqlSelectGroupUsers(group));
    ask(data::SqlSelectGroupPermissionNames(group));
  }
}

TEST(ReadAhead, TreesOfManyUsersTakeFewStatements) {
  FarAccounts accounts({2000, 60, 40});
  accounts.connection->BeginRead();
  int asked = 2;
  std::size_t most = 0;
  ReadTrees(accounts, [&](const std::wstring& statement) {
    accounts.connection->OpenResultSet(statement);
    most = std::max(most, accounts.database->BytesAhead());
    ++asked;
  });
  accounts.connection->EndRead();
  EXPECT_EQ(asked, 2 + 3 * 2000 + 2 * 60);
  EXPECT_LE(accounts.traffic.statements, 150);
  EXPECT_LE(accounts.traffic.widest, 256);
  EXPECT_GT(most, 0U);
  EXPECT_EQ(accounts.database->BytesAhead(), 0U);
}

// The embedded database alone: what counts is how often it is asked.
TEST(SqliteReadAhead, TreesOfTenThousandUsersTakeLessThanFourHundredStatements) {
  FarAccounts accounts({10000, 200, 200});
  accounts.connection->BeginRead();
  int asked = 2;
  std::size_t most = 0;
  ReadTrees(accounts, [&](const std::wstring& statement) {
    accounts.connection->OpenResultSet(statement);
    most = std::max(most, accounts.database->BytesAhead());
    ++asked;
  });
  EXPECT_EQ(asked, 30402);
  EXPECT_LE(accounts.traffic.statements, 400);
  EXPECT_LE(most, server::ReadAhead::kMostBytes);
}

// The same walks over two equal databases, one read ahead and one not, in two brackets each.
class RandomWalk {
 public:
  explicit RandomWalk(unsigned seed) : generator_(seed) {}

  void Compare(FarAccounts& ahead, FarAccounts& plain) {
    for (int bracket = 0; bracket < 2; ++bracket) {
      ahead.connection->BeginRead();
      plain.connection->BeginRead();
      const std::size_t walks = 1 + Draw(4);
      for (std::size_t i = 0; i < walks; ++i) Walk(ahead, plain);
      ahead.connection->EndRead();
      plain.connection->EndRead();
    }
  }

 private:
  std::size_t Draw(std::size_t below) { return generator_() % below; }

  template <std::size_t kCount>
  std::vector<Question> Some(const Question (&questions)[kCount]) {
    std::vector<Question> some;
    for (const Question question : questions) {
      if (Draw(2) == 0) some.push_back(question);
    }
    if (some.empty()) some.push_back(questions[Draw(kCount)]);
    return some;
  }

  void Walk(FarAccounts& ahead, FarAccounts& plain) {
    const bool users = Draw(3) != 0;
    const std::wstring list = users ? data::SqlSelectAllUsers() : data::SqlSelectAllGroups();
    std::vector<std::int32_t> order = ahead.List(list);
    ASSERT_EQ(order.size(), plain.List(list).size());
    Disturb(order);
    const std::vector<Question> questions = users ? Some(kOfUser) : Some(kOfGroup);
    const std::size_t end = Draw(2) == 0 ? order.size() : 1 + Draw(order.size());
    for (std::size_t i = 0; i < end; ++i) {
      for (const Question question : questions) {
        const std::wstring statement = question(order[i]);
        ASSERT_EQ(ahead.Read(statement), plain.Read(statement)) << data::ToUtf8(statement);
      }
      if (Draw(60) == 0) Write(ahead, plain, order[i]);
    }
  }

  // Leaves the order of the list, or mixes it near by, wholly, by doubles, strangers or gaps.
  void Disturb(std::vector<std::int32_t>& order) {
    switch (Draw(6)) {
      case 0:
        for (std::size_t i = 0; i + 5 < order.size(); i += 5) {
          std::shuffle(order.begin() + static_cast<int>(i), order.begin() + static_cast<int>(i) + 5,
                       generator_);
        }
        break;
      case 1:
        std::shuffle(order.begin(), order.end(), generator_);
        break;
      case 2:
        for (std::size_t i = 0; i < order.size(); i += 1 + Draw(20)) {
          order.insert(order.begin() + static_cast<int>(i), order[Draw(order.size())]);
        }
        break;
      case 3:
        for (std::size_t i = 0; i < order.size(); i += 1 + Draw(30)) {
          order[i] = static_cast<std::int32_t>(Draw(100'000)) - 1000;
        }
        break;
      case 4:
        std::erase_if(order, [this](std::int32_t) { return Draw(4) == 0; });
        if (order.empty()) order.push_back(1);
        break;
      default:
        break;
    }
  }

  // A write within a bracket: what is read after it shows it.
  void Write(FarAccounts& ahead, FarAccounts& plain, std::int32_t identifier) {
    for (FarAccounts* const accounts : {&ahead, &plain}) {
      accounts->connection->Execute(data::SqlDeleteUserPermissions(identifier));
      const auto set = accounts->connection->OpenResultSet(data::SqlSelectUser(identifier));
      if (set->EndOfRows()) continue;
      set->Edit();
      set->SetColumn(L"FULLNAME", L"Jean " + data::Decimal(identifier));
      set->Update();
    }
  }

  std::mt19937 generator_;
};

TEST(ReadAhead, GivesTheRowsThatSingleStatementsGive) {
  const server::GeneratedSize size{150, 40, 25};
  FarAccounts ahead(size);
  FarAccounts plain(size, false);
  const bool near = test_support::EngineUnderTest() == test_support::TestEngine::kSqlite;
  for (unsigned seed = 1; seed <= (near ? 8 : 2); ++seed) {
    RandomWalk(seed).Compare(ahead, plain);
    ASSERT_FALSE(::testing::Test::HasFatalFailure()) << "seed " << seed;
  }
  EXPECT_GT(ahead.traffic.widest, 8);
}

class ReadAheadOf : public ::testing::Test {
 protected:
  // Walks the users up to one of them.
  void Walk(std::int32_t last, Question question = data::SqlSelectUserPermRows) {
    for (const std::int32_t user : accounts_.List(L"SELECT USERID FROM QRUSERV ORDER BY USERID")) {
      if (user > last) break;
      accounts_.Read(question(user));
    }
  }

  FarAccounts accounts_{{200, 20, 25}};
};

TEST_F(ReadAheadOf, OneUserAtATimeNothingIsReadOutsideABracket) {
  Walk(100);
  EXPECT_EQ(accounts_.traffic.widest, 1);
  EXPECT_EQ(accounts_.traffic.statements, 101);
}

TEST_F(ReadAheadOf, RowsIsForgottenAtTheEndOfTheBracket) {
  accounts_.connection->BeginRead();
  Walk(50);
  EXPECT_GT(accounts_.database->BytesAhead(), 0U);
  accounts_.connection->EndRead();
  EXPECT_EQ(accounts_.database->BytesAhead(), 0U);
  accounts_.Raw().Execute("delete from qruprm where userid = 51");
  EXPECT_EQ(accounts_.Read(data::SqlSelectUserPermRows(51)).size(), 0U);
  accounts_.connection->BeginRead();
  EXPECT_EQ(accounts_.Read(data::SqlSelectUserPermRows(52)).size(), 5U);
  accounts_.connection->EndRead();
}

TEST_F(ReadAheadOf, RowsIsForgottenWithAWriteInTheBracket) {
  accounts_.connection->BeginRead();
  Walk(50);
  ASSERT_GT(accounts_.database->BytesAhead(), 0U);
  EXPECT_EQ(accounts_.connection->Execute(data::SqlDeleteUserPermissions(51)), 5);
  EXPECT_EQ(accounts_.database->BytesAhead(), 0U);
  EXPECT_EQ(accounts_.Read(data::SqlSelectUserPermRows(51)).size(), 0U);
  accounts_.connection->EndRead();
}

TEST_F(ReadAheadOf, ABracketGoesByTheListsOfTheOneBefore) {
  accounts_.connection->BeginRead();
  const auto users = accounts_.List(data::SqlSelectAllUsers());
  accounts_.connection->EndRead();
  accounts_.traffic.statements = 0;
  accounts_.connection->BeginRead();
  for (const std::int32_t user : users) accounts_.Read(data::SqlSelectUserPermRows(user));
  accounts_.connection->EndRead();
  EXPECT_LE(accounts_.traffic.statements, 24);
}

TEST_F(ReadAheadOf, RowsThatFailsLeavesTheStatementsAskedOneByOne) {
  accounts_.connection->BeginRead();
  int failed = 0;
  accounts_.traffic.beforeRun = [&](const std::string& sql) {
    if (sql.find("IN (") == std::string::npos) return;
    ++failed;
    server::FailDatabase(L"too much at once");
  };
  const auto users = accounts_.List(data::SqlSelectAllUsers());
  for (const std::int32_t user : users) {
    EXPECT_EQ(accounts_.Read(data::SqlSelectUserPermRows(user)).size(), 5U);
  }
  accounts_.connection->EndRead();
  EXPECT_EQ(failed, 1);
}

TEST_F(ReadAheadOf, RowsThatBreaksOffShowsTheErrorOfTheStatementItself) {
  accounts_.connection->BeginRead();
  Walk(50);
  accounts_.traffic.beforeRun = [](const std::string&) { server::FailDatabase(L"gone away"); };
  const auto failure = FailureOf([&] { Walk(60); });
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"gone away");
  accounts_.traffic.beforeRun = [](const std::string&) {};
  EXPECT_EQ(accounts_.Read(data::SqlSelectUserPermRows(70)).size(), 5U);
  accounts_.connection->EndRead();
}

TEST_F(ReadAheadOf, ASetCanBeWalkedAgainChangedAndClosed) {
  accounts_.connection->BeginRead();
  Walk(50, data::SqlSelectUser);
  const auto set = accounts_.connection->OpenResultSet(data::SqlSelectUser(51));
  const std::wstring name = set->Column(1).Text();
  set->MoveNext();
  EXPECT_TRUE(set->EndOfRows());
  set->MoveFirst();
  EXPECT_EQ(set->Column(1).Text(), name);
  EXPECT_THROW(set->Column(4), data::RunTimeError);
  set->Edit();
  set->SetColumn(L"NAME", std::wstring(L"Renommé"));
  set->Update();
  EXPECT_EQ(set->Column(1).Text(), L"Renommé");
  set->Close();
  EXPECT_THROW(set->EndOfRows(), data::RunTimeError);
  EXPECT_EQ(accounts_.Read(data::SqlSelectUser(51))[0][1], L"Renommé");
  accounts_.connection->EndRead();
}

// Users with a description each as long as a page, and rows that no memory would hold at once.
TEST(ReadAhead, OfLongRowsKeepsToItsBound) {
  FarAccounts accounts({600, 20, 10});
  accounts.Raw().Execute("update qruser set fullname = '" + std::string(60'000, 'x') + "'");
  accounts.connection->BeginRead();
  std::size_t most = 0;
  for (const std::int32_t user : accounts.List(L"SELECT USERID FROM QRUSERV ORDER BY USERID")) {
    EXPECT_EQ(accounts.Read(data::SqlSelectUser(user))[0][2].size(), 60'000U);
    most = std::max(most, accounts.database->BytesAhead());
  }
  EXPECT_GT(most, 100'000U);
  EXPECT_LE(most, server::ReadAhead::kMostBytes);
  EXPECT_LT(accounts.traffic.statements, 300);
  accounts.connection->EndRead();
}

// The embedded database alone: it holds texts of any length.
TEST(SqliteReadAhead, ThatMeetsTooManyRowsDropsThem) {
  FarAccounts accounts({100, 20, 10});
  accounts.Raw().Execute("update qruser set fullname = 'short' where userid < 30");
  accounts.Raw().Execute("update qruser set fullname = '" + std::string(2'000'000, 'x') +
                         "' where userid >= 30");
  accounts.connection->BeginRead();
  std::size_t most = 0;
  for (const std::int32_t user : accounts.List(L"SELECT USERID FROM QRUSERV ORDER BY USERID")) {
    const auto set = accounts.connection->OpenResultSet(data::SqlSelectUser(user));
    const std::size_t length = set->Column(2).Text().size();
    EXPECT_EQ(length, user < 30 ? 5U : 2'000'000U);
    most = std::max(most, accounts.database->BytesAhead());
  }
  EXPECT_LE(most, server::ReadAhead::kMostBytes);
  accounts.connection->EndRead();
}

}  // namespace
}  // namespace server_test
