#include <gtest/gtest.h>

#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;

// From a leaf to the account that it leads to, and back.
class GoToAccount : public CommandTest {
 protected:
  static void ExpectAt(frmUserGroupPerm& window, int tree, const std::wstring& key,
                       Where where = Where::current()) {
    const ::testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "at");
    EXPECT_EQ(window.TabStrip1.SelectedTab(), tree);
    EXPECT_EQ(Selected(window, tree), key);
    EXPECT_TRUE(window.Page(tree).TreeView1.HasFocus());
  }

  void ChooseFromMenu(frmUserGroupPerm& window, int tree, const std::wstring& caption) {
    user.ExpectMenu([&caption](const std::vector<controls::MenuItem>& items) {
      for (const controls::MenuItem& item : items) {
        if (item.caption == caption) return item.command;
      }
      ADD_FAILURE() << "no such line";
      return 0;
    });
    user.PressMenuKey(window.Page(tree).TreeView1);
  }

  std::vector<bool> Offered(frmUserGroupPerm& window, int tree) {
    std::vector<bool> offered;
    user.ExpectMenu([&offered](const std::vector<controls::MenuItem>& items) {
      offered = {items[14].enabled, items[15].enabled};
      return 0;
    });
    user.PressMenuKey(window.Page(tree).TreeView1);
    return offered;
  }
};

TEST_F(GoToAccount, EnterLeadsFromEachKindOfLeafToItsAccount) {
  struct Case {
    int tree;
    std::wstring leaf;
    int toTree;
    std::wstring account;
  };
  const Case cases[] = {
      {kUsersTree, Keys::GroupOfUser(9, 12), kGroupsTree, Keys::Group(12)},
      {kGroupsTree, Keys::MemberOfGroup(12, 9), kUsersTree, Keys::User(9)},
      {kUsersTree, Keys::OwnPermission(9, 14), kUsersTree, Keys::User(9)},
      {kGroupsTree, Keys::GroupPermission(6, 21), kGroupsTree, Keys::Group(6)},
      // Held directly alone, by one group alone, and by two of them.
      {kUsersTree, Keys::AnyPermission(3, 11), kUsersTree, Keys::User(3)},
      {kUsersTree, Keys::AnyPermission(9, 16), kGroupsTree, Keys::Group(7)},
      {kUsersTree, Keys::AnyPermission(16, 18), kGroupsTree, Keys::Group(8)},
  };
  Run([&](frmUserGroupPerm& window) {
    for (const Case& test : cases) {
      Select(window, test.tree, test.leaf);
      user.PressKey(window, controls::kKeyReturn);
      ExpectAt(window, test.toTree, test.account);
    }
  });
}

TEST_F(GoToAccount, ADoubleClickLeadsThereToo) {
  Run([this](frmUserGroupPerm& window) {
    user.DoubleClick(window.Users.TreeView1, At(window, kUsersTree, Keys::GroupOfUser(9, 12)));
    ExpectAt(window, kGroupsTree, Keys::Group(12));
    EXPECT_EQ(window.exchange.GroupID, 12);
    EXPECT_TRUE(window.Groups.cmdGroup[kEditButton].Enabled());
  });
}

TEST_F(GoToAccount, BackspaceComesBackStepByStep) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.PressKey(window, controls::kKeyReturn);
    user.Select(window.Groups.TreeView1, At(window, kGroupsTree, Keys::MemberOfGroup(12, 34)));
    user.PressKey(window, controls::kKeyReturn);
    ExpectAt(window, kUsersTree, Keys::User(34));
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kGroupsTree, Keys::MemberOfGroup(12, 34));
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kUsersTree, Keys::GroupOfUser(9, 12));
    EXPECT_EQ(window.exchange.UserID, 9);
    EXPECT_EQ(window.exchange.GroupID, 12);
  });
}

TEST_F(GoToAccount, WithoutAWayBackBackspaceGoesToTheNodeAbove) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kUsersTree, Keys::GroupsOfUser(9));
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kUsersTree, Keys::User(9));
    user.PressKey(window, controls::kKeyBack);
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kUsersTree, Keys::Root());
  });
}

TEST_F(GoToAccount, WhatHasGoneMeanwhileIsPassedOverOnTheWayBack) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
    user.PressKey(window, controls::kKeyReturn);
    user.Select(window.Users.TreeView1, At(window, kUsersTree, Keys::GroupOfUser(9, 12)));
    user.PressKey(window, controls::kKeyReturn);
    window.Users.TreeView1.Remove(At(window, kUsersTree, Keys::User(9)));
    user.PressKey(window, controls::kKeyBack);
    ExpectAt(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
  });
}

TEST_F(GoToAccount, OtherNodesLeadNowhere) {
  Run([this](frmUserGroupPerm& window) {
    log.calls.clear();
    for (const std::wstring& key : {Keys::Root(), Keys::User(9), Keys::GroupsOfUser(9),
                                    Keys::OwnPermissions(9), Keys::AllPermissions(9)}) {
      Select(window, kUsersTree, key);
      user.PressKey(window, controls::kKeyReturn);
      ExpectAt(window, kUsersTree, key);
      EXPECT_EQ(Offered(window, kUsersTree), (std::vector<bool>{false, false}));
    }
    for (const std::wstring& key :
         {Keys::Root(), Keys::Group(6), Keys::MembersOfGroup(6), Keys::GroupPermissions(6)}) {
      Select(window, kGroupsTree, key);
      user.PressKey(window, controls::kKeyReturn);
      ExpectAt(window, kGroupsTree, key);
    }
    EXPECT_TRUE(log.calls.empty());
  });
}

// The groups tree goes on listing a member who has been deleted by somebody else.
TEST_F(GoToAccount, AnAccountWithoutANodeIsNotReached) {
  Run([this](frmUserGroupPerm& window) {
    window.Users.TreeView1.Remove(At(window, kUsersTree, Keys::User(9)));
    Select(window, kGroupsTree, Keys::MemberOfGroup(12, 9));
    EXPECT_EQ(Offered(window, kGroupsTree), (std::vector<bool>{false, false}));
    user.PressKey(window, controls::kKeyReturn);
    ExpectAt(window, kGroupsTree, Keys::MemberOfGroup(12, 9));
  });
}

TEST_F(GoToAccount, TheMenuLeadsThereAndBack) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    EXPECT_EQ(Offered(window, kUsersTree), (std::vector<bool>{true, false}));
    ChooseFromMenu(window, kUsersTree, L"&Atteindre le compte\tEntrée");
    ExpectAt(window, kGroupsTree, Keys::Group(12));
    EXPECT_EQ(Offered(window, kGroupsTree), (std::vector<bool>{false, true}));
    ChooseFromMenu(window, kGroupsTree, L"Re&venir\tRetour arrière");
    ExpectAt(window, kUsersTree, Keys::GroupOfUser(9, 12));
  });
}

TEST_F(GoToAccount, TheKeysBelongToTheTreeThatHasTheFocus) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.Focus(window.TabStrip1);
    user.PressKey(window, controls::kKeyReturn);
    user.PressKey(window, controls::kKeyBack);
    EXPECT_EQ(window.TabStrip1.SelectedTab(), kUsersTree);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(9, 12));
  });
}

}  // namespace
}  // namespace browser
