#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "app/MShowHelp.h"
#include "resources/ResourceIds.h"

namespace dialogs {
namespace {

using controls::kResultNo;
using controls::kResultYes;

// How the group dialogs are left without OK, and how they are used by keyboard alone.
class GroupLeaving : public GroupDialogs {
 protected:
  // Whether Cancel asks; the dialog is left in any case.
  void ExpectAsks(bool asks, GroupDialog& dialog) {
    if (asks) ExpectDiscardQuestion(kResultYes);
    exchange.AddNode = true;
    ClearLog();
    user.Click(dialog.cmdCancel);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_FALSE(exchange.AddNode);
    EXPECT_TRUE(log.calls.empty());
  }
};

TEST_F(GroupLeaving, CancelRightAfterOpeningClosesWithoutAQuestion) {
  Edit(12, [this](frmEditGroup& dialog) { ExpectAsks(false, dialog); });
  Edit(1, [this](frmEditGroup& dialog) { ExpectAsks(false, dialog); });
  New([this](frmNewGroup& dialog) { ExpectAsks(false, dialog); });
}

TEST_F(GroupLeaving, EveryEditMakesCancelAsk) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"x");
    ExpectAsks(true, dialog);
  });
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtDesc, L"x");
    ExpectAsks(true, dialog);
  });
  Edit(12, [this](frmEditGroup& dialog) {
    Toggle(dialog.List1[dialog.kPermissions], L"Consulter les commandes");
    Toggle(dialog.List1[dialog.kPermissions], L"Consulter les commandes");
    ExpectAsks(true, dialog);
  });
  Edit(12, [this](frmEditGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    ExpectAsks(true, dialog);
  });
  Edit(12, [this](frmEditGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Martin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    ExpectAsks(true, dialog);
  });
}

TEST_F(GroupLeaving, WhatChangesNothingDoesNotMakeCancelAsk) {
  Edit(12, [this](frmEditGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Clément");
    Choose(dialog.List1[dialog.kPermissions], L"Consulter le tableau de bord");
    user.Focus(dialog.txtDesc);
    ExpectAsks(false, dialog);
  });
  New([this](frmNewGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kNoPermission]);
    ExpectAsks(false, dialog);
  });
}

TEST_F(GroupLeaving, NoKeepsTheDialogAndItsChanges) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    for (int time = 0; time < 2; ++time) {
      ExpectDiscardQuestion(kResultNo);
      user.Click(dialog.cmdCancel);
      ASSERT_TRUE(dialog.IsLoaded());
      EXPECT_EQ(dialog.txtGroupName.Text(), L"Essais");
    }
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(RowOf(12)[0], "Essais");
}

TEST_F(GroupLeaving, EscapeAndTheCloseBoxAskTheSameOnce) {
  for (const bool escape : {true, false}) {
    Edit(12, [&](frmEditGroup& dialog) {
      const auto leave = [&] {
        if (escape) {
          user.PressKey(dialog, test_support::kKeyEscape);
        } else {
          user.Close(dialog);
        }
      };
      user.Type(dialog.txtDesc, L"x");
      exchange.AddNode = true;
      ExpectDiscardQuestion(kResultNo);
      leave();
      ASSERT_TRUE(dialog.IsLoaded());
      ExpectDiscardQuestion(kResultYes);
      leave();
      EXPECT_FALSE(dialog.IsLoaded());
      EXPECT_FALSE(exchange.AddNode);
    });
  }
  EXPECT_EQ(user.SeenBoxes().size(), 4U);
  EXPECT_EQ(RowOf(12)[1], "Mesures et essais");
}

TEST_F(GroupLeaving, ADialogCanBeShownAgainAndForgetsWhatWasDiscarded) {
  frmEditGroup dialog(exchange);
  dialog.GroupID = 12;
  for (int time = 0; time < 2; ++time) {
    Show<frmEditGroup>(dialog, [this](frmEditGroup& shown) {
      EXPECT_EQ(shown.txtGroupName.Text(), L"Laboratoire");
      EXPECT_EQ(shown.List1[shown.kMembers].ListCount(), 3);
      user.Type(shown.txtGroupName, L"Essais");
      ExpectAsks(true, shown);
    });
  }
}

TEST_F(GroupLeaving, AGroupIsCreatedByKeyboardAlone) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    user.PressKey(dialog, test_support::kKeyTab);
    EXPECT_TRUE(dialog.txtDesc.HasFocus());
    user.PressKey(dialog, test_support::kKeyTab);
    EXPECT_TRUE(dialog.List1[dialog.kMembers].HasFocus());
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      EXPECT_TRUE(chooser.txtUserName[chooser.kOthers].HasFocus());
      user.Type(chooser.txtUserName[chooser.kOthers], L"mart");
      user.PressKey(chooser, test_support::kKeyTab);
      EXPECT_TRUE(chooser.List1[chooser.kOthers].HasFocus());
      user.PressKey(chooser, test_support::kKeyTab);
      EXPECT_TRUE(chooser.cmdBtn[chooser.kAdd].HasFocus());
      user.PressKey(chooser, test_support::kKeySpace);
      user.Focus(chooser.txtUserName[chooser.kMembers]);
      user.PressKey(chooser, test_support::kKeyEnter);
    });
    user.PressKey(dialog, test_support::kKeyTab);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAssign].HasFocus());
    user.PressKey(dialog, test_support::kKeySpace);
    EXPECT_EQ(TextsOf(dialog.List1[dialog.kMembers]), Strings{L"Martin"});
    user.PressKey(dialog, test_support::kKeyTab);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kRemove].HasFocus());
    user.PressKey(dialog, test_support::kKeyTab);
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].HasFocus());
    user.Mnemonic(dialog, L't');
    user.Focus(dialog.txtGroupName);
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_EQ(RowOf(13)[0], "Essais");
  EXPECT_EQ(MembersOf(13), Ids{9});
  EXPECT_EQ(PermissionsOf(13).size(), 30U);
}

TEST_F(GroupLeaving, TheTabKeyGoesThroughTheControlsInOneOrder) {
  Edit(12, [this](frmEditGroup& dialog) {
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &dialog.txtGroupName, &dialog.txtDesc, &dialog.List1[dialog.kMembers],
             &dialog.cmdBtn[dialog.kAssign], &dialog.cmdBtn[dialog.kRemove],
             &dialog.List1[dialog.kPermissions], &dialog.cmdBtn[dialog.kAllPermissions],
             &dialog.cmdBtn[dialog.kNoPermission], &dialog.cmdOK, &dialog.cmdCancel,
             &dialog.Command1, &dialog.txtGroupName}) {
      EXPECT_TRUE(control->HasFocus()) << control->Id();
      user.PressKey(dialog, test_support::kKeyTab);
    }
    user.PressKey(dialog, test_support::kKeyEscape);
  });
}

TEST_F(GroupLeaving, RemovingTheLastMemberHandsTheFocusToTheList) {
  Edit(12, [this](frmEditGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Martin");
    for (int left = 2; left >= 0; --left) {
      EXPECT_FALSE(dialog.List1[dialog.kMembers].ListCount() == left);
      user.Click(dialog.cmdBtn[dialog.kRemove]);
      EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), left);
    }
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_TRUE(dialog.List1[dialog.kMembers].HasFocus());
    ExpectAsks(true, dialog);
  });
}

TEST_F(GroupLeaving, TextsAreSelectedWhenTheyGetTheFocus) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Focus(dialog.txtDesc);
    EXPECT_EQ(dialog.txtDesc.SelStart(), 0);
    EXPECT_EQ(dialog.txtDesc.SelLength(), 17);
    dialog.Unload();
  });
}

TEST_F(GroupLeaving, HelpOpensTheDialogsOwnTopicFromTheButtonAndF1) {
  New([this](frmNewGroup& dialog) {
    user.Click(dialog.Command1);
    user.PressKey(dialog, controls::kKeyF1);
    dialog.Unload();
  });
  Edit(12, [this](frmEditGroup& dialog) {
    user.Click(dialog.Command1);
    user.PressKey(dialog, controls::kKeyF1);
    dialog.Unload();
  });
  ASSERT_EQ(user.HelpCalls().size(), 4U);
  EXPECT_EQ(user.HelpCalls()[0].topic, 1203);
  EXPECT_EQ(user.HelpCalls()[1].topic, 1203);
  EXPECT_EQ(user.HelpCalls()[0].formTemplateId, IDD_NEW_GROUP);
  EXPECT_EQ(user.HelpCalls()[2].topic, 1204);
  EXPECT_EQ(user.HelpCalls()[3].topic, 1204);
}

TEST_F(GroupLeaving, ALocaleWithAFontOfItsOwnGetsItInEveryControl) {
  user.SetLcid(1041);
  Edit(12, [this](frmEditGroup& dialog) {
    EXPECT_EQ(user.FontOf(dialog.txtGroupName).charset, 128);
    EXPECT_EQ(user.FontOf(dialog.List1[dialog.kPermissions]).size, 9);
    dialog.Unload();
  });
}

}  // namespace
}  // namespace dialogs
