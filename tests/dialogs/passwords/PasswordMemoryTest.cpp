// No plain password is left in memory that the user dialogs, and the session server with them, give
// back: neither that of the account nor one that was typed.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/dialogs/DialogFixture.h"
#include "tests/support/secrets/ReleaseWatch.h"

namespace dialogs {
namespace {

using test_support::ReleaseWatch;
using test_support::Sample;

// What is looked for is the beginning: while a text is typed or grows, parts of it are given back.
// The first letter is left out: clearing a text overwrites that and nothing else.
constexpr std::wstring_view kOfTyped = L"esame-";
constexpr std::wstring_view kOfStored = L"ardex-";

class PasswordMemory : public test_support::DialogFixture {
 protected:
  void Type(UserDialog& dialog, const std::wstring& password, const std::wstring& again) {
    user.Type(dialog.txtPassword, password);
    user.Type(dialog.txtVerify, again);
  }
  // Shows a dialog of a user and watches from before its load until it is gone.
  int FoundInEdit(std::wstring_view secret, const std::function<void(frmEditUser&)>& script) {
    ReleaseWatch watch(secret);
    {
      frmEditUser dialog(exchange);
      dialog.UserID = Sample::kMartin;
      Show<frmEditUser>(dialog, script);
    }
    return watch.Found();
  }
  int FoundInNew(const std::function<void(frmNewUser&)>& script) {
    ReleaseWatch watch(kOfTyped);
    {
      frmNewUser dialog(exchange);
      Show<frmNewUser>(dialog, script);
    }
    return watch.Found();
  }

  // Not given back before the end of the test.
  const std::wstring typed_ = L"Sesame-ouvre-toi-\x00E9t\x00E9";
  const std::wstring other_ = L"Sesame-ferme-toi";
  const std::wstring tooLong_ = L"Sesame-ouvre-toi-tout-grand";
  const std::wstring name_ = L"Nouveau";
};

TEST_F(PasswordMemory, IsLookedIntoWhenItIsGivenBack) {
  ReleaseWatch watch(kOfTyped);
  { const std::wstring copy = typed_; }
  { const std::string copy(64, 'x'); }
  EXPECT_EQ(watch.Found(), 1);
  { const std::string copy = "bytes of Sesame-, longer than the string object"; }
  EXPECT_EQ(watch.Found(), 2);
}

TEST_F(PasswordMemory, HoldsNoPasswordOfAnAccountThatWasOnlyLookedAt) {
  EXPECT_EQ(FoundInEdit(kOfStored,
                        [this](frmEditUser& dialog) {
                          ASSERT_NE(dialog.txtPassword.Text().find(kOfStored), std::wstring::npos);
                          user.Click(dialog.cmdCancel);
                        }),
            1);  // the test's own copy
}

TEST_F(PasswordMemory, HoldsNoPasswordOfAnAccountThatWasSaved) {
  EXPECT_EQ(FoundInEdit(kOfStored, [this](frmEditUser& dialog) { user.Click(dialog.cmdOK); }), 0);
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(PasswordMemory, HoldsNoPasswordOfAnAccountThatWasOverwrittenByAnother) {
  EXPECT_EQ(FoundInEdit(kOfStored,
                        [this](frmEditUser& dialog) {
                          Type(dialog, typed_, typed_);
                          user.Click(dialog.cmdOK);
                        }),
            0);
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(PasswordMemory, HoldsNoPasswordThatWasTypedForAnAccount) {
  EXPECT_EQ(FoundInEdit(kOfTyped,
                        [this](frmEditUser& dialog) {
                          Type(dialog, typed_, typed_);
                          user.Click(dialog.cmdOK);
                        }),
            0);
  EXPECT_TRUE(exchange.AddNode);
}

// A short one lies within string objects, which a look at blocks of memory does not reach.
TEST_F(PasswordMemory, HoldsNoLongPasswordOfAnAccountThatWasReadBack) {
  const auto save = [this](frmEditUser& dialog) {
    Type(dialog, typed_, typed_);
    user.Click(dialog.cmdOK);
  };
  EXPECT_EQ(FoundInEdit(kOfTyped, save), 0);
  EXPECT_EQ(FoundInEdit(kOfTyped, [this](frmEditUser& dialog) { user.Click(dialog.cmdCancel); }),
            0);
}

TEST_F(PasswordMemory, HoldsNoPasswordThatWasTypedForANewUser) {
  EXPECT_EQ(FoundInNew([this](frmNewUser& dialog) {
              user.Type(dialog.txtUserName, name_);
              Type(dialog, typed_, typed_);
              user.Click(dialog.cmdOK);
            }),
            0);
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(PasswordMemory, HoldsNoPasswordThatWasRefusedCutOrThrownAway) {
  EXPECT_EQ(FoundInNew([this](frmNewUser& dialog) {
              user.Type(dialog.txtUserName, name_);
              Type(dialog, typed_, other_);
              user.ExpectMsgBox(controls::kResultOk);
              user.Click(dialog.cmdOK);
              user.ExpectMsgBox(controls::kResultOk);
              user.Paste(dialog.txtPassword, tooLong_);
              ExpectDiscardQuestion(controls::kResultYes);
              user.Close(dialog);
            }),
            0);
}

}  // namespace
}  // namespace dialogs
