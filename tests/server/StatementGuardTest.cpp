#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/sql/StatementCache.h"
#include "server/core/sql/StatementGuard.h"

namespace server_test {
namespace {

using test_support::Sample;

// What somebody might try through the program's names, or a broken client might send.
const wchar_t* const kRefused[] = {
    // No statement, or half of one.
    L"",
    L" ",
    L"SELECT",
    L"SELECT QRUSERV.NAME",
    L"SELECT QRUSERV.NAME FROM",
    L"SELECT QRUSERV.NAME FROM QRUSERV WHERE",
    L"SELECT QRUSERV.NAME FROM QRUSERV WHERE QRUSERV.USERID =",
    L"SELECT QRUSERV.NAME FROM QRUSERV ORDER BY",
    L"SELECT QRUSERV.NAME FROM QRUSERV WHERE (QRUSERV.USERID = 1",
    L"SELECT QRUSERV.NAME FROM QRUSERV WHERE QRUSERV.USERID = 1)",
    L"DELETE FROM QRUSGP",
    L"DELETE QRUSGP WHERE USERID = 1",
    // More than one statement.
    L"SELECT QRUSERV.NAME FROM QRUSERV;",
    L"SELECT QRUSERV.NAME FROM QRUSERV; DELETE FROM QRUSGP WHERE USERID = 1",
    L"DELETE FROM QRUSGP WHERE USERID = 1; SELECT * FROM QRUSGP",
    L"SELECT * FROM QRUSGP SELECT * FROM QRUSGP",
    // Comments.
    L"SELECT QRUSERV.NAME FROM QRUSERV -- all",
    L"SELECT QRUSERV.NAME FROM QRUSERV --",
    L"SELECT /* no */ QRUSERV.NAME FROM QRUSERV",
    L"SELECT QRUSERV.NAME FROM QRUSERV # all",
    L"SELECT QRUSERV.NAME FROM QRUSERV WHERE QRUSERV.USERID = --1",
    // Other tables, and columns that are the server's own.
    L"SELECT name FROM sqlite_master",
    L"SELECT * FROM sqlite_schema",
    L"SELECT NAME FROM main.QRUSER",
    L"SELECT * FROM QRCOUNTER",
    L"SELECT * FROM QRDISPLAY",
    L"SELECT * FROM QRAUSRX",
    L"SELECT * FROM QRAUSR",
    L"SELECT QRAUSR.TOKENHASH FROM QRAUSR",
    L"SELECT rowid FROM QRUSER",
    L"SELECT QRUSERV.VFLG FROM QRUSERV",
    L"SELECT QRGROUPV.NAME FROM QRUSERV",
    L"SELECT QRUSERV.NAME FROM QRUSERV ORDER BY QRUSER.NAME",
    L"SELECT USERID FROM QRUSERV, QRUSGP",
    L"SELECT * FROM QRUSGP, QRUPRM",
    L"SELECT QRUSGP.USERID FROM QRUSGP, QRUSGP",
    L"SELECT QRUSGP.USERID FROM QRUSGP, QRUPRM, QRGPRM, QRPERM",
    // Other statements.
    L"PRAGMA journal_mode",
    L"ATTACH 'x' AS y",
    L"DETACH y",
    L"VACUUM",
    L"BEGIN",
    L"COMMIT",
    L"EXPLAIN SELECT * FROM QRUSGP",
    L"WITH x AS (SELECT 1) SELECT * FROM x",
    L"VALUES (1)",
    L"CREATE TABLE x (y)",
    L"DROP TABLE QRUSER",
    L"ALTER TABLE QRUSER ADD x",
    L"INSERT INTO QRUSGP VALUES (1, 1)",
    L"REPLACE INTO QRUSGP VALUES (1, 1)",
    L"ANALYZE",
    // Other clauses and expressions.
    L"SELECT NAME FROM QRUSER UNION SELECT PASSWORD FROM QRUSER",
    L"SELECT NAME FROM QRUSER LIMIT 1",
    L"SELECT NAME FROM QRUSER GROUP BY NAME",
    L"SELECT NAME FROM QRUSER ORDER BY NAME DESC",
    L"SELECT NAME FROM QRUSER ORDER BY 1",
    L"SELECT NAME AS X FROM QRUSER",
    L"SELECT NAME X FROM QRUSER",
    L"SELECT U.NAME FROM QRUSER U",
    L"SELECT QRUSER.NAME FROM QRUSER JOIN QRUSGP",
    L"SELECT NAME FROM (SELECT NAME FROM QRUSER)",
    L"SELECT NAME FROM QRUSER WHERE USERID IN (SELECT USERID FROM QRUSGP)",
    L"SELECT NAME FROM QRUSER WHERE USERID = (SELECT 1)",
    L"SELECT NAME FROM QRUSER WHERE EXISTS (SELECT 1)",
    L"SELECT count(*) FROM QRUSER",
    L"SELECT lower(NAME) FROM QRUSER",
    L"SELECT load_extension('x') FROM QRUSER",
    L"SELECT NAME FROM QRUSER WHERE NAME = lower('X')",
    L"SELECT NAME FROM QRUSER WHERE NAME LIKE 'A%'",
    L"SELECT NAME FROM QRUSER WHERE USERID > 1",
    L"SELECT NAME FROM QRUSER WHERE USERID <> 1",
    L"SELECT NAME FROM QRUSER WHERE USERID == 1",
    L"SELECT NAME FROM QRUSER WHERE USERID = 1 + 1",
    L"SELECT NAME FROM QRUSER WHERE USERID = 2-1",
    L"SELECT NAME FROM QRUSER WHERE USERID = - 1",
    L"SELECT NAME FROM QRUSER WHERE USERID = +1",
    L"SELECT NAME FROM QRUSER WHERE NOT USERID = 1",
    L"SELECT NAME FROM QRUSER WHERE 1 = 1",
    L"SELECT NAME FROM QRUSER WHERE 1",
    L"SELECT NAME FROM QRUSER WHERE 'a' = 'a'",
    L"SELECT NAME FROM QRUSER WHERE USERID",
    L"SELECT NAME FROM QRUSER WHERE USERID = 'Admin'",
    L"SELECT NAME FROM QRUSER WHERE NAME = 1",
    L"SELECT NAME FROM QRUSER WHERE NAME = USERID",
    L"SELECT NAME FROM QRUSER WHERE USERID = ?",
    L"SELECT NAME FROM QRUSER WHERE USERID = ?1",
    L"SELECT NAME FROM QRUSER WHERE USERID = :x",
    L"SELECT NAME FROM QRUSER WHERE USERID = $x",
    L"SELECT NAME FROM QRUSER WHERE USERID = #",
    L"SELECT NAME FROM QRUSER WHERE NAME = $",
    L"SELECT NAME FROM QRUSER WHERE ((((((((((USERID = 1))))))))))",
    L"SELECT DISTINCT DISTINCT NAME FROM QRUSER",
    L"SELECT NAME, FROM QRUSER",
    L"SELECT *, NAME FROM QRUSER",
    // Numbers that are none.
    L"SELECT NAME FROM QRUSER WHERE USERID = 1.5",
    L"SELECT NAME FROM QRUSER WHERE USERID = 1e5",
    L"SELECT NAME FROM QRUSER WHERE USERID = 0x10",
    L"SELECT NAME FROM QRUSER WHERE USERID = 99999999999999999999",
    L"SELECT NAME FROM QRUSER WHERE USERID = 1OR 1",
    // Quotes.
    L"SELECT NAME FROM QRUSER WHERE NAME = 'x",
    L"SELECT NAME FROM QRUSER WHERE NAME = 'O''Brien'",
    L"SELECT NAME FROM QRUSER WHERE NAME = 'O'Brien'",
    L"SELECT NAME FROM QRUSER WHERE NAME = 'x' OR 'a' = 'a'",
    L"SELECT NAME FROM QRUSER WHERE NAME = x'41'",
    L"SELECT NAME FROM QRUSER WHERE NAME = \"Admin\"",
    L"SELECT NAME FROM QRUSER WHERE NAME = `Admin`",
    L"SELECT NAME FROM QRUSER WHERE NAME = [Admin]",
    L"SELECT \"NAME\" FROM QRUSER",
    L"SELECT NAME FROM QRUSER WHERE NAME = ‘Admin’",
    L"SELECT NAME FROM QRUSÉR",
    L"SELECT\u00A0NAME FROM QRUSER",
    L"SELECT\u200BNAME FROM QRUSER",
    // Deletions of more than links by their identifiers.
    L"DELETE FROM QRUSER WHERE USERID = 1",
    L"DELETE FROM QRUSERV WHERE USERID = 1",
    L"DELETE FROM QRGROUP WHERE GROUPID = 1",
    L"DELETE FROM QRPERM WHERE PERMID = 1",
    L"DELETE FROM QRAUSR WHERE SESID = 1",
    L"DELETE FROM QRUSGPV WHERE USERID = 1",
    L"DELETE FROM QRUSGP WHERE USERID = 1 OR USERID = 2",
    L"DELETE FROM QRUSGP WHERE USERID = USERID",
    L"DELETE FROM QRUSGP WHERE USERID = 1 AND",
    L"DELETE FROM QRUSGP WHERE (USERID = 1)",
    L"DELETE FROM QRUSGP WHERE USERID = 1 RETURNING USERID",
    L"DELETE FROM QRUSGP, QRUPRM WHERE USERID = 1",
    // Changes other than marking as deleted.
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)'",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'D'",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = '' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'd' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(2)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(01)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1) ', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.NAME = 'Admin'",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = USERID",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1 OR "
    L"QRUSER.USERID = 2",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1 AND "
    L"QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = 'x(1)', QRUSER.PASSWORD = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.FULLNAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRGROUP.NAME = 'x(1)', QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSER SET QRUSER.NAME = PASSWORD, QRUSER.VFLG = 'D' WHERE QRUSER.USERID = 1",
    L"UPDATE QRUSERV SET NAME = 'x(1)', VFLG = 'D' WHERE USERID = 1",
    L"UPDATE QRPERM SET NAME = 'x(1)', RIGHTS = 4 WHERE PERMID = 1",
    L"UPDATE OR REPLACE QRUSER SET NAME = 'x(1)', VFLG = 'D' WHERE USERID = 1",
};

class StatementGuard : public OnSample {
 protected:
  // The accounts and the links, which no refused statement changes.
  std::vector<std::vector<std::string>> Links() {
    std::vector<std::vector<std::string>> rows;
    for (const char* const question : {"select userid, name, vflg from qruser order by 1",
                                       "select userid, groupid from qrusgp order by 1, 2",
                                       "select userid, permid from qruprm order by 1, 2"}) {
      for (auto& row : sample_.Raw().Rows(question)) rows.push_back(std::move(row));
    }
    return rows;
  }
};

TEST_F(StatementGuard, RefusesWhateverIsNotInItsGrammarAndChangesNothing) {
  const auto before = Links();
  for (const wchar_t* const statement : kRefused) {
    const auto opening = [&] { connection_->OpenResultSet(statement); };
    const auto executing = [&] { connection_->Execute(statement); };
    EXPECT_EQ(NumberOf(opening), server::kDatabaseError) << data::ToUtf8(statement);
    EXPECT_EQ(NumberOf(executing), server::kDatabaseError) << data::ToUtf8(statement);
  }
  EXPECT_EQ(Links(), before);
}

TEST_F(StatementGuard, RefusesANulCharacterInsideAndOutsideALiteral) {
  const std::wstring inside(L"SELECT USERID FROM QRUSER WHERE NAME = 'Ad\0min'", 48);
  const std::wstring outside(L"SELECT USERID FROM QRUSER\0 WHERE NAME = 'Admin'", 47);
  for (const std::wstring& statement : {inside, outside}) {
    EXPECT_EQ(NumberOf([&] { connection_->OpenResultSet(statement); }), server::kDatabaseError);
  }
}

TEST_F(StatementGuard, RefusesAStatementLongerThanAnyThatIsSent) {
  std::wstring statement = L"SELECT NAME";
  for (int i = 0; i < 1000; ++i) statement += L", NAME";
  statement += L" FROM QRUSER";
  EXPECT_EQ(NumberOf([&] { connection_->OpenResultSet(statement); }), server::kDatabaseError);
}

TEST_F(StatementGuard, SaysWhereAStatementGoesWrong) {
  const auto message = [&](std::wstring_view statement) {
    return FailureOf([&] { connection_->OpenResultSet(statement); }).Text();
  };
  EXPECT_EQ(message(L"SELECT NAME FROM QRUSER WHERE NAME = 'Admin"),
            L"unrecognized token: \"'Admin\"");
  EXPECT_EQ(message(L"SELECT NAME FROM QRUSER WHERE NAME = 'O'Brien'"),
            L"near \"Brien\": syntax error");
  EXPECT_EQ(message(L"SELECT NAME FROM QRUSER; DROP"), L"near \";\": syntax error");
  EXPECT_EQ(message(L"SELECT NAME FROM QRUSER WHERE"), L"incomplete input");
  EXPECT_EQ(message(L"SELECT NAME FROM sqlite_master"), L"no such table: sqlite_master");
  EXPECT_EQ(message(L"SELECT QRUSER.NICK FROM QRUSER"), L"no such column: QRUSER.NICK");
  EXPECT_EQ(message(L"SELECT USERID FROM QRUSGP, QRUPRM"), L"ambiguous column name: USERID");
}

TEST_F(StatementGuard, DoesNotOpenADeletionNorExecuteASelection) {
  EXPECT_EQ(NumberOf([&] {
              connection_->OpenResultSet(data::SqlDeleteUserMemberships(Sample::kMartin));
            }),
            server::kDatabaseError);
  EXPECT_EQ(NumberOf([&] { connection_->Execute(data::SqlSelectAllUsers()); }),
            server::kDatabaseError);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgp where userid = 9"), 3);
}

TEST_F(StatementGuard, TakesNamesAndWordsInAnyCase) {
  EXPECT_EQ(Read(L"select qruserv.Name from QrUserV where USERID=9", 1).size(), 1U);
}

TEST(StatementShape, StatementsThatDifferInLiteralsShareAShape) {
  server::StatementShape first;
  server::StatementShape second;
  first.Read(L"SELECT NAME FROM QRUSER WHERE USERID = 12");
  second.Read(L"SELECT NAME FROM QRUSER WHERE USERID = -2147483648");
  EXPECT_EQ(first.Text(), second.Text());
  EXPECT_EQ(first.Literals()[0].number, 12);
  EXPECT_EQ(second.Literals()[0].number, -2147483648LL);
}

TEST(StatementShape, TextsAndNumbersAreTakenOutInOrder) {
  server::StatementShape shape;
  shape.Read(L"A = 'x; -- y' 7 'z'");
  ASSERT_EQ(shape.Literals().size(), 3U);
  EXPECT_EQ(shape.Literals()[0].text, L"x; -- y");
  EXPECT_EQ(shape.Literals()[1].number, 7);
  EXPECT_EQ(shape.Literals()[2].text, L"z");
  EXPECT_EQ(shape.Text(), "A = $ # $");
}

TEST(StatementPlan, TheTableIsLeftOutInFrontOfAColumnThatSetAssignsAndNowhereElse) {
  server::StatementShape shape;
  const std::wstring statement = data::SqlMarkUserDeleted(L"Martin", 17);
  shape.Read(statement);
  EXPECT_EQ(server::UnderstandStatement(shape).sql,
            "UPDATE QRUSER SET NAME = ?, VFLG = ? Where QRUSER.USERID = ?");
  shape.Read(L"SELECT  USERID ,GROUPID FROM QRUSGP WHERE USERID = 5");
  EXPECT_EQ(server::UnderstandStatement(shape).sql,
            "SELECT  USERID ,GROUPID FROM QRUSGP WHERE USERID = ?");
}

TEST(StatementCache, KeepsNoMoreShapesThanItsMost) {
  server::StatementCache cache;
  server::StatementShape shape;
  for (std::size_t i = 0; i < 3 * server::StatementCache::kMostShapes; ++i) {
    const std::wstring statement = L"SELECT" + std::wstring(i + 1, L' ') + L"NAME FROM QRUSER";
    shape.Read(statement);
    cache.Find(shape);
    EXPECT_LE(cache.Size(), server::StatementCache::kMostShapes);
  }
}

TEST(StatementCache, RemembersNoRefusedShape) {
  server::StatementCache cache;
  server::StatementShape shape;
  shape.Read(L"SELECT X FROM QRUSER");
  EXPECT_THROW(cache.Find(shape), data::RunTimeError);
  EXPECT_EQ(cache.Size(), 0U);
}

}  // namespace
}  // namespace server_test
