#include <gtest/gtest.h>

#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "dialogs/frmNewGroup.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
// The database fails while trees are read or brought up to date.
class FailedReads : public CommandTest {
 protected:
  // Every call from the one of this text on fails.
  void FailFrom(const std::wstring& call) {
    log.FailAt = [call, failing = false](const std::wstring& current) mutable {
      failing |= current == call;
      return failing ? 1234L : 0L;
    };
  }
  void FailToRefresh(frmUserGroupPerm& window, const std::wstring& call) {
    FailFrom(call);
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.cmdBtn[kRefreshButton]);
    log.FailAt = {};
  }
  // Keeps whether a reading transaction was open when a box was shown.
  void WatchBoxes() {
    desktop.system.answers.MsgBox = [this](const std::wstring& prompt, int style,
                                           const std::wstring&) {
      boxes_.push_back(prompt);
      shownWhileReading_ |= IsReading();
      return (style & controls::kYesNo) != 0 ? controls::kResultYes : controls::kResultOk;
    };
  }

  void ExpectAccountButtons(frmUserGroupPerm& window, bool edit, bool create) {
    for (const int tab : {kUsersTree, kGroupsTree}) {
      const AccountPage& page = window.Page(tab);
      EXPECT_EQ(page.cmdAccount[kEditButton].Enabled(), edit) << tab;
      EXPECT_EQ(page.cmdAccount[kNewButton].Enabled(), create) << tab;
    }
  }

  Strings boxes_;
  bool shownWhileReading_ = false;
};

TEST_F(FailedReads, OfARefreshSwitchEditAndNewOffOnBothTabsUntilOneSucceeds) {
  Run([this](frmUserGroupPerm& window) {
    FailToRefresh(window, data::SqlSelectAllUsers());
    EXPECT_EQ(window.Users.TreeView1.Nodes().Count(), 1);
    EXPECT_EQ(window.lblStatus.Caption(), Text(app::kAccountsIncomplete));
    Select(window, kGroupsTree, Keys::Group(6));
    ExpectAccountButtons(window, false, false);
    EXPECT_TRUE(window.Groups.cmdGroup[kDeleteButton].Enabled());
    user.Click(window.cmdBtn[kRefreshButton]);
    ExpectAccountButtons(window, false, true);
    Select(window, kUsersTree, Keys::User(9));
    EXPECT_TRUE(window.Users.cmdUser[kEditButton].Enabled());
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 30 permissions");
  });
}

TEST_F(FailedReads, OfARefreshKeepAccountsFromBeingEditedOrMadePastTheButtonsToo) {
  Run([this](frmUserGroupPerm& window) {
    FailToRefresh(window, data::SqlSelectGroupUsers(6));
    Select(window, kUsersTree, Keys::User(9));
    user.PressKey(window, controls::kKeyF2);
    for (const int Index : {kEditButton, kNewButton}) window.Users.cmdUser_Click(Index);
    Select(window, kGroupsTree, Keys::Group(1));
    for (const int Index : {kEditButton, kNewButton}) window.Groups.cmdGroup_Click(Index);
  });
}

TEST_F(FailedReads, OfAFolderLeaveEditAndNewOn) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    FailFrom(data::SqlSelectInheritedPermissions(9));
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce membre du groupe ?");
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    log.FailAt = {};
    EXPECT_EQ(window.lblStatus.Caption(), Text(app::kIncomplete));
    EXPECT_TRUE(window.Users.cmdUser[kEditButton].Enabled());
    EXPECT_TRUE(window.Users.cmdUser[kNewButton].Enabled());
  });
}

// Its name would pass as free.
TEST_F(FailedReads, OfANewAccountSwitchEditAndNewOff) {
  Run([this](frmUserGroupPerm& window) {
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmNewGroup&>(form);
      user.Type(dialog.txtGroupName, L"Logistique");
      // The dialog opens the group's row first, to write it.
      log.FailAt = [opened = 0](const std::wstring& call) mutable {
        const bool opens = call.starts_with(L"SELECT") &&
                           call.find(L"WHERE QRGROUPV.GROUPID = ") != std::wstring::npos;
        return opens && ++opened == 2 ? 1234L : 0L;
      };
      user.ExpectMsgBox(controls::kResultOk);
      user.Click(dialog.cmdOK);
    });
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    user.Click(window.Groups.cmdGroup[kNewButton]);
    log.FailAt = {};
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"GroupNode Error [1234]"));
    ExpectAccountButtons(window, false, false);
    EXPECT_EQ(window.lblStatus.Caption(), Text(app::kAccountsIncomplete));
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    NodeAt(window.Groups.TreeView1, {L"Logistique"});
    EXPECT_TRUE(window.Groups.cmdGroup[kNewButton].Enabled());
  });
}

TEST_F(FailedReads, OfARefreshAreReportedOnceTheTransactionIsOver) {
  Run([this](frmUserGroupPerm& window) {
    WatchBoxes();
    for (const std::wstring& call : {data::SqlSelectAllUsers(), data::SqlSelectGroupUsers(6)}) {
      FailFrom(call);
      EXPECT_EQ(window.RefreshTree(), app::Outcome::kFailed);
      log.FailAt = {};
      EXPECT_EQ(boxes_.size(), 1u);
      boxes_.clear();
    }
    EXPECT_FALSE(shownWhileReading_);
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
  });
}

TEST_F(FailedReads, OfAllAccountsAreReportedOnceTheTransactionIsOver) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
    WatchBoxes();
    FailFrom(data::SqlSelectUserGroups(9));
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    log.FailAt = {};
    EXPECT_EQ(boxes_,
              (Strings{L"Souhaitez-vous supprimer ce membre ?",
                       L"UserNode Error [1234]\r\ninjected: " + data::SqlSelectUserGroups(9)}));
    EXPECT_FALSE(shownWhileReading_);
  });
}

}  // namespace
}  // namespace browser
