#include <random>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace {

// Statements of the catalogue, cut up, glued together and strewn with what hostile texts are made
// of. Whatever comes of it, the guard either refuses it as a database error or lets through
// something harmless: nobody's password or full name changes, no account appears or goes, nothing
// but links and deletion marks is written.
class GuardFuzz : public server_test::OnSample {
 protected:
  std::wstring Statement() {
    const std::wstring whole[] = {data::SqlSelectAllUsers(),
                                  data::SqlSelectUser(9),
                                  data::SqlSelectGroupUsers(6),
                                  data::SqlMarkUserDeleted(L"Martin", 9),
                                  data::SqlMarkGroupDeleted(L"x", 6),
                                  data::SqlDeleteMembership(6, 9),
                                  data::SqlDeleteUserPermissions(9),
                                  data::SqlSelectUserPermRows(9),
                                  data::SqlSelectInheritedPermissions(9),
                                  data::SqlSelectGroupByName(L"Everyone")};
    std::wstring text = whole[Draw(std::size(whole))];
    for (std::size_t changes = Draw(4); changes > 0; --changes) Change(text);
    return text;
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
  const std::string guarded =
      "select group_concat(userid || coalesce(fullname, '-') || coalesce(password, '-')) from "
      "qruser union all select group_concat(groupid || coalesce(descr, '-')) from qrgroup union "
      "all select group_concat(permid || name || rights) from qrperm union all "
      "select group_concat(name || lastvalue) from qrcounter union all "
      "select group_concat(code || given || mapped) from qrdisplay union all "
      "select group_concat(userid || sesid || tokenhash) from qrausr union all "
      "select group_concat(name || coalesce(sql, '')) from sqlite_master";
  const auto before = sample_.Raw().Rows(guarded);
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
  EXPECT_EQ(sample_.Raw().Rows(guarded), before);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruser where vflg not in ('', 'D')"), 0);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruser where vflg = 'D' and"
                                 " name not like '%(' || userid || ')'"),
            0);
}

}  // namespace
