// The order in which the server gives rows: the users' order of names, whatever the engine's.

#include <algorithm>

#include "ServerTest.h"
#include "data/Collation.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace server_test {
namespace {

using test_support::Sample;

// The second column of each row, which is where the program's statements have the name.
std::vector<std::wstring> NamesIn(const Rows& rows) {
  std::vector<std::wstring> names;
  for (const std::vector<std::wstring>& row : rows) names.push_back(row[1]);
  return names;
}

void ExpectInOrder(const std::vector<std::wstring>& names) {
  for (std::size_t i = 1; i < names.size(); ++i) {
    ASSERT_LE(data::CollationKey(data::Trim(names[i - 1])),
              data::CollationKey(data::Trim(names[i])))
        << data::ToUtf8(names[i - 1]) << " stands before " << data::ToUtf8(names[i]);
  }
}

class NameOrderOf : public OnSample {
 protected:
  void AddUser(int id, const std::string& name) {
    sample_.Raw().Execute("insert into qruser (userid, name) values (" + std::to_string(id) +
                          ", '" + name + "')");
  }
  std::vector<std::wstring> AllUsers() { return NamesIn(Read(data::SqlSelectAllUsers(), 3)); }
};

TEST_F(NameOrderOf, UsersIsThatOfAFrenchList) {
  for (const auto& [id, name] : std::vector<std::pair<int, std::string>>{{101, "Oeuvrard"},
                                                                         {102, "œuvre"},
                                                                         {103, "Ofelia"},
                                                                         {104, "Odile"},
                                                                         {105, "Deschamps"},
                                                                         {106, "émile.sch"},
                                                                         {107, "Emile"},
                                                                         {108, "Fabrice.Arnaud"},
                                                                         {109, "Durand-Émile"}}) {
    AddUser(id, name);
  }
  EXPECT_EQ(AllUsers(),
            (std::vector<std::wstring>{L"Admin",     L"Bernard",        L"Blanc",
                                       L"Bonnet",    L"Boyer",          L"Chevalier",
                                       L"Clément",   L"D'Angelo",       L"de La Rochefoucauld",
                                       L"Deschamps", L"Dubois",         L"Dumont",
                                       L"Durand",    L"Durand-Émile",   L"Emile",
                                       L"émile.sch", L"Fabrice.Arnaud", L"Faure",
                                       L"Fournier",  L"François",       L"Garcia",
                                       L"Gauthier",  L"Girard",         L"Guérin",
                                       L"Henry",     L"L'Hermitte",     L"Lefèvre",
                                       L"Leroy",     L"López",          L"Martin",
                                       L"Martinez",  L"Mathieu",        L"Mercier",
                                       L"Moreau",    L"Morin",          L"Müller",
                                       L"Nguyễn",    L"Odile",          L"Oeuvrard",
                                       L"Œuvrard",   L"œuvre",          L"Ofelia",
                                       L"Perrin",    L"Petit",          L"Rousseau",
                                       L"Roux",      L"Stagiaire",      L"Żak"}));
}

TEST_F(NameOrderOf, EqualNamesIsThatOfTheirIdentifiers) {
  AddUser(203, "Zut");
  AddUser(201, "zut");
  AddUser(202, "Zut");
  Rows rows = Read(data::SqlSelectAllUsers(), 1);
  rows.erase(rows.begin(), rows.end() - 3);
  EXPECT_EQ(rows, (Rows{{L"202"}, {L"203"}, {L"201"}}));
}

TEST_F(NameOrderOf, NamesTakesNoNoticeOfBlanksAroundThem) {
  AddUser(201, "  Durant ");
  AddUser(202, "Dupuy");
  const std::vector<std::wstring> names = AllUsers();
  const auto found = std::find(names.begin(), names.end(), L"  Durant ");
  ASSERT_NE(found, names.end());
  EXPECT_EQ(*(found - 1), L"Durand");
  EXPECT_EQ(*(found + 1), L"Faure");
}

TEST_F(NameOrderOf, WholeListsIsKeptWithoutOrderBy) {
  ExpectInOrder(NamesIn(Read(data::SqlSelectAllGroups(), 3)));
  ExpectInOrder(NamesIn(Read(data::SqlSelectAllPermissions(), 2)));
  ExpectInOrder(NamesIn(Read(data::SqlSelectGroupUsers(Sample::kEveryone), 3)));
  ExpectInOrder(NamesIn(Read(data::SqlSelectGroupPermissionNames(Sample::kQualite), 2)));
  EXPECT_EQ(
      NamesIn(Read(data::SqlSelectAllGroups(), 3)),
      (std::vector<std::wstring>{L"Achats", L"Administrators", L"Comptabilité", L"Direction",
                                 L"Everyone", L"Informatique", L"Laboratoire", L"Méthodes",
                                 L"Production", L"Qualité", L"Ressources humaines", L"Ventes"}));
}

TEST_F(NameOrderOf, ListsInAReadingTransactionIsKeptByOrderByAlone) {
  connection_->BeginRead();
  ExpectInOrder(AllUsers());
  Rows groups = Read(data::SqlSelectAllGroups(), 3);
  connection_->EndRead();
  // They are the same rows, in whatever order the engine has them.
  Rows listed = Read(data::SqlSelectAllGroups(), 3);
  ExpectInOrder(NamesIn(listed));
  std::sort(groups.begin(), groups.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(groups, listed);
}

TEST_F(NameOrderOf, ColumnsThatAreNotShownIsKeptToo) {
  const Rows ordered = Read(L"SELECT USERID FROM QRUSERV ORDER BY QRUSERV.FULLNAME", 1);
  // Those without a full name come first, in the order of their identifiers.
  ASSERT_GT(ordered.size(), 4U);
  EXPECT_EQ(ordered[0], std::vector<std::wstring>{L"20"});
  EXPECT_EQ(ordered[1], std::vector<std::wstring>{L"26"});
  EXPECT_EQ(ordered[2], std::vector<std::wstring>{L"40"});
  EXPECT_EQ(ordered[3], std::vector<std::wstring>{L"1"});
  const auto set = connection_->OpenResultSet(L"SELECT USERID FROM QRUSERV ORDER BY NAME");
  EXPECT_THROW(set->Column(1), data::RunTimeError);
}

TEST_F(NameOrderOf, AColumnThatDistinctRowsDoNotShowIsRefused) {
  EXPECT_EQ(FailureOf([this] {
              Read(L"SELECT DISTINCT FULLNAME FROM QRUSERV ORDER BY NAME", 1);
            }).Number(),
            server::kDatabaseError);
  ExpectInOrder(NamesIn(Read(L"SELECT DISTINCT USERID, NAME FROM QRUSERV ORDER BY NAME", 2)));
}

TEST_F(NameOrderOf, NumbersIsTheirOwn) {
  const Rows rows = Read(L"SELECT PERMID, NAME FROM QRPERM ORDER BY PERMID", 2);
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i][0], data::Decimal(int(i) + 1));
}

TEST_F(NameOrderOf, RowsLeavesThemToBeChanged) {
  const auto set = connection_->OpenResultSet(L"SELECT USERID, NAME FROM QRUSERV ORDER BY NAME");
  for (; !set->EndOfRows(); set->MoveNext()) {
    if (set->Column(1).Text() != L"Œuvrard") continue;
    set->Edit();
    set->SetColumn(L"NAME", std::wstring(L"Abel"));
    set->Update();
    EXPECT_EQ(set->Column(1).Text(), L"Abel");
  }
  EXPECT_EQ(sample_.Raw().Text("select name from qruser where userid = 38"), "Abel");
  set->MoveFirst();
  EXPECT_EQ(set->Column(1).Text(), L"Abel");
}

// Neither case nor accents are looked away from where a name is asked for.
TEST_F(NameOrderOf, RowsDoesNotMakeComparisonsInexact) {
  AddUser(201, "émile");
  AddUser(202, "Emile");
  const auto count = [this](std::wstring_view name) {
    return Read(L"SELECT USERID FROM QRUSERV WHERE NAME = '" + std::wstring(name) + L"'", 1).size();
  };
  EXPECT_EQ(count(L"émile"), 1U);
  EXPECT_EQ(count(L"Emile"), 1U);
  EXPECT_EQ(count(L"Émile"), 0U);
  EXPECT_EQ(count(L"Emile "), 0U);
}

TEST(NameOrderOfGenerated, UsersHoldsForThirtyThousand) {
  test_support::SampleDatabase generated(server::GeneratedSize{30000, 5, 5});
  const auto session = generated.OpenServer();
  const auto connection = session->DatabaseConnection();
  const auto all = NamesIn(ReadRows(*connection, data::SqlSelectAllUsers(), 2));
  ASSERT_EQ(all.size(), 30000U);
  ExpectInOrder(all);
  // Emile and Émile are neighbours, far from those whose names begin with other letters.
  const auto firstWith = [&](std::wstring_view beginning) {
    return std::find_if(all.begin(), all.end(),
                        [&](const std::wstring& name) { return name.starts_with(beginning); });
  };
  EXPECT_LT(firstWith(L"Damien"), firstWith(L"Élodie"));
  EXPECT_LT(firstWith(L"Élodie"), firstWith(L"Émile"));
  EXPECT_LT(firstWith(L"Émile"), firstWith(L"Fabrice"));
}

}  // namespace
}  // namespace server_test
