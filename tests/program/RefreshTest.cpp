// What the window shows after the database changed underneath it.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

using data::ToUtf8;

class Refresh : public ProgramTest {
 protected:
  // What another administrator does meanwhile.
  void ChangeTheDatabase() {
    Box().Database().Run(
        L"INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (60000, 'Nouveau', 'Arrivé hier');"
        L"INSERT INTO QRPERM (PERMID, NAME) VALUES (60000, 'Nouveau droit');"
        L"UPDATE QRGROUP SET NAME = 'Renommé' WHERE GROUPID = (SELECT MAX(GROUPID) FROM QRGROUPV"
        L" WHERE NAME NOT IN ('Administrators', 'Everyone'));"
        L"DELETE FROM QRUSGP WHERE USERID = (SELECT MAX(USERID) FROM QRUSGPV)"
        L" AND GROUPID = (SELECT MAX(GROUPID) FROM QRUSGPV WHERE USERID ="
        L" (SELECT MAX(USERID) FROM QRUSGPV))");
  }

  static bool ShowsTheNewUser(const MainWindow& window) {
    driver::TreeView tree = window.Tree(kUsersTab);
    for (const driver::TreeNode& user : tree.KnownChildren(tree.Root().item)) {
      if (user.text == L"Nouveau (Arrivé hier)") return true;
    }
    return false;
  }

  void ExpectTheDatabasesState(const MainWindow& window) {
    Database database = Box().Database();
    for (const Tab tab : {kUsersTab, kGroupsTab}) {
      driver::TreeView tree = window.Tree(tab);
      const driver::TreeNode root = tree.Root();
      EXPECT_TRUE(root.selected);
      EXPECT_TRUE(root.expanded);
      const Outline expected =
          tab == kUsersTab ? ExpectedUsers(database) : ExpectedGroups(database);
      const Outline shown = ReadOutline(tree);
      EXPECT_EQ(Print(expected), Print(shown));
      EXPECT_EQ("", ToUtf8(OutOfOrder(shown)));
    }
    EXPECT_EQ(ToUtf8(String(app::kCounts, {database.Text(L"SELECT COUNT(*) FROM QRUSERV"),
                                           database.Text(L"SELECT COUNT(*) FROM QRGROUPV"),
                                           database.Text(L"SELECT COUNT(*) FROM QRPERM")})),
              ToUtf8(window.Status()));
  }
};

TEST_F(Refresh, NothingChangesUntilItIsAskedFor) {
  const MainWindow window = Open(SampleSession());
  driver::TreeView tree = window.Tree(kUsersTab);
  const Outline before = ReadOutline(tree);
  ChangeTheDatabase();
  EXPECT_EQ(Print(before), Print(ReadOutline(tree)));
}

TEST_F(Refresh, TheButtonShowsTheNewStateWithTheRootSelected) {
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {kAdmin});
  ChangeTheDatabase();
  window.PressAndWait(kRefreshButton);
  ExpectTheDatabasesState(window);
}

TEST_F(Refresh, F5ShowsTheNewState) {
  const MainWindow window = Open(SampleSession());
  ChangeTheDatabase();
  window.Key(VK_F5);
  driver::Await("the new user to be shown", [&] { return ShowsTheNewUser(window); });
  window.AwaitStarted();
  ExpectTheDatabasesState(window);
}

TEST_F(Refresh, F5WorksOnTheGroupsTabToo) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  window.AwaitFocus(IDC_TREE_GROUPS);
  ChangeTheDatabase();
  window.Key(VK_F5);
  driver::Await("the new user to be shown", [&] { return ShowsTheNewUser(window); });
  EXPECT_EQ(kGroupsTab, window.Tabs().Selected());
  window.AwaitStarted();
  ExpectTheDatabasesState(window);
}

TEST_F(Refresh, ADatabaseThatIsLockedMeanwhileIsReportedAndTheProgramGoesOn) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  database.Run(L"BEGIN EXCLUSIVE");
  window.Press(kRefreshButton);
  const driver::PromptBox report = driver::AwaitPrompt(Program().Id());
  EXPECT_TRUE(report.Text().ends_with(L"]\r\ndatabase is locked")) << ToUtf8(report.Text());
  report.Answer(IDOK);
  driver::Await("the status line to tell it",
                [&] { return window.Status() == String(app::kAccountsIncomplete); });
  database.Run(L"COMMIT");
  window.PressAndWait(kRefreshButton);
  ExpectTheDatabasesState(window);
}

}  // namespace
}  // namespace program
