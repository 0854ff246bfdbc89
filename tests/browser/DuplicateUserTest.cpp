#include <gtest/gtest.h>

#include "dialogs/frmNewUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;

// A new user who begins with what another one has.
class DuplicateUser : public CommandTest {
 protected:
  using Ids = std::vector<std::int32_t>;

  static Ids Checked(const controls::ListBox& list) {
    Ids ids;
    for (int item = 0; item < list.ListCount(); ++item) {
      if (list.Selected(item)) ids.push_back(list.ItemData(item));
    }
    std::ranges::sort(ids);
    return ids;
  }

  void Duplicate(frmUserGroupPerm& window,
                 const std::function<void(dialogs::frmNewUser& dialog)>& use) {
    user.ExpectModal(
        [use](controls::Form& form) { use(dynamic_cast<dialogs::frmNewUser&>(form)); });
    user.PressCtrl(window, 'D');
  }

  void FillIn(dialogs::frmNewUser& dialog, const wchar_t* name) {
    user.Type(dialog.txtUserName, name);
    user.Type(dialog.txtPassword, L"secret1");
    user.Type(dialog.txtVerify, L"secret1");
  }

  Ids Links(const std::string& query) {
    Ids ids;
    auto raw = Raw();
    for (const auto& row : raw.Rows(query)) ids.push_back(std::stoi(row[0]));
    return ids;
  }
};

TEST_F(DuplicateUser, ChecksTheGroupsAndOwnPermissionsAndLeavesTheRestEmpty) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    Duplicate(window, [this](dialogs::frmNewUser& dialog) {
      EXPECT_EQ(dialog.Caption(), L"Nouvel Utilisateur");
      EXPECT_EQ(Checked(dialog.List1[test_support::kGroupsList]), (Ids{2, 7, 12}));
      EXPECT_EQ(Checked(dialog.List1[test_support::kPermissionsList]), (Ids{14, 20}));
      EXPECT_EQ(dialog.txtUserName.Text(), L"");
      EXPECT_EQ(dialog.txtFullName.Text(), L"");
      EXPECT_EQ(dialog.txtPassword.Text(), L"");
      EXPECT_EQ(dialog.txtVerify.Text(), L"");
      // Nothing has been changed yet: no question.
      user.PressKey(dialog, test_support::kKeyEscape);
      EXPECT_FALSE(dialog.IsLoaded());
    });
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
  });
}

TEST_F(DuplicateUser, SavesANewUserWithThem) {
  Run([this](frmUserGroupPerm& window) {
    // From any node of the user.
    Select(window, kUsersTree, Keys::OwnPermission(9, 14));
    Duplicate(window, [this](dialogs::frmNewUser& dialog) {
      FillIn(dialog, L"Zola");
      user.Click(dialog.cmdOK);
    });
    const std::int32_t id =
        static_cast<std::int32_t>(Raw().Number("SELECT USERID FROM QRUSER WHERE NAME = 'Zola'"));
    const std::string of = " WHERE USERID = " + std::to_string(id) + " ORDER BY 1";
    EXPECT_EQ(Links("SELECT GROUPID FROM QRUSGP" + of), (Ids{2, 7, 12}));
    EXPECT_EQ(Links("SELECT PERMID FROM QRUPRM" + of), (Ids{14, 20}));
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(id));
    EXPECT_EQ(window.Users.accountCount, 40);
    ExpectInStep(window);
  });
}

TEST_F(DuplicateUser, SendsWhatANewUserWithTheSameChecksSends) {
  const auto statements = [this](const std::function<void(frmUserGroupPerm&)>& command) {
    UseSample();
    Strings sent;
    Run([&](frmUserGroupPerm& window) {
      Select(window, kUsersTree, Keys::User(9));
      log.statements.clear();
      command(window);
      sent = log.statements;
    });
    return sent;
  };
  const Strings duplicated = statements([this](frmUserGroupPerm& window) {
    Duplicate(window, [this](dialogs::frmNewUser& dialog) {
      FillIn(dialog, L"Zola");
      user.Click(dialog.cmdOK);
    });
  });
  const Strings made = statements([this](frmUserGroupPerm& window) {
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmNewUser&>(form);
      for (const int list : {test_support::kGroupsList, test_support::kPermissionsList}) {
        controls::ListBox& items = dialog.List1[list];
        for (int item = 0; item < items.ListCount(); ++item) {
          const std::int32_t id = items.ItemData(item);
          const bool wanted =
              list == test_support::kGroupsList ? id == 7 || id == 12 : id == 14 || id == 20;
          if (wanted) user.Toggle(items, item);
        }
      }
      FillIn(dialog, L"Zola");
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Users.cmdUser[kNewButton]);
  });
  EXPECT_FALSE(duplicated.empty());
  EXPECT_EQ(duplicated, made);
}

TEST_F(DuplicateUser, LeavesOutWhatHasGoneMeanwhile) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("UPDATE QRGROUP SET VFLG = 'D', NAME = 'x(12)' WHERE GROUPID = 12");
    Raw().Execute("DELETE FROM QRPERM WHERE PERMID = 14");
    Select(window, kUsersTree, Keys::User(9));
    Duplicate(window, [this](dialogs::frmNewUser& dialog) {
      EXPECT_EQ(Checked(dialog.List1[test_support::kGroupsList]), (Ids{2, 7}));
      EXPECT_EQ(Checked(dialog.List1[test_support::kPermissionsList]), (Ids{20}));
      user.PressKey(dialog, test_support::kKeyEscape);
    });
  });
}

// Whoever is not in it yet becomes a member of Everyone, and nobody is taken out of it.
TEST_F(DuplicateUser, KeepsTheGroupOfAllUsersChecked) {
  Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 2");
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    Duplicate(window, [this](dialogs::frmNewUser& dialog) {
      controls::ListBox& groups = dialog.List1[test_support::kGroupsList];
      EXPECT_EQ(Checked(groups), (Ids{2, 7, 12}));
      int everyone = 0;
      while (groups.ItemData(everyone) != 2) ++everyone;
      user.ExpectMsgBox(controls::kResultOk);
      user.Toggle(groups, everyone);
      EXPECT_TRUE(groups.Selected(everyone));
      user.ExpectMsgBox(controls::kResultYes);
      user.PressKey(dialog, test_support::kKeyEscape);
    });
  });
}

TEST_F(DuplicateUser, IsThereForUsersAloneAndWhileNamesAreKnown) {
  Run([this](frmUserGroupPerm& window) {
    log.calls.clear();
    Select(window, kUsersTree, Keys::Root());
    user.PressCtrl(window, 'D');
    Select(window, kGroupsTree, Keys::Group(6));
    user.PressCtrl(window, 'D');
    Select(window, kUsersTree, Keys::User(9));
    user.PressKey(window, 'D');
    EXPECT_TRUE(log.calls.empty());
    log.FailAt = [](const std::wstring& call) { return call == L"EndRead" ? 3L : 0L; };
    user.ExpectMsgBox(controls::kResultOk);
    user.PressKey(window, controls::kKeyF5);
    log.FailAt = {};
    Select(window, kUsersTree, Keys::User(9));
    log.calls.clear();
    user.PressCtrl(window, 'D');
    EXPECT_TRUE(log.calls.empty());
  });
}

}  // namespace
}  // namespace browser
