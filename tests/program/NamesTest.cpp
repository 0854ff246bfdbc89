// Names that might break something on their way from the database to the window.

#include <optional>

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

using data::ToUtf8;

constexpr int kFirstId = 50000;

const std::wstring kAwkward[] = {
    L"d'Arc \"Jeanne\" `x` ''",
    L"100 % %s %1 %n %%",
    L"a (b) (c",
    L"\\TUS \\U12 \\G5 C:\\dossier\\",
    L"Dupont & Fils && Cie",
    L"x\ty;--/* */",
    L"דוד בן־גוריון ‏العربية",
    L"\U0001D510\U0001D51E\U0001D52F\U0001D531\U0001F600 \U00020000",
    L"e\u0301toile \u00C9TOILE",
};

class Names : public ProgramTest {
 protected:
  // Adds a user, a group and a permission for each name, all linked to each other.
  static void Add(Database& database, int id, const std::wstring& name,
                  const std::optional<std::wstring>& addition) {
    const std::wstring number = std::to_wstring(id);
    database.Run(L"INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (" + number + L", ?, ?)",
                 {name, addition});
    database.Run(L"INSERT INTO QRGROUP (GROUPID, NAME, DESCR) VALUES (" + number + L", ?, ?)",
                 {name, addition});
    database.Run(L"INSERT INTO QRPERM (PERMID, NAME) VALUES (" + number + L", ?)", {name});
    for (const wchar_t* table : {L"QRUSGP", L"QRUPRM", L"QRGPRM"}) {
      database.Run(std::wstring(L"INSERT INTO ") + table + L" VALUES (" + number + L", " + number +
                   L")");
    }
  }

  void ExpectBothTreesAsStored(const MainWindow& window) {
    Database database = Box().Database();
    driver::TreeView users = window.Tree(kUsersTab);
    EXPECT_EQ(Print(ExpectedUsers(database)), Print(ReadOutline(users)));
    driver::TreeView groups = window.Tree(kGroupsTab);
    EXPECT_EQ(Print(ExpectedGroups(database)), Print(ReadOutline(groups)));
  }
};

TEST_F(Names, AwkwardNamesAreShownAsTheyAre) {
  const std::wstring session = SampleSession();
  {
    Database database = Box().Database();
    int id = kFirstId;
    for (const std::wstring& name : kAwkward) {
      Add(database, id++, name, name);
      Add(database, id++, name + L" bis", std::nullopt);
    }
  }
  const MainWindow window = Open(session);
  ExpectBothTreesAsStored(window);
  driver::TreeView tree = window.Tree(kUsersTab);
  for (const std::wstring& name : kAwkward) {
    const std::wstring text = name + L" (" + name + L")";
    EXPECT_EQ(ToUtf8(text), ToUtf8(tree.Find({text, String(app::kMemberOf), text}).text));
    EXPECT_EQ(ToUtf8(name), ToUtf8(tree.Find({text, String(app::kUserPermissions), name}).text));
  }
}

TEST_F(Names, FourThousandCharactersAreShownWhole) {
  const std::wstring session = SampleSession();
  std::wstring name;
  while (name.size() < 4000) name += L"Long" + std::to_wstring(name.size()) + L" ";
  name.resize(3999);
  name += L"z";
  {
    Database database = Box().Database();
    Add(database, kFirstId, name, std::nullopt);
  }
  const MainWindow window = Open(session);
  driver::TreeView tree = window.Tree(kUsersTab);
  EXPECT_EQ(ToUtf8(name), ToUtf8(tree.Find({name}).text));
  EXPECT_EQ(ToUtf8(name), ToUtf8(tree.Find({name, String(app::kUserPermissions), name}).text));
  ExpectBothTreesAsStored(window);
}

TEST_F(Names, NullAndBlankColumnsAreShownAsNothing) {
  const std::wstring session = SampleSession();
  {
    Database database = Box().Database();
    Add(database, kFirstId, L"sans rien", std::nullopt);
    Add(database, kFirstId + 1, L"sans texte", L"");
    Add(database, kFirstId + 2, L"blancs", L"   ");
    Add(database, kFirstId + 3, L"", L"sans nom");
  }
  const MainWindow window = Open(session);
  driver::TreeView tree = window.Tree(kUsersTab);
  for (const std::wstring text : {L"sans rien", L"sans texte", L"blancs", L" (sans nom)"}) {
    EXPECT_EQ(ToUtf8(text), ToUtf8(tree.Find({text}).text));
  }
  ExpectBothTreesAsStored(window);
}

TEST_F(Names, ASecondUserOfTheSameNameIsShownToo) {
  const std::wstring session = SampleSession();
  {
    Database database = Box().Database();
    Add(database, kFirstId, L"Double", L"X");
    Add(database, kFirstId + 1, L"Double", L"X");
  }
  const MainWindow window = Open(session);
  ExpectBothTreesAsStored(window);
}

}  // namespace
}  // namespace program
