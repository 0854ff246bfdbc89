#include <gtest/gtest.h>

#include "app/LocaleFont.h"
#include "app/StringIds.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::CommandButton;

class Window : public test_support::MainWindowFixture {};

TEST_F(Window, EveryCaptionComesFromTheStringTable) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(window.Caption(), Text(app::kTitle));
    EXPECT_EQ(window.TabStrip1.TabCaption(0), Text(app::kUsersTab));
    EXPECT_EQ(window.TabStrip1.TabCaption(1), Text(app::kGroupsTab));
    EXPECT_EQ(window.Users.lblTree.Caption(), Text(app::kUsersTreeName));
    EXPECT_EQ(window.Groups.lblTree.Caption(), Text(app::kGroupsTreeName));
    EXPECT_EQ(window.Users.fraUser.Caption(), Text(app::kUsers));
    EXPECT_EQ(window.Users.fraMemberOf.Caption(), Text(app::kMemberOf));
    EXPECT_EQ(window.Users.fraUserPermission.Caption(), Text(app::kUserPermissions));
    EXPECT_EQ(window.Groups.fraGroup.Caption(), Text(app::kGroups));
    EXPECT_EQ(window.Groups.fraMember.Caption(), Text(app::kMembers));
    EXPECT_EQ(window.Groups.fraGroupPermission.Caption(), Text(app::kGroupPermissions));
    for (const CommandButton* buttons : {window.Users.cmdUser, window.Groups.cmdGroup}) {
      EXPECT_EQ(buttons[0].Caption(), Text(app::kEdit));
      EXPECT_EQ(buttons[1].Caption(), Text(app::kDelete));
      EXPECT_EQ(buttons[2].Caption(), Text(app::kNew));
    }
    for (const CommandButton* buttons :
         {window.Users.cmdMemberOf, window.Users.cmdUserPermission, window.Groups.cmdMember,
          window.Groups.cmdGroupPermission}) {
      EXPECT_EQ(buttons[0].Caption(), Text(app::kAssign));
      EXPECT_EQ(buttons[1].Caption(), Text(app::kRemove));
    }
    EXPECT_EQ(window.cmdBtn[kRefreshButton].Caption(), Text(app::kRefresh));
    EXPECT_EQ(window.cmdBtn[kExitButton].Caption(), Text(app::kExit));
    EXPECT_EQ(window.cmdAbout.Caption(), Text(app::kAbout));
    EXPECT_EQ(window.Command1.Caption(), Text(app::kHelp));
  });
}

TEST_F(Window, ATabShowsItsTreeAndItsSectionsAndHidesTheOthers) {
  Run([this](frmUserGroupPerm& window) {
    const auto expectPage = [&window](bool users) {
      EXPECT_EQ(window.Users.txtFind.Visible(), users);
      EXPECT_EQ(window.Groups.txtFind.Visible(), !users);
      EXPECT_EQ(window.Users.TreeView1.Visible(), users);
      EXPECT_EQ(window.Users.fraUser.Visible(), users);
      EXPECT_EQ(window.Users.fraMemberOf.Visible(), users);
      EXPECT_EQ(window.Users.fraUserPermission.Visible(), users);
      EXPECT_EQ(window.Groups.TreeView1.Visible(), !users);
      EXPECT_EQ(window.Groups.fraGroup.Visible(), !users);
      EXPECT_EQ(window.Groups.fraMember.Visible(), !users);
      EXPECT_EQ(window.Groups.fraGroupPermission.Visible(), !users);
    };
    expectPage(true);
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    expectPage(false);
    user.ChooseTab(window.TabStrip1, kUsersTree);
    expectPage(true);
  });
}

TEST_F(Window, TheNamesOfTheTreesAreNeverOnView) {
  Run([this](frmUserGroupPerm& window) {
    for (const int tab : {0, 1, 0}) {
      user.ChooseTab(window.TabStrip1, tab);
      for (int Index = 0; Index < 2; ++Index) {
        EXPECT_FALSE(window.Page(Index).lblTree.Visible());
        // Directly before the tree that it names, for whoever walks the controls in their order.
        EXPECT_LT(window.Page(Index).lblTree.TabIndex(), window.Page(Index).TreeView1.TabIndex());
      }
      user.PressKey(window, test_support::kKeyTab);
      EXPECT_TRUE(window.Page(tab).txtFind.HasFocus());
      user.PressKey(window, test_support::kKeyTab);
      EXPECT_TRUE(window.Page(tab).TreeView1.HasFocus());
    }
  });
}

TEST_F(Window, TheFontIsThatOfTheUsersLocale) {
  constexpr int kJapanese = 1041;
  user.SetLcid(kJapanese);
  Run([this](frmUserGroupPerm& window) {
    const std::optional<controls::Font> wanted = app::LocaleFont(kJapanese);
    ASSERT_TRUE(wanted.has_value());
    for (const controls::Font& font :
         {user.FontOf(window), user.FontOf(window.Users.TreeView1), user.FontOf(window.cmdAbout)}) {
      EXPECT_EQ(font.face, wanted->face);
      EXPECT_EQ(font.size, wanted->size);
      EXPECT_EQ(font.charset, wanted->charset);
    }
  });
}

TEST_F(Window, TheStatusLineTellsTheCounts) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 30 permissions");
  });
}

TEST_F(Window, TheHelpButtonAndF1OpenTopic109) {
  Run([this](frmUserGroupPerm& window) {
    user.Click(window.Command1);
    user.PressKey(window, controls::kKeyF1);
    ASSERT_EQ(user.HelpCalls().size(), 2U);
    for (const auto& call : user.HelpCalls()) {
      EXPECT_EQ(call.topic, 109);
      EXPECT_EQ(call.file, global.helpFile);
    }
  });
}

TEST_F(Window, AboutIsTheServersAndGetsTheExecutablesName) {
  Run([this](frmUserGroupPerm& window) {
    user.Click(window.cmdAbout);
    EXPECT_EQ(log.serverCalls.back(), L"ShowAbout uadmin.exe 0 0");
  });
}

TEST_F(Window, AFailingAboutBoxIsReported) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) { return call.starts_with(L"ShowAbout") ? 5L : 0L; };
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.cmdAbout);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"cmdAbout_Click Error [5]\r\n"));
  });
}

TEST_F(Window, OpeningAFolderShowsItOpenAndClosingItShowsItClosed) {
  Run([this](frmUserGroupPerm& window) {
    controls::TreeView& users = window.Users.TreeView1;
    const controls::NodeId martin = NodeAt(users, {L"Martin (Jean Martin)"});
    const controls::NodeId folder = Child(users, martin, L"Membre du Groupe");
    const int accountImage = users.Nodes().Image(martin);
    user.Expand(users, martin);
    user.Expand(users, folder);
    EXPECT_EQ(users.Nodes().Image(folder), kFolderOpen);
    EXPECT_EQ(users.Nodes().Image(martin), accountImage);
    user.Collapse(users, folder);
    EXPECT_EQ(users.Nodes().Image(folder), kFolderClosed);
  });
}

TEST_F(Window, TheMnemonicsOfTheWindowPressItsButtons) {
  Run([this](frmUserGroupPerm& window) {
    const std::size_t statements = log.statements.size();
    user.Mnemonic(window, L'f');
    EXPECT_GT(log.statements.size(), statements);
    user.Mnemonic(window, L'i');
    EXPECT_EQ(user.HelpCalls().size(), 1U);
    user.Mnemonic(window, L'q');
    EXPECT_FALSE(window.IsLoaded());
  });
}

TEST_F(Window, AClickMadeWhileTheTreesAreReadWaitsUntilTheyStand) {
  Run([this](frmUserGroupPerm& window) {
    bool clicked = false;
    log.FailAt = [&](const std::wstring& call) {
      if (call == L"BeginRead" && !clicked) {
        clicked = true;
        user.ClickLater(window.cmdAbout);
      }
      // What follows the trees is the number of permissions.
      EXPECT_FALSE(call.starts_with(L"ShowAbout") &&
                   log.statements.back() != data::SqlSelectAllPermissions());
      return 0L;
    };
    user.Click(window.cmdBtn[kRefreshButton]);
    user.Settle();
    EXPECT_EQ(log.serverCalls.back(), L"ShowAbout uadmin.exe 0 0");
  });
}

TEST_F(Window, TheTabOnViewIsOnViewAgainAtTheNextStart) {
  Run([this](frmUserGroupPerm& window) { user.ChooseTab(window.TabStrip1, kGroupsTree); });
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(window.TabStrip1.SelectedTab(), kGroupsTree);
    EXPECT_TRUE(window.Groups.TreeView1.Visible());
    EXPECT_TRUE(window.Groups.TreeView1.HasFocus());
    EXPECT_FALSE(window.Users.TreeView1.Visible());
    EXPECT_FALSE(window.Users.fraUser.Visible());
    EXPECT_GT(window.Users.accountCount, 0);
    user.ChooseTab(window.TabStrip1, kUsersTree);
  });
  Run([](frmUserGroupPerm& window) { EXPECT_EQ(window.TabStrip1.SelectedTab(), kUsersTree); });
}

TEST_F(Window, ATabThatThereIsNotIsNotOnView) {
  for (const wchar_t* kept : {L"2", L"-1", L"01", L"Groupes"}) {
    desktop.system.settings[L"Tab"] = kept;
    Run([](frmUserGroupPerm& window) { EXPECT_EQ(window.TabStrip1.SelectedTab(), kUsersTree); });
    EXPECT_EQ(desktop.system.settings[L"Tab"], kept);
  }
}

}  // namespace
}  // namespace browser
