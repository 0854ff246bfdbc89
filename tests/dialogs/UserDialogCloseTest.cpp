#include "UserDialogTest.h"

namespace dialogs {
namespace {

using test_support::kKeyEnter;
using test_support::kKeyEscape;
using test_support::kKeySpace;
using test_support::kKeyTab;

class UserDialogClose : public UserDialogTest {
 protected:
  using Way = std::function<void(UserDialog&)>;
  // The ways to leave a dialog without saving.
  const std::vector<Way> ways{
      [this](UserDialog& dialog) { user.Click(dialog.cmdCancel); },
      [this](UserDialog& dialog) { user.PressKey(dialog, kKeyEscape); },
      [this](UserDialog& dialog) { user.Close(dialog); },
  };
  const std::vector<std::function<void(frmEditUser&)>> changes{
      [this](frmEditUser& dialog) { user.Type(dialog.txtUserName, L"x"); },
      [this](frmEditUser& dialog) { user.Type(dialog.txtFullName, L"x"); },
      [this](frmEditUser& dialog) { user.Type(dialog.txtPassword, L"x"); },
      [this](frmEditUser& dialog) { user.Type(dialog.txtVerify, L"x"); },
      [this](frmEditUser& dialog) { Toggle(dialog.List1[dialog.kGroups], L"Administrateurs"); },
      [this](frmEditUser& dialog) {
        Toggle(dialog.List1[dialog.kPermissions], L"Administration des utilisateurs");
      },
  };
};

TEST_F(UserDialogClose, WithoutAChangeNothingIsAsked) {
  for (const Way& leave : ways) {
    exchange.AddNode = false;
    New([&](frmNewUser& dialog) {
      leave(dialog);
      EXPECT_FALSE(dialog.IsLoaded());
    });
    Edit(kMartin, [&](frmEditUser& dialog) {
      leave(dialog);
      EXPECT_FALSE(dialog.IsLoaded());
    });
    EXPECT_FALSE(exchange.AddNode);
  }
}

TEST_F(UserDialogClose, AnyChangeIsAskedForOnceBeforeItIsThrownAway) {
  for (const Way& leave : ways) {
    for (const auto& change : changes) {
      exchange.AddNode = true;
      Edit(kMartin, [&](frmEditUser& dialog) {
        change(dialog);
        ExpectDiscardQuestion(controls::kResultYes);
        leave(dialog);
        EXPECT_FALSE(dialog.IsLoaded());
      });
      EXPECT_FALSE(exchange.AddNode);
    }
  }
  EXPECT_EQ(Column(9, "NAME"), "Martin");
  EXPECT_EQ(Groups(9), (Ids{2, 7, 12}));
}

TEST_F(UserDialogClose, NoKeepsTheChangesAndTheQuestion) {
  for (const Way& leave : ways) {
    New([&](frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Nouveau");
      Toggle(dialog.List1[dialog.kPermissions], L"Consulter les commandes");
      for (int time = 0; time < 2; ++time) {
        ExpectDiscardQuestion(controls::kResultNo);
        leave(dialog);
        EXPECT_EQ(dialog.txtUserName.Text(), L"Nouveau");
        EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), (Ids{4}));
      }
      Discard(dialog);
    });
  }
}

TEST_F(UserDialogClose, TheMainWindowTakesInputAgainAfterwards) {
  New([this](frmNewUser& dialog) {
    EXPECT_FALSE(user.CanUse(window.cmdAbout));
    user.Click(dialog.cmdCancel);
  });
  EXPECT_TRUE(user.CanUse(window.cmdAbout));
}

TEST_F(UserDialogClose, EnterIsOkAndPressesAFocusedButtonInstead) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Focus(dialog.cmdBtn[dialog.kAllPermissions]);
    user.PressKey(dialog, kKeyEnter);
    EXPECT_TRUE(dialog.IsLoaded());
    user.Focus(dialog.txtUserName);
    user.PressKey(dialog, kKeyEnter);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(Permissions(9), All(30));
}

TEST_F(UserDialogClose, TheHelpButtonAndF1OpenTheDialogsTopic) {
  const auto help = [this](UserDialog& dialog) {
    user.Click(dialog.Command1);
    user.PressKey(dialog, controls::kKeyF1);
    user.Focus(dialog.List1[dialog.kGroups]);
    user.PressKey(dialog, controls::kKeyF1);
    dialog.Unload();
  };
  New(help);
  Edit(kMartin, help);
  ASSERT_EQ(user.HelpCalls().size(), 6U);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(user.HelpCalls()[i].topic, i < 3 ? 1201 : 1202);
    EXPECT_EQ(user.HelpCalls()[i].file, global.helpFile);
  }
}

TEST_F(UserDialogClose, MnemonicsPressTheButtonsThatShowThem) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Mnemonic(dialog, L't');
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), All(30));
    user.Mnemonic(dialog, L'a');
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), Ids{});
    user.Mnemonic(dialog, L'u');
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), All(12));
    ExpectInformation(Refusal(L"Everyone"));
    user.Mnemonic(dialog, L'c');
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2}));
    user.Mnemonic(dialog, L'i');
    EXPECT_EQ(user.HelpCalls().size(), 1U);
    Discard(dialog);
  });
}

TEST_F(UserDialogClose, AUserCanBeCreatedByKeyboardAlone) {
  New([this](frmNewUser& dialog) {
    user.Type(dialog.txtUserName, L"Clavier");  // has the focus
    user.PressKey(dialog, kKeyTab);
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.txtPassword.HasFocus());
    user.Type(dialog.txtPassword, L"secret-1");
    user.PressKey(dialog, kKeyTab);
    user.Type(dialog.txtVerify, L"secret-1");
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.List1[dialog.kGroups].HasFocus());
    dialog.List1[dialog.kGroups].SetListIndex(ItemOf(dialog.List1[dialog.kGroups], L"Production"));
    user.PressKey(dialog, kKeySpace);
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAllGroups].HasFocus());
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kNoGroup].HasFocus());
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].HasFocus());
    user.PressKey(dialog, kKeyTab);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAllPermissions].HasFocus());
    user.PressKey(dialog, kKeySpace);
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].HasFocus());
    user.PressKey(dialog, kKeyEnter);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_EQ(Column(41, "NAME"), "Clavier");
  EXPECT_EQ(Groups(41), (Ids{2, 7}));
  EXPECT_EQ(Permissions(41), All(30));
}

}  // namespace
}  // namespace dialogs
