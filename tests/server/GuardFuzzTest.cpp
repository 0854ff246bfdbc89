#include <random>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace server_test {
namespace {

using test_support::Sample;

// Statements of the catalogue, cut up, glued together and strewn with what hostile texts are made
// of. Whatever comes of it, the guard either refuses it as a database error or lets through
// something harmless: nobody's password or full name changes, no account appears or goes, nothing
// but links and deletion marks is written.
class GuardFuzz : public OnSample {
 protected:
  std::wstring Statement() {
    const std::wstring whole[] = {data::SqlSelectAllUsers(),
                                  data::SqlSelectUser(Sample::kMartin),
                                  data::SqlSelectGroupUsers(Sample::kQualite),
                                  data::SqlMarkUserDeleted(L"Martin", 9),
                                  data::SqlMarkGroupDeleted(L"x", 6),
                                  data::SqlDeleteMembership(Sample::kQualite, Sample::kMartin),
                                  data::SqlDeleteUserPermissions(Sample::kMartin),
                                  data::SqlSelectUserPermRows(Sample::kMartin),
                                  data::SqlSelectInheritedPermissions(Sample::kMartin),
                                  data::SqlSelectGroupByName(L"Everyone")};
    std::wstring text = whole[Draw(std::size(whole))];
    for (std::size_t changes = Draw(4); changes > 0; --changes) Change(text);
    return text;
  }

  // Everything that no statement of a client may change.
  std::vector<std::vector<std::string>> AllRows() {
    const char* const questions[] = {
        "select userid, fullname, password from qruser order by 1",
        "select groupid, descr from qrgroup order by 1",
        "select permid, name, rights from qrperm order by 1",
        "select name, lastvalue from qrcounter order by 1",
        "select code, given, mapped from qrdisplay order by 1, 2",
        "select userid, sesid, tokenhash from qrausr order by 2",
    };
    std::vector<std::vector<std::string>> rows;
    test_support::RawDatabase raw = sample_.Raw();
    for (const char* const question : questions) {
      for (auto& row : raw.Rows(question)) rows.push_back(std::move(row));
    }
    if (test_support::EngineUnderTest() == test_support::TestEngine::kSqlite) {
      for (auto& row : raw.Rows("select name, sql from sqlite_master")) rows.push_back(row);
    }
    return rows;
  }

  std::size_t Draw(std::size_t below) { return generator_() % below; }

  std::mt19937 generator_{11};

 private:
  void Change(std::wstring& text) {
    static const std::wstring pieces[] = {
        L"'",        L"''",      L";",      L"--",      L"/*",      L"*/",
        L" OR 1=1",  L" AND ",   L"(",      L")",       L",",       L".",
        L"*",        L"=",       L"QRUSER", L"QRPERM",  L"QRUSERV", L"sqlite_master",
        L"PASSWORD", L"NAME",    L"VFLG",   L"UPDATE",  L"DELETE",  L"SELECT",
        L" FROM ",   L" WHERE ", L" SET ",  L" UNION ", L"9",       L"-1",
        L"'D'",      L"(9)",     L" ",      L"\t",      {L'\0'},    L"é",
        L"#",        L"$",       L"?",      L"!",       L"\"",      L" ORDER BY "};
    const std::size_t place = Draw(text.size() + 1);
    switch (Draw(4)) {
      case 0:
        text.erase(place, Draw(12));
        break;
      case 1:
        text.replace(place, Draw(8), pieces[Draw(std::size(pieces))]);
        break;
      case 2:
        text.insert(place, text.substr(Draw(text.size() + 1), Draw(30)));
        break;
      default:
        text.insert(place, pieces[Draw(std::size(pieces))]);
    }
  }
};

TEST_F(GuardFuzz, NothingHarmfulGetsThrough) {
  const auto before = AllRows();
  int accepted = 0;
  connection_->BeginRead();
  for (int round = 0; round < 20000; ++round) {
    const std::wstring statement = Statement();
    try {
      if (round % 2 == 0) {
        connection_->Execute(statement);
      } else {
        connection_->OpenResultSet(statement);
      }
      ++accepted;
    } catch (const data::RunTimeError& error) {
      EXPECT_EQ(error.Number(), server::kDatabaseError) << data::ToUtf8(statement);
    }
  }
  connection_->EndRead();
  EXPECT_GT(accepted, 1000);
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruser where vflg not in ('', 'D')"), 0);
  for (const auto& row : sample_.Raw().Rows("select userid, name from qruser where vflg = 'D'")) {
    EXPECT_TRUE(row[1].ends_with("(" + row[0] + ")")) << row[1];
  }
}

}  // namespace
}  // namespace server_test
