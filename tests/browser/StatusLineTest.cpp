#include <gtest/gtest.h>

#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;

constexpr const wchar_t* kAllCounts = L"39 utilisateurs, 12 groupes, 30 permissions";

// What the status line says of the last command, and who the program works as.
class StatusLine : public CommandTest {
 protected:
  // Checks the first items of a list of choices.
  void Assign(frmUserGroupPerm& window, int tree, const std::wstring& key,
              controls::CommandButton& assign, int items) {
    Select(window, tree, key);
    user.ExpectModal([this, items](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmListItem&>(form);
      for (int item = 0; item < items; ++item) user.Toggle(dialog.List1, item);
      user.Click(dialog.cmdOK);
    });
    user.Click(assign);
  }

  void AddMembers(frmUserGroupPerm& window, const std::wstring& key,
                  const std::function<void(dialogs::frmAddUserInGroup& dialog)>& use) {
    Select(window, kGroupsTree, key);
    user.ExpectModal([this, use](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmAddUserInGroup&>(form);
      use(dialog);
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
  }

  void Remove(frmUserGroupPerm& window, int tree, const std::wstring& key, int answer) {
    Select(window, tree, key);
    user.ExpectMsgBox(answer);
    user.PressKey(window, controls::kKeyDelete);
  }

  static std::wstring Status(const frmUserGroupPerm& window) { return window.lblStatus.Caption(); }
};

TEST_F(StatusLine, SaysHowManyWereAssignedAndToWhom) {
  Run([this](frmUserGroupPerm& window) {
    Assign(window, kUsersTree, Keys::User(9), window.Users.cmdMemberOf[kAssignButton], 2);
    EXPECT_EQ(Status(window), L"2 groupes affectés à Martin");
    Assign(window, kUsersTree, Keys::GroupsOfUser(9), window.Users.cmdMemberOf[kAssignButton], 1);
    EXPECT_EQ(Status(window), L"1 groupe affecté à Martin");
    Assign(window, kUsersTree, Keys::OwnPermissions(9),
           window.Users.cmdUserPermission[kAssignButton], 3);
    EXPECT_EQ(Status(window), L"3 permissions affectées à Martin");
    Assign(window, kGroupsTree, Keys::Group(6), window.Groups.cmdGroupPermission[kAssignButton], 1);
    EXPECT_EQ(Status(window), L"1 permission affectée à Qualité");
  });
}

TEST_F(StatusLine, CountsNewMembersAlone) {
  Run([this](frmUserGroupPerm& window) {
    AddMembers(window, Keys::Group(12), [this](dialogs::frmAddUserInGroup& dialog) {
      // The first is selected already.
      user.Toggle(dialog.List1[test_support::kOutsideList], 1);
      user.Click(dialog.cmdBtn[test_support::kAddMarkedButton]);
    });
    EXPECT_EQ(Status(window), L"2 utilisateurs affectés à Laboratoire");
    AddMembers(window, Keys::Group(12), [](dialogs::frmAddUserInGroup&) {});
    EXPECT_EQ(Status(window), L"0 utilisateur affecté à Laboratoire");
    AddMembers(window, Keys::Group(12), [this](dialogs::frmAddUserInGroup& dialog) {
      user.Click(dialog.cmdBtn[test_support::kTakeAllButton]);
    });
    EXPECT_EQ(Status(window), L"Le groupe Laboratoire n'a plus de membres");
  });
}

TEST_F(StatusLine, SaysWhatWasTakenFromWhom) {
  struct Case {
    int tree;
    std::wstring key;
    const wchar_t* text;
  };
  const Case cases[] = {
      {kUsersTree, Keys::GroupOfUser(9, 12), L"Martin ne fait plus partie du groupe Laboratoire"},
      {kUsersTree, Keys::OwnPermission(9, 14), L"Permission Consulter le stock retirée à Martin"},
      {kGroupsTree, Keys::MemberOfGroup(6, 15),
       L"L'Hermitte ne fait plus partie du groupe Qualité"},
      {kGroupsTree, Keys::GroupPermission(12, 20),
       L"Permission Saisir un relevé de contrôle retirée à Laboratoire"},
      {kUsersTree, Keys::User(9), L"Utilisateur Martin supprimé"},
      {kGroupsTree, Keys::Group(6), L"Groupe Qualité supprimé"},
  };
  Run([&](frmUserGroupPerm& window) {
    for (const Case& test : cases) {
      Remove(window, test.tree, test.key, controls::kResultYes);
      EXPECT_EQ(Status(window), test.text);
    }
  });
}

TEST_F(StatusLine, SaysWhichAccountWasMadeOrChanged) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Root());
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmNewGroup&>(form);
      user.Type(dialog.txtGroupName, L"Zoo");
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Groups.cmdGroup[kNewButton]);
    EXPECT_EQ(Status(window), L"Groupe Zoo créé");
    for (const std::int32_t id : {1, 9}) {
      Select(window, kUsersTree, Keys::User(id));
      user.ExpectModal([this](controls::Form& form) {
        user.Click(dynamic_cast<dialogs::frmEditUser&>(form).cmdOK);
      });
      user.Click(window.Users.cmdUser[kEditButton]);
      EXPECT_EQ(Status(window),
                id == 1 ? L"Utilisateur Admin modifié" : L"Utilisateur Martin modifié");
    }
  });
}

TEST_F(StatusLine, SaysItUntilSomethingElseIsSelectedGivenOrRead) {
  Run([this](frmUserGroupPerm& window) {
    const auto change = [&] {
      Assign(window, kUsersTree, Keys::User(9), window.Users.cmdMemberOf[kAssignButton], 1);
      EXPECT_EQ(Status(window), L"1 groupe affecté à Martin");
    };
    change();
    Select(window, kUsersTree, Keys::User(10));
    EXPECT_EQ(Status(window), kAllCounts);
    Select(window, kUsersTree, Keys::User(9));
    EXPECT_EQ(Status(window), kAllCounts);
    change();
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    EXPECT_EQ(Status(window), kAllCounts);
    user.ChooseTab(window.TabStrip1, kUsersTree);
    EXPECT_EQ(Status(window), kAllCounts);
    change();
    // A command that is not gone through with.
    user.ExpectModal(
        [this](controls::Form& form) { user.PressKey(form, test_support::kKeyEscape); });
    user.PressKey(window, controls::kKeyF2);
    EXPECT_EQ(Status(window), kAllCounts);
    change();
    user.PressKey(window, controls::kKeyF5);
    EXPECT_EQ(Status(window), kAllCounts);
  });
}

TEST_F(StatusLine, SaysNothingOfWhatWasNotDone) {
  Run([this](frmUserGroupPerm& window) {
    Remove(window, kUsersTree, Keys::GroupOfUser(9, 12), controls::kResultNo);
    EXPECT_EQ(Status(window), kAllCounts);
    log.FailAt = [](const std::wstring& call) { return call.starts_with(L"DELETE") ? 3L : 0L; };
    Select(window, kUsersTree, Keys::OwnPermission(9, 14));
    user.ExpectMsgBox(controls::kResultYes);
    user.ExpectMsgBox(controls::kResultOk);
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_EQ(Status(window), kAllCounts);
    log.FailAt = {};
    // Somebody else was faster: that has been told.
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9 AND PERMID = 14");
    user.ExpectMsgBox(controls::kResultYes);
    user.ExpectMsgBox(controls::kResultOk);
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_EQ(Status(window), kAllCounts);
  });
}

TEST_F(StatusLine, ComesBeforeWhereAPermissionIsFrom) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::AnyPermission(9, 16));
    EXPECT_EQ(Status(window), L"Par le groupe Production");
    user.ExpectModal([this](controls::Form& form) {
      user.Click(dynamic_cast<dialogs::frmEditUser&>(form).cmdOK);
    });
    user.PressKey(window, controls::kKeyF2);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::AnyPermission(9, 16));
    EXPECT_EQ(Status(window), L"Utilisateur Martin modifié");
  });
}

TEST_F(StatusLine, TheUserOfTheSessionStandsBelowIt) {
  Run(
      [this](frmUserGroupPerm& window) {
        EXPECT_EQ(window.lblSession.Caption(), L"Session : " + global.sessionUserText);
      },
      L"Moreau");
  EXPECT_FALSE(global.sessionUserText.empty());
}

}  // namespace
}  // namespace browser
