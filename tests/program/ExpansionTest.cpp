// The trees opened down to their leaves, compared with the database.

#include <set>
#include <string>
#include <utility>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using data::ToUtf8;

class Expansion : public ProgramTest {
 protected:
  // A user that is a member of a group, holds a permission himself and has one through a group.
  static std::wstring RichUser(Database& database) {
    return database.Text(
        L"SELECT NAME || ' (' || FULLNAME || ')' FROM QRUSERV WHERE FULLNAME <> ''"
        L" AND USERID IN (SELECT USERID FROM QRUPRM) AND USERID IN (SELECT QRUSGPV.USERID FROM"
        L" QRUSGPV, QRGPRM WHERE QRGPRM.GROUPID = QRUSGPV.GROUPID) ORDER BY USERID");
  }
};

void CollectData(driver::TreeView& tree, const driver::TreeNode& node, std::multiset<LPARAM>& all) {
  all.insert(node.data);
  for (const driver::TreeNode& child : tree.Children(node)) CollectData(tree, child, all);
}

TEST_F(Expansion, BothTreesShowWhatTheDatabaseHoldsInTheOrderOfTheUsersLanguage) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  for (const Tab tab : {kUsersTab, kGroupsTab}) {
    window.SelectTab(tab);
    driver::TreeView tree = window.Tree(tab);
    const Outline expected = tab == kUsersTab ? ExpectedUsers(database) : ExpectedGroups(database);
    const Outline shown = ReadOutline(tree);
    EXPECT_EQ(Print(expected), Print(shown));
    EXPECT_EQ("", ToUtf8(OutOfOrder(shown)));
    EXPECT_EQ(CountNodes(expected), tree.Count());
  }
}

TEST_F(Expansion, EachFolderKindOpensToItsLeaves) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  driver::TreeView users = window.Tree(kUsersTab);
  for (const int folder : {app::kMemberOf, app::kUserPermissions, app::kAllPermissions}) {
    const driver::TreeNode node = users.Find({RichUser(database), String(folder)});
    EXPECT_FALSE(users.Children(node.item).empty()) << folder;
  }
  driver::TreeView groups = window.Tree(kGroupsTab);
  for (const int folder : {app::kMembers, app::kGroupPermissions}) {
    const driver::TreeNode node = groups.Find({kAdministrators, String(folder)});
    const auto leaves = groups.Children(node.item);
    ASSERT_FALSE(leaves.empty()) << folder;
    EXPECT_FALSE(leaves.front().hasChildren);
  }
}

TEST_F(Expansion, EveryNodeHasAnIdentityOfItsOwn) {
  const MainWindow window = Open(SampleSession());
  for (const Tab tab : {kUsersTab, kGroupsTab}) {
    driver::TreeView tree = window.Tree(tab);
    ReadOutline(tree);
    std::multiset<LPARAM> all;
    CollectData(tree, tree.Root(), all);
    EXPECT_EQ(all.size(), std::set<LPARAM>(all.begin(), all.end()).size());
    EXPECT_EQ(static_cast<std::size_t>(tree.Count()), all.size());
  }
}

TEST_F(Expansion, TheReservedGroupsStandUnderTheirDisplayForms) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  const std::wstring shown =
      database.Text(L"SELECT MAPPED FROM QRDISPLAY WHERE CODE = 104 AND GIVEN = 'Everyone'");
  EXPECT_EQ(L"Tout le monde", shown);
  driver::TreeView tree = window.Tree(kGroupsTab);
  int found = 0;
  for (const driver::TreeNode& group : tree.Children(tree.Root().item)) {
    EXPECT_FALSE(group.text.starts_with(L"Everyone")) << ToUtf8(group.text);
    if (group.text.starts_with(shown)) ++found;
  }
  EXPECT_EQ(1, found);
}

TEST_F(Expansion, AUserWithoutFullNameShowsTheNameAlone) {
  const std::wstring session = SampleSession();
  Database database = Box().Database();
  const MainWindow window = Open(session);
  driver::TreeView tree = window.Tree(kUsersTab);
  const auto bare = database.Rows(L"SELECT NAME FROM QRUSERV WHERE COALESCE(FULLNAME, '') = ''");
  ASSERT_GE(bare.size(), 2u) << "the sample has users with null and with empty full names";
  for (const Database::Row& user : bare) EXPECT_EQ(*user[0], tree.Find({*user[0]}).text);
}

TEST_F(Expansion, ADeletedUserIsNotShown) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  const auto deleted = database.Rows(L"SELECT NAME FROM QRUSER WHERE VFLG = 'D'");
  ASSERT_FALSE(deleted.empty()) << "the sample has a deleted user";
  driver::TreeView tree = window.Tree(kUsersTab);
  for (const driver::TreeNode& user : tree.Children(tree.Root().item)) {
    for (const Database::Row& gone : deleted) EXPECT_FALSE(user.text.starts_with(*gone[0]));
  }
}

TEST_F(Expansion, AnOpenFolderIsDrawnOpenAndAClosedOneClosed) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  driver::TreeView tree = window.Tree(kUsersTab);
  const driver::TreeNode folder = tree.Find({RichUser(database), String(app::kMemberOf)});
  EXPECT_EQ(folder.image, folder.selectedImage);
  tree.Expand(folder.item);
  const driver::TreeNode open = tree.Read(folder.item);
  EXPECT_NE(folder.image, open.image);
  EXPECT_EQ(open.image, open.selectedImage);
  tree.Collapse(folder.item);
  EXPECT_EQ(folder.image, tree.Read(folder.item).image);
}

TEST_F(Expansion, ProtectedAccountsHaveAnImageOfTheirOwn) {
  const MainWindow window = Open(SampleSession());
  for (const auto& [tab, kept] : {std::pair{kUsersTab, std::set<std::wstring>{kAdmin}},
                                  {kGroupsTab, {kAdministrators, kEveryone}}}) {
    driver::TreeView tree = window.Tree(tab);
    std::set<int> protectedImages;
    std::set<int> images;
    for (const driver::TreeNode& account : tree.Children(tree.Root().item)) {
      (kept.contains(account.text) ? protectedImages : images).insert(account.image);
    }
    ASSERT_EQ(1u, protectedImages.size());
    EXPECT_EQ(1u, images.size());
    EXPECT_NE(protectedImages, images);
  }
}

TEST_F(Expansion, TheArrowKeysOpenANodeAndGoIntoIt) {
  const MainWindow window = Open(SampleSession());
  driver::TreeView tree = window.Tree(kUsersTab);
  window.Key(VK_DOWN);
  driver::Await("the first user to be selected",
                [&] { return tree.Parent(tree.Selected().item) == tree.Root().item; });
  const HTREEITEM user = tree.Selected().item;
  window.Key(VK_RIGHT);
  driver::Await("the user to open", [&] { return tree.Read(user).expanded; });
  window.Key(VK_RIGHT);
  driver::Await("the first folder to be selected",
                [&] { return tree.Parent(tree.Selected().item) == user; });
  EXPECT_EQ(3u, tree.KnownChildren(user).size());
}

TEST_F(Expansion, ADoubleClickOpensANode) {
  const MainWindow window = Open(SampleSession());
  driver::TreeView tree = window.Tree(kUsersTab);
  const HTREEITEM user = tree.Children(tree.Root().item).front().item;
  driver::DoubleClick(tree.Control(), driver::Middle(tree.TextRectangle(user)));
  driver::Await("the user to open", [&] { return tree.Read(user).expanded; });
  EXPECT_EQ(user, tree.Selected().item);
}

}  // namespace
}  // namespace program
