#include <set>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "server/core/samples/SampleData.h"

namespace server_test {
namespace {

using test_support::Sample;

using SampleCompany = OnSample;

TEST_F(SampleCompany, IsACompanyOfSomeFortyUsers) {
  test_support::RawDatabase raw = sample_.Raw();
  EXPECT_EQ(raw.Number("select count(*) from qruserv"), 39);
  EXPECT_EQ(raw.Number("select count(*) from qrgroupv"), 12);
  EXPECT_EQ(raw.Number("select count(*) from qrperm"), 30);
}

TEST_F(SampleCompany, HasTheProtectedAccounts) {
  EXPECT_EQ(Read(data::SqlSelectAdminUser(), 1), (Rows{{L"1"}}));
  EXPECT_EQ(Read(data::SqlSelectProtectedGroups(), 2),
            (Rows{{L"1", L"Administrators"}, {L"2", L"Everyone"}}));
}

TEST_F(SampleCompany, HasEveryLivingUserInEveryone) {
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruserv where userid not in"
                                 " (select userid from qrusgp where groupid = 2)"),
            0);
}

TEST_F(SampleCompany, HasASecondAdministrator) {
  EXPECT_EQ(Read(data::SqlSelectMembership(Sample::kAdministrators, Sample::kMoreau), 2).size(),
            1U);
}

TEST_F(SampleCompany, HasMartinWhoIsNotInQuality) {
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruserv where name = 'Martin'"), 1);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgp natural join qruserv"
                                 " where name = 'Martin' and groupid ="
                                 " (select groupid from qrgroupv where name = 'Qualité')"),
            0);
}

TEST_F(SampleCompany, HasADeletedUserUnderHisLongerName) {
  EXPECT_EQ(sample_.Raw().Text("select name from qruser where vflg = 'D'"), "Garnier(17)");
}

TEST_F(SampleCompany, HasAUserWithNothingButEveryone) {
  EXPECT_EQ(Read(data::SqlSelectUserGroupIds(Sample::kStagiaire), 1), (Rows{{L"2"}}));
  EXPECT_TRUE(Read(data::SqlSelectUserPermIds(Sample::kStagiaire), 1).empty());
}

TEST_F(SampleCompany, NamesAreUniqueAndTrimmed) {
  std::set<std::string_view> names;
  for (const server::sample::User& user : server::sample::Users()) {
    EXPECT_TRUE(names.insert(user.name).second) << user.name;
    EXPECT_FALSE(user.name.starts_with(' ') || user.name.ends_with(' ')) << user.name;
  }
}

TEST_F(SampleCompany, PasswordsAreReadWithTheKeyOfTheSource) {
  const auto set = connection_->OpenResultSet(data::SqlSelectUser(Sample::kMartin));
  EXPECT_EQ(server_->DecryptPassword(set->Column(3).Text(), 9), L"Vardex-2026");
  EXPECT_EQ(NumberOf([&] { server_->DecryptPassword(set->Column(3).Text(), 8); }),
            server::kPasswordUnreadable);
  EXPECT_TRUE(
      connection_->OpenResultSet(data::SqlSelectUser(Sample::kStagiaire))->Column(3).IsNull());
}

TEST_F(SampleCompany, MembershipsOfDeletedAccountsDoNotCount) {
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgp where userid = 17"), 1);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgpv where userid = 17"), 0);
  sample_.Raw().Execute("update qrgroup set vflg = 'D' where groupid = 7");
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgpv where groupid = 7"), 0);
}

class Generated : public ::testing::Test {
 protected:
  static std::string Contents(const test_support::SampleDatabase& sample) {
    std::string contents;
    for (const char* const table : {"qruser", "qrgroup", "qrperm", "qrusgp", "qruprm", "qrgprm"}) {
      const std::string columns = table == std::string("qruser") ? "userid, name, fullname" : "*";
      const std::string sql =
          "select " + columns + " from " + std::string(table) + " order by 1, 2";
      for (const auto& row : sample.Raw().Rows(sql)) {
        for (const std::string& text : row) contents += text + "|";
      }
    }
    return contents;
  }
};

TEST_F(Generated, AccountsHaveAsManyLinksAsPromised) {
  const test_support::SampleDatabase sample(server::GeneratedSize{3000, 50, 60});
  test_support::RawDatabase raw = sample.Raw();
  EXPECT_EQ(raw.Number("select count(*) from qruserv"), 3000);
  EXPECT_EQ(raw.Number("select count(*) from qrgroupv"), 50);
  EXPECT_EQ(raw.Number("select count(*) from qrperm"), 60);
  EXPECT_EQ(raw.Number("select count(distinct name) from qruser"), 3000);
  EXPECT_EQ(raw.Number("select count(distinct name) from qrgroup"), 50);
  EXPECT_EQ(raw.Number("select count(distinct name) from qrperm"), 60);
  const auto links = [&](const std::string& table, const std::string& owner) {
    return raw.Rows("select min(n), max(n), count(*) from (select count(*) n from " + table +
                    " group by " + owner + ") counted")[0];
  };
  EXPECT_EQ(links("qrusgp", "userid"), (std::vector<std::string>{"5", "5", "3000"}));
  EXPECT_EQ(links("qruprm", "userid"), (std::vector<std::string>{"5", "5", "3000"}));
  EXPECT_EQ(links("qrgprm", "groupid"), (std::vector<std::string>{"20", "20", "50"}));
}

TEST_F(Generated, AccountsAreTheSameForTheSameSize) {
  const test_support::SampleDatabase first(server::GeneratedSize{200, 20, 30});
  const test_support::SampleDatabase second(server::GeneratedSize{200, 20, 30});
  EXPECT_EQ(Contents(first), Contents(second));
}

TEST_F(Generated, AdminIsTheOnlyAdministrator) {
  test_support::SampleDatabase sample(server::GeneratedSize{100, 20, 30});
  EXPECT_EQ(sample.OpenServer()->GetRights(), 4);
  EXPECT_EQ(sample.Raw().Number("select count(*) from qrusgp where groupid = 1"), 1);
  EXPECT_EQ(sample.Raw().Number("select count(*) from qruprm where permid = 1"), 0);
  EXPECT_EQ(sample.Raw().Number("select count(*) from qrgprm where permid = 1"), 1);
}

TEST_F(Generated, SmallSizesHaveFewerLinks) {
  test_support::SampleDatabase sample(server::GeneratedSize{1, 2, 1});
  EXPECT_EQ(sample.OpenServer()->GetRights(), 4);
  EXPECT_EQ(sample.Raw().Number("select count(*) from qrusgp"), 2);
  EXPECT_EQ(sample.Raw().Number("select count(*) from qruprm"), 0);
}

TEST_F(Generated, CountersGoOnAfterTheAccounts) {
  test_support::SampleDatabase sample(server::GeneratedSize{100, 20, 30});
  const auto server = sample.OpenServer();
  EXPECT_EQ(server->NewIdentifier(L"QRUSRN"), 101);
  EXPECT_EQ(server->NewIdentifier(L"QRGPRN"), 21);
}

}  // namespace
}  // namespace server_test
