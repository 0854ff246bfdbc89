#include "UserDialogTest.h"

namespace dialogs {
namespace {

class UserDialogChecks : public UserDialogTest {
 protected:
  // OK must tell this and leave the dialog open with nothing written.
  void ExpectRefused(UserDialog& dialog, const std::wstring& prompt) {
    ClearLog();
    ExpectInformation(prompt);
    user.Click(dialog.cmdOK);
    EXPECT_TRUE(dialog.IsLoaded());
    EXPECT_EQ(log.calls, Calls{});
  }
  void ExpectFocusWithAllSelected(const controls::TextBox& box) {
    EXPECT_TRUE(box.HasFocus());
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), static_cast<int>(box.Text().size()));
  }
  void ExpectEmptyPasswords(const UserDialog& dialog) {
    EXPECT_TRUE(dialog.txtPassword.HasFocus());
    EXPECT_EQ(dialog.txtPassword.Text(), L"");
    EXPECT_EQ(dialog.txtVerify.Text(), L"");
  }
};

TEST_F(UserDialogChecks, ANameOfBlanksIsNone) {
  const auto refuse = [this](UserDialog& dialog) {
    for (const wchar_t* name : {L"", L"   "}) {
      user.Focus(dialog.txtUserName);
      dialog.txtUserName.SetText(name);
      ExpectRefused(dialog, kNoName);
      ExpectFocusWithAllSelected(dialog.txtUserName);
    }
    EXPECT_EQ(user.BeepCount(), 0);
    Discard(dialog);
  };
  New([&](frmNewUser& dialog) {
    Fill(dialog, L"", L"", L"secret-1");
    refuse(dialog);
  });
  Edit(kMartin, refuse);
}

TEST_F(UserDialogChecks, ARefusedNameIsSelectedAlsoWhenEnterWasPressedInIt) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtUserName, L"roux");
    ASSERT_EQ(dialog.txtUserName.SelLength(), 0);
    ExpectInformation(kTaken);
    user.PressKey(dialog, test_support::kKeyEnter);
    ExpectFocusWithAllSelected(dialog.txtUserName);
    Discard(dialog);
  });
}

TEST_F(UserDialogChecks, APasswordOf5CharactersOrOfBlanksIsTooShort) {
  const auto refuse = [this](UserDialog& dialog) {
    int beeps = user.BeepCount();
    for (const wchar_t* password : {L"", L"abcde", L"      ", L" abcde "}) {
      user.Focus(dialog.txtFullName);
      dialog.txtPassword.SetText(password);
      dialog.txtVerify.SetText(password);
      ExpectRefused(dialog, kTooShort);
      ExpectEmptyPasswords(dialog);
      EXPECT_EQ(user.BeepCount(), ++beeps);
    }
    Discard(dialog);
  };
  New([&](frmNewUser& dialog) {
    user.Type(dialog.txtUserName, L"Nouveau");
    refuse(dialog);
  });
  Edit(kMartin, refuse);
}

TEST_F(UserDialogChecks, APasswordOf6CharactersIsAccepted) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"", L"abcdef");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(kNextUser), L"abcdef");
  Edit(kMartin, [this](frmEditUser& dialog) {
    Fill(dialog, L"Martin", L"", L"fedcba");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(kMartin), L"fedcba");
}

TEST_F(UserDialogChecks, PasswordsThatDifferAreRefusedAndEmptied) {
  const auto refuse = [this](UserDialog& dialog) {
    for (const wchar_t* verify : {L"secret-2", L"Secret-1", L"secret-1 ", L""}) {
      dialog.txtPassword.SetText(L"secret-1");
      dialog.txtVerify.SetText(verify);
      ExpectRefused(dialog, kMismatch);
      ExpectEmptyPasswords(dialog);
    }
    EXPECT_EQ(user.BeepCount(), 0);
    Discard(dialog);
  };
  New([&](frmNewUser& dialog) {
    user.Type(dialog.txtUserName, L"Nouveau");
    refuse(dialog);
  });
  Edit(kMartin, refuse);
}

TEST_F(UserDialogChecks, ANewPasswordInOneBoxOnlyIsRefused) {
  for (const bool first : {true, false}) {
    Edit(kMartin, [&](frmEditUser& dialog) {
      user.Type(first ? dialog.txtPassword : dialog.txtVerify, L"secret-1");
      ExpectRefused(dialog, kMismatch);
      ExpectEmptyPasswords(dialog);
      Discard(dialog);
    });
  }
}

TEST_F(UserDialogChecks, AnUntouchedPasswordPassesAlsoWhereItIsNoPatternForItself) {
  const std::wstring odd = L"[Vardex]";
  const std::wstring stored = Database().OpenServer()->EncryptPassword(odd, kMartin);
  Raw().Execute("UPDATE QRUSER SET PASSWORD = '" + data::ToUtf8(stored) + "' WHERE USERID = 9");
  Edit(kMartin, [this](frmEditUser& dialog) { user.Click(dialog.cmdOK); });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(StoredPassword(kMartin), odd);
}

TEST_F(UserDialogChecks, TwoDifferentPatternsForTheLoadedPasswordPassAndTheFirstIsStored) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtPassword, L"Vardex*");
    user.Type(dialog.txtVerify, L"V?rd[a-f]x-####");
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(StoredPassword(kMartin), L"Vardex*");
}

TEST_F(UserDialogChecks, PatternsAreTakenWithoutTheBlanksAroundThem) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Paste(dialog.txtPassword, L" Vardex* ");
    user.Paste(dialog.txtVerify, L"*2026  ");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(kMartin), L" Vardex* ");
}

TEST_F(UserDialogChecks, APatternThatDoesNotMatchOrIsNoneIsComparedAsAText) {
  for (const wchar_t* first : {L"vardex*", L"Vardex[*", L"Vardex-2025"}) {
    Edit(kMartin, [&](frmEditUser& dialog) {
      user.Type(dialog.txtPassword, first);
      user.Type(dialog.txtVerify, L"Vardex*");
      ExpectRefused(dialog, kMismatch);
      Discard(dialog);
    });
  }
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtPassword, L"Vardex[*");
    user.Type(dialog.txtVerify, L"Vardex[*");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(kMartin), L"Vardex[*");
}

TEST_F(UserDialogChecks, ANewUserKnowsNoPatterns) {
  New([this](frmNewUser& dialog) {
    user.Type(dialog.txtUserName, L"Nouveau");
    user.Type(dialog.txtPassword, L"******");
    user.Type(dialog.txtVerify, L"*******");
    ExpectRefused(dialog, kMismatch);
    Discard(dialog);
  });
}

TEST_F(UserDialogChecks, ANameThatAnotherUserHasIsRefusedWhateverItsCase) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"  martin ", L"", L"secret-1");
    ExpectRefused(dialog, kTaken);
    ExpectFocusWithAllSelected(dialog.txtUserName);
    EXPECT_EQ(dialog.txtPassword.Text(), L"secret-1");
    Discard(dialog);
  });
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtUserName, L"ROUX");
    ExpectRefused(dialog, kTaken);
    ExpectFocusWithAllSelected(dialog.txtUserName);
    Discard(dialog);
  });
}

TEST_F(UserDialogChecks, AUserKeepsItsOwnNameAlsoInAnotherCase) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtUserName, L"MARTIN");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(kMartin, "NAME"), "MARTIN");
}

TEST_F(UserDialogChecks, TheNameOfADeletedUserIsFreeAgain) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Garnier", L"", L"secret-1");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(kNextUser, "NAME"), "Garnier");
  EXPECT_EQ(Column(17, "NAME"), "Garnier(17)");
}

TEST_F(UserDialogChecks, ANewUserIsAskedForNameLengthUniquenessAndMatchInThisOrder) {
  New([this](frmNewUser& dialog) {
    user.Type(dialog.txtPassword, L"abc");
    user.Type(dialog.txtVerify, L"abd");
    ExpectRefused(dialog, kNoName);
    user.Type(dialog.txtUserName, L"Martin");
    ExpectRefused(dialog, kTooShort);
    user.Type(dialog.txtPassword, L"secret-1");
    user.Type(dialog.txtVerify, L"secret-2");
    ExpectRefused(dialog, kTaken);
    user.Type(dialog.txtUserName, L"Nouveau");
    ExpectRefused(dialog, kMismatch);
    user.Type(dialog.txtPassword, L"secret-1");
    user.Type(dialog.txtVerify, L"secret-1");
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(UserDialogChecks, AnExistingUserIsAskedForNameLengthMatchAndUniquenessInThisOrder) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Paste(dialog.txtUserName, L" ");
    user.Type(dialog.txtPassword, L"abc");
    user.Type(dialog.txtVerify, L"abd");
    ExpectRefused(dialog, kNoName);
    user.Type(dialog.txtUserName, L"Roux");
    ExpectRefused(dialog, kTooShort);
    user.Type(dialog.txtPassword, L"secret-1");
    user.Type(dialog.txtVerify, L"secret-2");
    ExpectRefused(dialog, kMismatch);
    user.Type(dialog.txtPassword, L"secret-1");
    user.Type(dialog.txtVerify, L"secret-1");
    ExpectRefused(dialog, kTaken);
    user.Type(dialog.txtUserName, L"Nouveau");
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(UserDialogChecks, ARefusalLeavesTheChangesToBeAskedFor) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"", L"Jean", L"secret-1");
    ExpectRefused(dialog, kNoName);
    ExpectDiscardQuestion(controls::kResultNo);
    user.Click(dialog.cmdCancel);
    EXPECT_TRUE(dialog.IsLoaded());
    Discard(dialog);
  });
}

}  // namespace
}  // namespace dialogs
