#include "UserDialogTest.h"

namespace dialogs {
namespace {

class UserDialogList : public UserDialogTest {
 protected:
  static int Item(std::int32_t id) { return id - 1; }
};

TEST_F(UserDialogList, AllAndNoneCheckAndUncheckEveryPermission) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Click(dialog.cmdBtn[12]);
    EXPECT_EQ(Checked(dialog.List1[2]), All(30));
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2, 7, 12}));
    user.Click(dialog.cmdBtn[22]);
    EXPECT_EQ(Checked(dialog.List1[2]), Ids{});
    Discard(dialog);
  });
}

TEST_F(UserDialogList, AllChecksEveryGroupWithoutAWordAboutWhatIsChecked) {
  New([this](frmNewUser& dialog) {
    user.Click(dialog.cmdBtn[11]);
    EXPECT_EQ(Checked(dialog.List1[1]), All(12));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, TheButtonsFollowTheNumberOfChecks) {
  New([this](frmNewUser& dialog) {
    const auto states = [&] {
      return std::pair(dialog.cmdBtn[12].Enabled(), dialog.cmdBtn[22].Enabled());
    };
    EXPECT_EQ(states(), std::pair(true, false));
    user.Toggle(dialog.List1[2], 4);
    EXPECT_EQ(states(), std::pair(true, true));
    user.Click(dialog.cmdBtn[12]);
    EXPECT_EQ(states(), std::pair(false, true));
    user.Toggle(dialog.List1[2], 4);
    EXPECT_EQ(states(), std::pair(true, true));
    user.Click(dialog.cmdBtn[22]);
    EXPECT_EQ(states(), std::pair(true, false));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, AButtonThatDisablesItselfPassesTheFocusOn) {
  New([this](frmNewUser& dialog) {
    user.Click(dialog.cmdBtn[12]);
    EXPECT_TRUE(dialog.cmdBtn[22].HasFocus());
    user.Click(dialog.cmdBtn[22]);
    EXPECT_TRUE(dialog.cmdOK.HasFocus());
    Discard(dialog);
  });
}

TEST_F(UserDialogList, UncheckingEveryoneIsRefusedOnceAndTheTickComesBack) {
  const auto uncheck = [this](UserDialog& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Toggle(dialog.List1[1], Item(kEveryone));
    EXPECT_TRUE(dialog.List1[1].Selected(Item(kEveryone)));
    Discard(dialog);
  };
  New(uncheck);
  Edit(kMartin, uncheck);
}

TEST_F(UserDialogList, TheRefusalComesBeforeTheTick) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    const auto answer = desktop.Instead.MsgBox;
    // Native message boxes are real, and nobody can look at the list meanwhile.
    if (!answer) return dialog.Unload();
    bool checkedMeanwhile = true;
    desktop.Instead.MsgBox = [&](const std::wstring& prompt, int style, const std::wstring& title) {
      checkedMeanwhile = dialog.List1[1].Selected(Item(kEveryone));
      return answer(prompt, style, title);
    };
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Toggle(dialog.List1[1], Item(kEveryone));
    desktop.Instead.MsgBox = answer;
    EXPECT_FALSE(checkedMeanwhile);
    Discard(dialog);
  });
}

TEST_F(UserDialogList, TheRuleAlsoSpeaksWhenAProtectedGroupIsChecked) {
  Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 2");
  Edit(kMartin, [this](frmEditUser& dialog) {
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{7, 12}));
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Toggle(dialog.List1[1], Item(kEveryone));
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2, 7, 12}));
    Discard(dialog);
  });
  Edit(kMartin, [this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Click(dialog.cmdBtn[11]);
    EXPECT_EQ(Checked(dialog.List1[1]), All(12));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, AdministratorsIsProtectedOnlyWhereItMayNotBeTakenAway) {
  Edit(
      kAdmin,
      [this](frmEditUser& dialog) {
        ExpectInformation(Refusal(L"Administrateurs"));
        user.Toggle(dialog.List1[1], Item(kAdministrators));
        EXPECT_EQ(Checked(dialog.List1[1]), (Ids{1, 2}));
        Discard(dialog);
      },
      false);
  Edit(2, [this](frmEditUser& dialog) {
    user.Toggle(dialog.List1[1], Item(kAdministrators));
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2, 11}));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, ANewUserMayBeTakenOutOfAdministratorsAgain) {
  New([this](frmNewUser& dialog) {
    user.Toggle(dialog.List1[1], Item(kAdministrators));
    user.Toggle(dialog.List1[1], Item(kAdministrators));
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2}));
    Discard(dialog);
  });
}

TEST_F(UserDialogList, NoneLeavesTheProtectedGroupsCheckedAndNamesThemInOneMessage) {
  New([this](frmNewUser& dialog) {
    user.Click(dialog.cmdBtn[11]);
    ExpectInformation(Refusal(L"Everyone"));
    user.Click(dialog.cmdBtn[21]);
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2}));
    Discard(dialog);
  });
  Edit(kMartin, [this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Everyone"));
    user.Click(dialog.cmdBtn[21]);
    EXPECT_EQ(Checked(dialog.List1[1]), (Ids{2}));
    Discard(dialog);
  });
  Edit(
      kAdmin,
      [this](frmEditUser& dialog) {
        user.Click(dialog.cmdBtn[11]);
        ExpectInformation(
            L"Impossible de supprimer l'utilisateur de 'Administrators'/ 'Everyone' le groupe.");
        user.Click(dialog.cmdBtn[21]);
        EXPECT_EQ(Checked(dialog.List1[1]), (Ids{1, 2}));
        // The rule speaks again afterwards.
        ExpectInformation(Refusal(L"Administrateurs"));
        user.Toggle(dialog.List1[1], Item(kAdministrators));
        Discard(dialog);
      },
      false);
}

TEST_F(UserDialogList, AnIdentifierOf0ProtectsNothing) {
  Raw().Execute("UPDATE QRGROUP SET GROUPID = 0 WHERE GROUPID = 3");
  Raw().Execute("UPDATE QRUSGP SET GROUPID = 0 WHERE GROUPID = 3");
  frmEditUser dialog(exchange);
  dialog.UserID = 3;
  dialog.IsRemoveAdministrator = false;
  Show<frmEditUser>(dialog, [this](frmEditUser& shown) {
    ASSERT_EQ(shown.List1[1].ItemData(0), 0);
    ASSERT_TRUE(shown.List1[1].Selected(0));
    user.Toggle(shown.List1[1], 0);
    EXPECT_FALSE(shown.List1[1].Selected(0));
    ExpectInformation(Refusal(L"'/ '"));
    user.Click(shown.cmdBtn[21]);
    EXPECT_EQ(Checked(shown.List1[1]), Ids{});
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
  asksAfter([this](frmEditUser& dialog) { user.Toggle(dialog.List1[1], 4); });
  asksAfter([this](frmEditUser& dialog) { user.Toggle(dialog.List1[2], 4); });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[11]); });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[12]); });
  asksAfter([this](frmEditUser& dialog) { user.Click(dialog.cmdBtn[22]); });
  asksAfter([this](frmEditUser& dialog) {
    ExpectInformation(Refusal(L"Tout le monde"));
    user.Toggle(dialog.List1[1], Item(kEveryone));
  });
}

TEST_F(UserDialogList, MovingThroughAListChangesNothing) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Choose(dialog.List1[1], 3);
    user.Choose(dialog.List1[2], 5);
    user.Click(dialog.cmdCancel);
  });
}

}  // namespace
}  // namespace dialogs
