#include "UserDialogTest.h"

namespace dialogs {
namespace {

class UserDialogTyping : public UserDialogTest {
 protected:
  const std::wstring twenty = L"abcdefghijklmnopqrst";
};

TEST_F(UserDialogTyping, EachBoxSelectsItsTextWhenItGetsTheFocus) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    for (controls::TextBox* box :
         {&dialog.txtUserName, &dialog.txtFullName, &dialog.txtPassword, &dialog.txtVerify}) {
      user.Focus(dialog.cmdOK);
      user.Focus(*box);
      EXPECT_EQ(box->SelStart(), 0);
      EXPECT_EQ(box->SelLength(), static_cast<int>(box->Text().size()));
    }
    dialog.Unload();
  });
}

TEST_F(UserDialogTyping, ABlankCannotBeTypedIntoEitherPasswordBox) {
  New([this](frmNewUser& dialog) {
    user.Type(dialog.txtPassword, L"ab cd");
    EXPECT_EQ(dialog.txtPassword.Text(), L"abcd");
    EXPECT_EQ(user.BeepCount(), 1);
    user.Type(dialog.txtVerify, L" a b ");
    EXPECT_EQ(dialog.txtVerify.Text(), L"ab");
    EXPECT_EQ(user.BeepCount(), 4);
    user.PressKey(dialog, test_support::kKeySpace);
    EXPECT_EQ(dialog.txtVerify.Text(), L"ab");
    user.Type(dialog.txtUserName, L"a b");
    user.Type(dialog.txtFullName, L"c d");
    EXPECT_EQ(dialog.txtUserName.Text(), L"a b");
    EXPECT_EQ(dialog.txtFullName.Text(), L"c d");
    Discard(dialog);
  });
}

TEST_F(UserDialogTyping, APastedBlankInTheMiddleStays) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"", L"abc def");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(kNextUser), L"abc def");
}

TEST_F(UserDialogTyping, TwentyCharactersAreTakenAndThe21stIsNot) {
  const auto type = [this](UserDialog& dialog) {
    for (controls::TextBox* box : {&dialog.txtPassword, &dialog.txtVerify}) {
      const int beeps = user.BeepCount();
      user.Type(*box, twenty);
      EXPECT_EQ(box->Text(), twenty);
      EXPECT_EQ(user.BeepCount(), beeps);
      ExpectInformation(kTooLong);
      user.Type(*box, L"u");
      EXPECT_EQ(box->Text(), twenty);
      EXPECT_EQ(user.BeepCount(), beeps + 1);
      EXPECT_TRUE(box->HasFocus());
      EXPECT_EQ(box->SelStart(), 0);
      EXPECT_EQ(box->SelLength(), 20);
    }
    Discard(dialog);
  };
  New(type);
  Edit(kMartin, type);
}

TEST_F(UserDialogTyping, Pasting25CharactersTellsItAndKeepsTheFirst20) {
  New([this](frmNewUser& dialog) {
    for (controls::TextBox* box : {&dialog.txtPassword, &dialog.txtVerify}) {
      ExpectInformation(kTooLong);
      user.Paste(*box, twenty + L"uvwxy");
      EXPECT_EQ(box->Text(), twenty);
      EXPECT_EQ(box->SelLength(), 20);
    }
    EXPECT_EQ(user.BeepCount(), 2);
    Discard(dialog);
  });
}

TEST_F(UserDialogTyping, APasswordLongerThanA16BitLengthIsTooLongLikeAnyOther) {
  New([this](frmNewUser& dialog) {
    for (const std::size_t length : {32767U, 32768U, 65536U + 10U}) {
      ExpectInformation(kTooLong);
      user.Paste(dialog.txtPassword, std::wstring(length, L'x'));
      EXPECT_EQ(dialog.txtPassword.Text(), std::wstring(20, L'x'));
      dialog.txtPassword.SetText({});
    }
    Discard(dialog);
  });
}

TEST_F(UserDialogTyping, TheTabOrderStaysWhenAPasswordWasTooLong) {
  New([this](frmNewUser& dialog) {
    for (controls::TextBox* box : {&dialog.txtPassword, &dialog.txtVerify}) {
      ExpectInformation(kTooLong);
      user.Paste(*box, twenty + L"u");
    }
    EXPECT_EQ(dialog.txtPassword.TabIndex(), 3);
    EXPECT_EQ(dialog.txtVerify.TabIndex(), 4);
    user.Focus(dialog.txtUserName);
    for (const controls::Control* next :
         {static_cast<controls::Control*>(&dialog.txtFullName),
          static_cast<controls::Control*>(&dialog.txtPassword),
          static_cast<controls::Control*>(&dialog.txtVerify),
          static_cast<controls::Control*>(&dialog.List1[dialog.kGroups])}) {
      user.PressKey(dialog, test_support::kKeyTab);
      EXPECT_TRUE(next->HasFocus()) << next->Id();
    }
    Discard(dialog);
  });
}

TEST_F(UserDialogTyping, BlanksAroundTheConfirmationCountForANewUserAndNotForAnExistingOne) {
  const std::wstring padded = L" " + twenty + L" ";
  New([&](frmNewUser& dialog) {
    ExpectInformation(kTooLong);
    user.Paste(dialog.txtVerify, padded);
    EXPECT_EQ(dialog.txtVerify.Text(), padded.substr(0, 20));
    EXPECT_EQ(dialog.txtVerify.SelLength(), 20);
    Discard(dialog);
  });
  Edit(kMartin, [&](frmEditUser& dialog) {
    user.Paste(dialog.txtVerify, padded);
    EXPECT_EQ(dialog.txtVerify.Text(), padded);
    ExpectInformation(kTooLong);
    user.Paste(dialog.txtPassword, padded);
    EXPECT_EQ(dialog.txtPassword.Text(), padded.substr(0, 20));
    // The selection counts what is left without the blank in front.
    EXPECT_EQ(dialog.txtPassword.SelStart(), 0);
    EXPECT_EQ(dialog.txtPassword.SelLength(), 19);
    Discard(dialog);
  });
}

TEST_F(UserDialogTyping, AStoredPasswordOfMoreThan20CharactersIsCutAsItIsLoaded) {
  const std::wstring longOne = L"Vardex-2026-Vardex-2026";
  const std::wstring stored = Database().OpenServer()->EncryptPassword(longOne, kMartin);
  Raw().Execute("UPDATE QRUSER SET PASSWORD = '" + data::ToUtf8(stored) + "' WHERE USERID = 9");
  ExpectInformation(kTooLong);
  ExpectInformation(kTooLong);
  Edit(kMartin, [&](frmEditUser& dialog) {
    EXPECT_EQ(dialog.txtPassword.Text(), longOne.substr(0, 20));
    EXPECT_EQ(dialog.txtVerify.Text(), longOne.substr(0, 20));
    user.Click(dialog.cmdCancel);
  });
}

}  // namespace
}  // namespace dialogs
