#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace server_test {
namespace {

using test_support::Sample;

class SoftDelete : public OnSample {
 protected:
  std::string StateOfUsers() {
    std::string state;
    for (const auto& row :
         sample_.Raw().Rows("select userid, name, vflg from qruser order by userid")) {
      for (const std::string& text : row) state += text + "|";
    }
    return state;
  }
};

TEST_F(SoftDelete, FlagsAndRenamesTheUserAndHidesHimFromTheView) {
  EXPECT_EQ(connection_->Execute(data::SqlMarkUserDeleted(L"Martin", 9)), 1);
  EXPECT_EQ(sample_.Raw().Rows("select name, vflg from qruser where userid = 9"),
            (std::vector<std::vector<std::string>>{{"Martin(9)", "D"}}));
  EXPECT_TRUE(Read(data::SqlSelectUser(Sample::kMartin), 3).empty());
}

TEST_F(SoftDelete, FlagsAndRenamesTheGroupAndHidesItsMemberships) {
  EXPECT_EQ(connection_->Execute(data::SqlMarkGroupDeleted(L"Qualité", 6)), 1);
  EXPECT_EQ(sample_.Raw().Rows("select name, vflg from qrgroup where groupid = 6"),
            (std::vector<std::vector<std::string>>{{"Qualité(6)", "D"}}));
  EXPECT_TRUE(Read(data::SqlSelectGroup(Sample::kQualite), 3).empty());
  EXPECT_EQ(Read(data::SqlSelectInheritedPermissions(21), 2).size(), 2U);
}

TEST_F(SoftDelete, OfARowThatIsNotThereAffectsNone) {
  EXPECT_EQ(connection_->Execute(data::SqlMarkUserDeleted(L"Personne", 4711)), 0);
}

TEST_F(SoftDelete, OfADeletedUserAppendsTheIdentifierOnceMore) {
  EXPECT_EQ(connection_->Execute(data::SqlMarkUserDeleted(L"Garnier(17)", 17)), 1);
  EXPECT_EQ(sample_.Raw().Text("select name from qruser where userid = 17"), "Garnier(17)(17)");
}

TEST_F(SoftDelete, KeepsEveryLetterOfAName) {
  const std::wstring longName(4000, L'é');
  const std::wstring names[] = {
      L"; -- /* */ # % _ \\ ( ) [ ] { } \" ` ?1 :x $y @z",
      L"שלום",
      {L'\xD83D', L'\xDE00'},
      L"  blancs autour  ",
      longName,
  };
  for (const std::wstring& name : names) {
    EXPECT_EQ(connection_->Execute(data::SqlMarkUserDeleted(name, 9)), 1);
    EXPECT_EQ(sample_.Raw().Text("select name from qruser where userid = 9"),
              data::ToUtf8(name) + "(9)");
  }
}

TEST_F(SoftDelete, OfAQuotedNameFailsWithASyntaxErrorAndChangesNothing) {
  const std::string before = StateOfUsers();
  const data::RunTimeError failure =
      FailureOf([&] { connection_->Execute(data::SqlMarkUserDeleted(L"D'Angelo", 11)); });
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_NE(failure.Text().find(L"Angelo"), std::wstring::npos);
  EXPECT_NE(failure.Text().find(L"syntax error"), std::wstring::npos);
  EXPECT_EQ(StateOfUsers(), before);
}

TEST_F(SoftDelete, OfANameMadeToReachFurtherIsRefusedAndChangesNothing) {
  const std::string before = StateOfUsers();
  const wchar_t* const names[] = {
      L"x', VFLG = '' WHERE USERID = 1 OR NAME = '",
      L"x(1)', QRUSER.VFLG = 'D' Where QRUSER.USERID = 1 --",
      L"x(1)', QRUSER.VFLG = 'D' Where QRUSER.USERID = 1; --",
      L"x(1)', QRUSER.VFLG = 'D' Where QRUSER.USERID = 1 /*",
      L"x'; DELETE FROM QRUSGP; --",
      L"x'; UPDATE QRUSER SET VFLG = 'D'; --",
      L"x', QRUSER.PASSWORD = 'y",
      L"x', QRUSER.NAME = 'y",
      L"x' || (SELECT PASSWORD FROM QRUSER WHERE USERID = 1) || '",
      L"x''y",
      L"'",
      L"''",
      L"x\\'y",
      L"x', QRUSER.VFLG = 'D' Where QRUSER.USERID = 1 OR 'a' = 'a",
      L"x', QRUSER.VFLG = 'D' Where QRUSER.USERID = 1 AND QRUSER.NAME = 'a",
  };
  for (const wchar_t* const name : names) {
    EXPECT_EQ(NumberOf([&] { connection_->Execute(data::SqlMarkUserDeleted(name, 9)); }),
              server::kDatabaseError)
        << data::ToUtf8(name);
    EXPECT_EQ(NumberOf([&] { connection_->Execute(data::SqlMarkGroupDeleted(name, 9)); }),
              server::kDatabaseError)
        << data::ToUtf8(name);
  }
  EXPECT_EQ(StateOfUsers(), before);
}

}  // namespace
}  // namespace server_test
