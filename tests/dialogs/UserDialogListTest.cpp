#include "UserDialogTest.h"

namespace dialogs {
namespace {

class UserDialogList : public UserDialogTest {
 protected:
  static bool IsInEveryone(const UserDialog& dialog) {
    const controls::ListBox& groups = dialog.List1[UserDialog::kGroups];
    return groups.Selected(ItemOf(groups, L"Tout le monde"));
  }
};

TEST_F(UserDialogList, AllAndNoneCheckAndUncheckEveryPermission) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), All(30));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2, 7, 12}));
    user.Click(dialog.cmdBtn[dialog.kNoPermission]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), Ids{});
    Discard(dialog);
  });
}

TEST_F(UserDialogList, AllChecksEveryGroupWithoutAWordAboutWhatIsChecked) {
  New([this](frmNewUser& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllGroups]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), All(12));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, TheButtonsFollowTheNumberOfChecks) {
  New([this](frmNewUser& dialog) {
    const auto states = [&] {
      return std::pair(dialog.cmdBtn[dialog.kAllPermissions].Enabled(),
                       dialog.cmdBtn[dialog.kNoPermission].Enabled());
    };
    EXPECT_EQ(states(), std::pair(true, false));
    Toggle(dialog.List1[dialog.kPermissions], L"Saisir une commande");
    EXPECT_EQ(states(), std::pair(true, true));
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    EXPECT_EQ(states(), std::pair(false, true));
    Toggle(dialog.List1[dialog.kPermissions], L"Saisir une commande");
    EXPECT_EQ(states(), std::pair(true, true));
    user.Click(dialog.cmdBtn[dialog.kNoPermission]);
    EXPECT_EQ(states(), std::pair(true, false));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, UncheckingEveryoneIsRefusedOnceAndTheTickComesBack) {
  const auto uncheck = [this](UserDialog& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    Toggle(dialog.List1[dialog.kGroups], L"Tout le monde");
    EXPECT_TRUE(IsInEveryone(dialog));
    Discard(dialog);
  };
  New(uncheck);
  Edit(kMartin, uncheck);
}

TEST_F(UserDialogList, TheRefusalComesBeforeTheTick) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    const auto answer = desktop.system.answers.MsgBox;
    // Native message boxes are real, and nobody can look at the list meanwhile.
    if (!answer) return dialog.Unload();
    bool checkedMeanwhile = true;
    desktop.system.answers.MsgBox = [&](const std::wstring& prompt, int style,
                                        const std::wstring& title) {
      checkedMeanwhile = IsInEveryone(dialog);
      return answer(prompt, style, title);
    };
    ExpectInformation(Refusal(L"Tout le monde"));
    Toggle(dialog.List1[dialog.kGroups], L"Tout le monde");
    desktop.system.answers.MsgBox = answer;
    EXPECT_FALSE(checkedMeanwhile);
    Discard(dialog);
  });
}

TEST_F(UserDialogList, TheRuleAlsoSpeaksWhenAProtectedGroupIsChecked) {
  Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 2");
  Edit(kMartin, [this](frmEditUser& dialog) {
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{7, 12}));
    ExpectInformation(Refusal(L"Tout le monde"));
    Toggle(dialog.List1[dialog.kGroups], L"Tout le monde");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2, 7, 12}));
    Discard(dialog);
  });
  Edit(kMartin, [this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Click(dialog.cmdBtn[dialog.kAllGroups]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), All(12));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, AdministratorsIsProtectedOnlyWhereItMayNotBeTakenAway) {
  Edit(
      kAdmin,
      [this](frmEditUser& dialog) {
        ExpectInformation(Refusal(L"Administrateurs"));
        Toggle(dialog.List1[dialog.kGroups], L"Administrateurs");
        EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{1, 2}));
        Discard(dialog);
      },
      false);
  Edit(2, [this](frmEditUser& dialog) {
    Toggle(dialog.List1[dialog.kGroups], L"Administrateurs");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2, 11}));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, ANewUserMayBeTakenOutOfAdministratorsAgain) {
  New([this](frmNewUser& dialog) {
    Toggle(dialog.List1[dialog.kGroups], L"Administrateurs");
    Toggle(dialog.List1[dialog.kGroups], L"Administrateurs");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2}));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, NoneLeavesTheProtectedGroupsCheckedAndNamesThemInOneMessage) {
  New([this](frmNewUser& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllGroups]);
    ExpectInformation(Refusal(L"Everyone"));
    user.Click(dialog.cmdBtn[dialog.kNoGroup]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2}));
    Discard(dialog);
  });
  Edit(kMartin, [this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Everyone"));
    user.Click(dialog.cmdBtn[dialog.kNoGroup]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2}));
    Discard(dialog);
  });
  Edit(
      kAdmin,
      [this](frmEditUser& dialog) {
        user.Click(dialog.cmdBtn[dialog.kAllGroups]);
        ExpectInformation(
            L"Impossible de supprimer l'utilisateur de 'Administrators'/ 'Everyone' le groupe.");
        user.Click(dialog.cmdBtn[dialog.kNoGroup]);
        EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{1, 2}));
        // The rule speaks again afterwards.
        ExpectInformation(Refusal(L"Administrateurs"));
        Toggle(dialog.List1[dialog.kGroups], L"Administrateurs");
        Discard(dialog);
      },
      false);
}

TEST_F(UserDialogList, AButtonThatSwitchesItselfOffHandsTheFocusToItsList) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Focus(dialog.cmdBtn[dialog.kNoPermission]);
    user.PressKey(dialog, test_support::kKeySpace);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), Ids{});
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].HasFocus());
    // The impatient second stroke must not save.
    user.PressKey(dialog, test_support::kKeySpace);
    EXPECT_TRUE(dialog.IsLoaded());
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].HasFocus());
    user.Click(dialog.cmdBtn[dialog.kAllGroups]);
    EXPECT_TRUE(dialog.List1[dialog.kGroups].HasFocus());
    Discard(dialog);
  });
  EXPECT_EQ(Permissions(kMartin), (Ids{14, 20}));
}

TEST_F(UserDialogList, AnIdentifierOf0ProtectsNothing) {
  Raw().Execute("UPDATE QRGROUP SET GROUPID = 0 WHERE GROUPID = 3");
  Raw().Execute("UPDATE QRUSGP SET GROUPID = 0 WHERE GROUPID = 3");
  frmEditUser dialog(exchange);
  dialog.UserID = 3;
  dialog.IsRemoveAdministrator = false;
  Show<frmEditUser>(dialog, [this](frmEditUser& shown) {
    controls::ListBox& groups = shown.List1[shown.kGroups];
    const int direction = ItemOf(groups, L"Direction");
    ASSERT_EQ(groups.ItemData(direction), 0);
    ASSERT_TRUE(groups.Selected(direction));
    user.Toggle(groups, direction);
    EXPECT_FALSE(groups.Selected(direction));
    ExpectInformation(Refusal(L"'/ '"));
    user.Click(shown.cmdBtn[shown.kNoGroup]);
    EXPECT_EQ(SelectedIds(shown.List1[shown.kGroups]), Ids{});
    Discard(shown);
  });
}

TEST_F(UserDialogList, EveryChangeOfACheckCountsAsAChange) {
  const auto asksAfter = [this](const EditScript& change) {
    Edit(kMartin, [&](frmEditUser& dialog) {
      change(dialog);
      Discard(dialog);
    });
  };
  asksAfter([this](frmEditUser& dialog) {
    Toggle(dialog.List1[dialog.kGroups], L"Ressources humaines");
  });
  asksAfter([this](frmEditUser& dialog) {
    Toggle(dialog.List1[dialog.kPermissions], L"Saisir une commande");
  });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[dialog.kAllGroups]); });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[dialog.kAllPermissions]); });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[dialog.kNoPermission]); });
  asksAfter([this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    Toggle(dialog.List1[dialog.kGroups], L"Tout le monde");
  });
}

TEST_F(UserDialogList, MovingThroughAListChangesNothing) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    Choose(dialog.List1[dialog.kGroups], L"Comptabilité");
    Choose(dialog.List1[dialog.kPermissions], L"Valider une commande");
    user.Click(dialog.cmdCancel);
  });
}

}  // namespace
}  // namespace dialogs
