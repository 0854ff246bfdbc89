#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace server_test {
namespace {

using data::FieldValue;
using test_support::Sample;

const FieldValue kNull{};

FieldValue Text(std::wstring text) {
  return text;
}

class ResultSet : public OnSample {
 protected:
  std::unique_ptr<data::ResultSet> Open(std::wstring_view statement) {
    return connection_->OpenResultSet(statement);
  }
  std::vector<std::string> RawUser(int id) {
    return sample_.Raw().Rows(
        "select userid, name, fullname, password, vflg from qruser where "
        "userid = " +
        std::to_string(id))[0];
  }
};

TEST_F(ResultSet, ANewUserGoesThroughTheViewToTheTable) {
  const std::int32_t id = server_->NewIdentifier(L"QRUSRN");
  const auto set = Open(data::SqlSelectUser(id));
  ASSERT_TRUE(set->EndOfRows());
  set->AddNew();
  set->SetColumn(L"USERID", id);
  set->SetColumn(L"NAME", Text(L"Lemaître"));
  set->SetColumn(L"FULLNAME", Text(L"Ève Lemaître"));
  set->Update();
  set->Close();
  EXPECT_EQ(RawUser(id),
            (std::vector<std::string>{std::to_string(id), "Lemaître", "Ève Lemaître", "NULL", ""}));
}

TEST_F(ResultSet, AUserIsChangedByHisIdentifierAlone) {
  const std::string others = "select name from qruser where userid <> 9 order by userid";
  const auto before = sample_.Raw().Rows(others);
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->MoveFirst();
  for (; !set->EndOfRows(); set->MoveNext()) {
    ASSERT_EQ(set->Column(0).Integer(), 9);
    set->Edit();
    set->SetColumn(L"NAME", Text(L"Martin-Dupont"));
    set->SetColumn(L"FULLNAME", kNull);
    set->SetColumn(L"PASSWORD", kNull);
    set->Update();
  }
  EXPECT_EQ(RawUser(9), (std::vector<std::string>{"9", "Martin-Dupont", "NULL", "NULL", ""}));
  EXPECT_EQ(sample_.Raw().Rows(others), before);
}

TEST_F(ResultSet, AGroupIsAddedAndChangedThroughItsView) {
  auto set = Open(data::SqlSelectGroup(77));
  set->AddNew();
  set->SetColumn(L"GROUPID", 77);
  set->SetColumn(L"NAME", Text(L"Expéditions"));
  set->Update();
  set = Open(data::SqlSelectGroup(77));
  set->Edit();
  set->SetColumn(L"DESCR", Text(L"Quai nº 3"));
  set->Update();
  EXPECT_EQ(sample_.Raw().Rows("select name, descr, vflg from qrgroup where groupid = 77"),
            (std::vector<std::vector<std::string>>{{"Expéditions", "Quai nº 3", ""}}));
}

TEST_F(ResultSet, LinksAreAddedByPositionWhateverRowsTheStatementFinds) {
  // The statement names user and group the other way round, as the chooser of groups does: its set
  // is only the place to add a row.
  auto set = Open(data::SqlSelectMembership(9, 6));
  set->AddNew();
  set->SetColumn(0, 9);
  set->SetColumn(1, 6);
  set->Update();
  set = Open(data::SqlSelectUserPermission(Sample::kMartin, Sample::kReleasing));
  set->AddNew();
  set->SetColumn(0, 9);
  set->SetColumn(1, 21);
  set->Update();
  set = Open(data::SqlSelectGroupPermission(Sample::kQualite, Sample::kExport));
  set->AddNew();
  set->SetColumn(0, 6);
  set->SetColumn(1, 29);
  set->Update();
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgp where userid=9 and groupid=6"), 1);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid=9 and permid=21"), 1);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrgprm where groupid=6 and permid=29"), 1);
}

TEST_F(ResultSet, SeveralRowsAreAddedOnOneSetAndSeenAfterMoveFirst) {
  connection_->Execute(data::SqlDeleteUserPermissions(Sample::kMartin));
  const auto set = Open(data::SqlSelectUserPermRows(Sample::kMartin));
  for (const int permission : {4, 5, 6}) {
    set->AddNew();
    set->SetColumn(0, 9);
    set->SetColumn(1, permission);
    set->Update();
  }
  EXPECT_TRUE(set->EndOfRows());
  set->MoveFirst();
  int rows = 0;
  for (; !set->EndOfRows(); set->MoveNext()) ++rows;
  EXPECT_EQ(rows, 3);
}

TEST_F(ResultSet, ALinkThatExistsIsRefusedByTheDatabase) {
  const auto set = Open(data::SqlSelectMembership(Sample::kProduction, Sample::kMartin));
  set->AddNew();
  set->SetColumn(L"USERID", 9);
  set->SetColumn(L"GROUPID", 7);
  const data::RunTimeError failure = FailureOf([&] { set->Update(); });
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_NE(failure.Text().find(WordForDouble()), std::wstring::npos);
}

TEST_F(ResultSet, ALinkToNobodyIsRefusedByTheDatabase) {
  const auto set = Open(data::SqlSelectMembership(Sample::kProduction, 4711));
  set->AddNew();
  set->SetColumn(L"USERID", 4711);
  set->SetColumn(L"GROUPID", 7);
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kDatabaseError);
}

TEST_F(ResultSet, NamesAreStoredAsTyped) {
  const std::wstring names[] = {
      L"O'Brien", L"'; DROP TABLE QRUSER; --",  L"100 % \\ \" ` (x) [y] {z} ?1 :a", L"  autour  ",
      L"مرحبا",   {L'\xD83D', L'\xDE00', L'x'}, std::wstring(4000, L'ÿ'),           L"",
  };
  for (const std::wstring& name : names) {
    auto set = Open(data::SqlSelectUser(Sample::kMartin));
    set->Edit();
    set->SetColumn(L"NAME", name);
    set->Update();
    EXPECT_EQ(RawUser(9)[1], data::ToUtf8(name));
    set = Open(data::SqlSelectUser(Sample::kMartin));
    EXPECT_EQ(set->Column(1).Text(), name);
  }
}

TEST_F(ResultSet, ARowThatWasDeletedMeanwhileIsNotWritten) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->Edit();
  sample_.Raw().Execute("update qruser set vflg = 'D' where userid = 9");
  set->SetColumn(L"NAME", Text(L"Trop tard"));
  const data::RunTimeError failure = FailureOf([&] { set->Update(); });
  EXPECT_EQ(failure.Number(), server::kRowGone);
  EXPECT_EQ(failure.Text(), L"La ligne a été modifiée ou supprimée par quelqu'un d'autre.");
  EXPECT_EQ(RawUser(9)[1], "Martin");
}

TEST_F(ResultSet, ARowThatIsGoneAltogetherIsNotWritten) {
  const auto set = Open(data::SqlSelectMembership(Sample::kProduction, Sample::kMartin));
  set->Edit();
  sample_.Raw().Execute("delete from qrusgp where userid = 9 and groupid = 7");
  set->SetColumn(L"GROUPID", 6);
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kRowGone);
}

TEST_F(ResultSet, ARowShowsWhatWasWrittenToIt) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->Edit();
  set->SetColumn(L"FULLNAME", kNull);
  set->SetColumn(L"NAME", Text(L"Neuf"));
  set->Update();
  EXPECT_EQ(set->Column(0).Integer(), 9);
  EXPECT_EQ(set->Column(1).Text(), L"Neuf");
  EXPECT_TRUE(set->Column(2).IsNull());
  set->MoveNext();
  EXPECT_TRUE(set->EndOfRows());
}

TEST_F(ResultSet, RowsAfterAWrittenOneAreStillWalked) {
  const auto set = Open(data::SqlSelectUserPermRows(Sample::kMartin));
  // The statement asks for no order: either of the two may come first.
  const std::int32_t other = set->Column(1).Integer() == 14 ? 20 : 14;
  set->Edit();
  set->SetColumn(1, 2);
  set->Update();
  set->MoveNext();
  ASSERT_FALSE(set->EndOfRows());
  EXPECT_EQ(set->Column(1).Integer(), other);
}

TEST_F(ResultSet, MoveFirstWalksTheRowsAsTheyAreNow) {
  const auto set = Open(data::SqlSelectUserPermIds(Sample::kMartin));
  while (!set->EndOfRows()) set->MoveNext();
  sample_.Raw().Execute("delete from qruprm where userid = 9 and permid = 14");
  set->MoveFirst();
  EXPECT_EQ(set->Column(0).Integer(), 20);
  set->MoveNext();
  EXPECT_TRUE(set->EndOfRows());
}

TEST_F(ResultSet, ASetWalkedToItsEndHoldsNoLock) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->MoveNext();
  EXPECT_TRUE(set->EndOfRows());
  sample_.Raw().Execute("pragma busy_timeout = 0; update qruser set fullname = 'x' where userid=9");
  set->MoveFirst();
  EXPECT_EQ(set->Column(2).Text(), L"x");
}

TEST_F(ResultSet, ASetThatIsBeingWrittenThroughHoldsNoLock) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->Edit();
  sample_.Raw().Execute("pragma busy_timeout = 0; update qruser set fullname = 'x' where userid=9");
  set->SetColumn(L"NAME", Text(L"y"));
  set->Update();
  EXPECT_EQ(RawUser(9)[2], "x");
}

TEST_F(ResultSet, SeveralSetsOfOneShapeAreOpenAtOnce) {
  const auto first = Open(data::SqlSelectUserGroups(Sample::kMartin));
  const auto second = Open(data::SqlSelectUserGroups(Sample::kMoreau));
  const auto third = Open(data::SqlSelectUserGroups(Sample::kMartin));
  EXPECT_EQ(first->Column(1).Text(), L"Everyone");
  EXPECT_EQ(second->Column(1).Text(), L"Administrators");
  first->MoveNext();
  EXPECT_EQ(first->Column(1).Text(), L"Production");
  EXPECT_EQ(second->Column(1).Text(), L"Administrators");
  EXPECT_EQ(third->Column(1).Text(), L"Everyone");
}

TEST_F(ResultSet, CallsOutOfOrderAreErrors) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kNothingToWrite);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"NAME", kNull); }), server::kNothingToWrite);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(0, kNull); }), server::kNothingToWrite);
  set->Edit();
  set->MoveNext();
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kNothingToWrite);
  EXPECT_EQ(NumberOf([&] { set->Edit(); }), server::kNoCurrentRow);
  EXPECT_EQ(NumberOf([&] { set->Column(0); }), server::kNoCurrentRow);
  EXPECT_EQ(NumberOf([&] { set->MoveNext(); }), server::kNoCurrentRow);
}

TEST_F(ResultSet, UnknownColumnsAreErrors) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  EXPECT_EQ(NumberOf([&] { set->Column(4); }), server::kColumnUnknown);
  EXPECT_EQ(NumberOf([&] { set->Column(-1); }), server::kColumnUnknown);
  set->Edit();
  EXPECT_EQ(NumberOf([&] { set->SetColumn(4, kNull); }), server::kColumnUnknown);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(-1, kNull); }), server::kColumnUnknown);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"VFLG", kNull); }), server::kColumnUnknown);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"NAME = 1 --", kNull); }), server::kColumnUnknown);
  set->SetColumn(L"name", Text(L"x"));
}

TEST_F(ResultSet, AClosedSetIsAnErrorAndClosingTwiceIsNone) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->Close();
  set->Close();
  EXPECT_EQ(NumberOf([&] { set->EndOfRows(); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->Column(0); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->MoveNext(); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->MoveFirst(); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->AddNew(); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->Edit(); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(0, kNull); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"NAME", kNull); }), server::kResultSetClosed);
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kResultSetClosed);
}

TEST_F(ResultSet, WhatMayNotBeWrittenIsRefused) {
  const std::wstring statements[] = {data::SqlSelectAllPermissions(),
                                     data::SqlSelectSessionUser(1),
                                     data::SqlSelectAdminUser(),
                                     data::SqlSelectGroupUsers(Sample::kProduction),
                                     data::SqlSelectUserPermissionNames(Sample::kMartin),
                                     data::SqlSelectUserGroupIds(Sample::kMartin),
                                     L"SELECT NAME FROM QRUSERV",
                                     L"SELECT * FROM QRUSGPV",
                                     L"SELECT USERID, VFLG, NAME FROM QRUSER"};
  for (const std::wstring& statement : statements) {
    const auto set = Open(statement);
    EXPECT_EQ(NumberOf([&] { set->AddNew(); }), server::kSetNotWritable) << data::ToUtf8(statement);
    EXPECT_EQ(NumberOf([&] { set->Edit(); }), server::kSetNotWritable) << data::ToUtf8(statement);
  }
}

TEST_F(ResultSet, ANewRowNeedsItsIdentifiers) {
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->AddNew();
  set->SetColumn(L"NAME", Text(L"Sans numéro"));
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kKeyMissing);
  set->AddNew();
  set->SetColumn(L"USERID", kNull);
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kKeyMissing);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruser"), 40);
}

TEST_F(ResultSet, AValueIsConvertedToItsColumnsKind) {
  const auto set = Open(data::SqlSelectUser(900));
  set->AddNew();
  set->SetColumn(L"USERID", Text(L" 900 "));
  set->SetColumn(L"NAME", 12);
  set->Update();
  EXPECT_EQ(sample_.Raw().Text("select name from qruser where userid = 900"), "12");
  set->AddNew();
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"USERID", Text(L"neuf")); }), data::kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { set->SetColumn(L"USERID", Text(L"9999999999")); }), data::kOverflow);
}

TEST_F(ResultSet, AnEditThatSetsNothingWritesNothing) {
  const auto before = RawUser(9);
  const auto set = Open(data::SqlSelectUser(Sample::kMartin));
  set->Edit();
  set->Update();
  EXPECT_EQ(RawUser(9), before);
}

TEST_F(ResultSet, TextHoldsUntilTheNextMove) {
  const auto set = Open(data::SqlSelectAllUsers());
  const data::ColumnValue name = set->Column(1);
  const data::ColumnValue fullName = set->Column(2);
  set->Column(1);
  set->Column(2);
  EXPECT_EQ(name.Text(), L"Admin");
  EXPECT_EQ(fullName.Text(), L"Administrateur principal");
}

TEST_F(ResultSet, OutlivesItsConnectionAndItsServer) {
  auto set = Open(data::SqlSelectAllUsers());
  connection_.reset();
  server_.reset();
  EXPECT_EQ(set->Column(1).Text(), L"Admin");
  set->MoveNext();
  EXPECT_FALSE(set->EndOfRows());
  set.reset();
}

TEST_F(ResultSet, TextsOfEveryLengthAndPlaneComeBackWhole) {
  test_support::RawDatabase raw = sample_.Raw();
  const std::string texts[] = {
      "é", "aé", "日本", "é日", "😀", "a😀é", "’", std::string(5000, 'x'), "x’y’z’", "éa", "ÿ€"};
  for (const std::string& text : texts) {
    raw.Execute("update qruser set fullname = '" + text + "' where userid = 9");
    EXPECT_EQ(Open(data::SqlSelectUser(Sample::kMartin))->Column(2).Text(), data::FromUtf8(text))
        << text;
  }
}

}  // namespace
}  // namespace server_test
