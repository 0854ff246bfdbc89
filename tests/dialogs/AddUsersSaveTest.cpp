#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {
namespace {

using controls::kResultNo;
using controls::kResultYes;

class AddUsersSave : public GroupDialogs {
 protected:
  void MoveRight(frmAddUserInGroup& dialog, std::wstring_view name) {
    Choose(dialog.List1[dialog.kOthers], name);
    user.Click(dialog.cmdBtn[dialog.kAdd]);
  }
  void MoveLeft(frmAddUserInGroup& dialog, std::wstring_view name) {
    Choose(dialog.List1[dialog.kMembers], name);
    user.Click(dialog.cmdBtn[dialog.kRemove]);
  }
};

TEST_F(AddUsersSave, EachMemberIsLookedUpAndAddedWhereHeIsMissing) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    MoveRight(dialog, L"Bernard");
    MoveRight(dialog, L"Moreau");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  Strings calls;
  for (const std::int32_t member : {Sample::kClement, Sample::kMartin, Sample::kOeuvrard}) {
    calls.push_back(data::SqlSelectMembership(12, member));
  }
  for (const std::int32_t added : {3, 2}) {
    calls.push_back(data::SqlSelectMembership(12, added));
    AppendNewRows(calls, data::SqlSelectMembership(12, added), 1);
  }
  EXPECT_EQ(log.calls, calls);
  EXPECT_EQ(MembersOf(12), (Ids{2, 3, 9, 34, 38}));
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(AddUsersSave, AUserAlreadyAMemberIsNotAddedTwice) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    MoveRight(dialog, L"Bernard");
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (3, 12)");  // somebody else
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), (Ids{3, 9, 34, 38}));
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(AddUsersSave, OneOfThreeMembersMovedOutKeepsTheMembership) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    MoveLeft(dialog, L"Clément");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_EQ(log.calls,
              (Strings{data::SqlSelectMembership(12, 9), data::SqlSelectMembership(12, 38)}));
  });
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(AddUsersSave, AnEmptyRightListDeletesEveryMembershipByAStatementWithTwoBlanks) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_EQ(log.calls, Strings{L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID =  12"});
  });
  EXPECT_EQ(MembersOf(12), Ids{});
  EXPECT_EQ(MembersOf(6).size(), 4U);
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(AddUsersSave, CancelAsksOnlyAfterAMoveAndWritesNothing) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    exchange.AddNode = true;
    user.Type(dialog.txtUserName[dialog.kOthers], L"mor");
    user.Click(dialog.cmdCancel);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_FALSE(exchange.AddNode);
  });
  for (const bool escape : {true, false}) {
    AddUsers(12, [&](frmAddUserInGroup& dialog) {
      const auto leave = [&] {
        if (escape) {
          user.PressKey(dialog, test_support::kKeyEscape);
        } else {
          user.Close(dialog);
        }
      };
      MoveRight(dialog, L"Bernard");
      exchange.AddNode = true;
      ClearLog();
      ExpectDiscardQuestion(kResultNo);
      leave();
      ASSERT_TRUE(dialog.IsLoaded());
      EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 4);
      ExpectDiscardQuestion(kResultYes);
      leave();
      EXPECT_FALSE(dialog.IsLoaded());
      EXPECT_FALSE(exchange.AddNode);
      EXPECT_TRUE(log.calls.empty());
    });
  }
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
}

TEST_F(AddUsersSave, HelpOpensTopic1205) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Click(dialog.Command1);
    user.PressKey(dialog, controls::kKeyF1);
    dialog.Unload();
  });
  ASSERT_EQ(user.HelpCalls().size(), 2U);
  EXPECT_EQ(user.HelpCalls()[0].topic, 1205);
  EXPECT_EQ(user.HelpCalls()[1].topic, 1205);
  EXPECT_EQ(user.HelpCalls()[0].formTemplateId, IDD_ADD_USER_IN_GROUP);
}

TEST_F(AddUsersSave, TheTabKeyGoesThroughTheControlsInOneOrder) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &dialog.txtUserName[dialog.kOthers], &dialog.List1[dialog.kOthers],
             &dialog.cmdBtn[dialog.kAdd], &dialog.cmdBtn[dialog.kAddAll],
             &dialog.cmdBtn[dialog.kRemove], &dialog.cmdBtn[dialog.kRemoveAll],
             &dialog.txtUserName[dialog.kMembers], &dialog.List1[dialog.kMembers], &dialog.cmdOK,
             &dialog.cmdCancel, &dialog.Command1, &dialog.txtUserName[dialog.kOthers]}) {
      EXPECT_TRUE(control->HasFocus()) << control->Id();
      user.PressKey(dialog, test_support::kKeyTab);
    }
    user.PressKey(dialog, test_support::kKeyEscape);
  });
}

TEST_F(AddUsersSave, AFailedLoadIsReportedByItsProcedureAndTheDialogDoesNotAppear) {
  const std::pair<const wchar_t*, std::wstring> faults[] = {
      {L"List1AddItem", data::SqlSelectAllUsers()},
      {L"UpdateAddItem", data::SqlSelectGroupUsers(12)}};
  for (std::size_t position = 0; position < 2; ++position) {
    FailAtPosition(position);
    ExpectReport(faults[position].first, faults[position].second);
    frmAddUserInGroup dialog(exchange);
    dialog.GroupID = 12;
    dialog.ShowModal(window);
    EXPECT_TRUE(HasFailed());
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_FALSE(exchange.AddNode);
  }
}

TEST_F(AddUsersSave, AFailedSaveIsReportedByItsStepAndKeepsWhatWasWrittenBefore) {
  const std::size_t writes[] = {0, 0, 0, 0, 0, 0, 1, 1, 1};
  for (std::size_t position = 0; position < 9; ++position) {
    Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 12 AND USERID IN (2, 3)");
    exchange.AddNode = true;
    AddUsers(12, [&](frmAddUserInGroup& dialog) {
      MoveRight(dialog, L"Bernard");
      MoveRight(dialog, L"Moreau");
      FailAtPosition(position);
      ExpectReport(L"NewUserGroups");
      user.Click(dialog.cmdOK);
      EXPECT_TRUE(HasFailed()) << position;
      EXPECT_FALSE(dialog.IsLoaded());
    });
    log.FailAt = {};
    EXPECT_FALSE(exchange.AddNode);
    EXPECT_EQ(MembersOf(12).size(), 3 + writes[position]) << position;
    EXPECT_EQ(user.SeenBoxes().back().prompt,
              L"NewUserGroups Error [1234]\r\ninjected: " + FailedCall());
  }
}

TEST_F(AddUsersSave, AFailedDeletionIsReportedAndDeletesNothing) {
  exchange.AddNode = true;
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    FailAtPosition(0);
    ExpectReport(L"DeleteUserGroups", data::SqlDeleteAllGroupUsers(12));
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
}

// The chooser over a group dialog, which alone writes.
class AddUsersForDialog : public AddUsersSave {};

TEST_F(AddUsersForDialog, OkFillsTheEditDialogsMembersAndWritesNothing) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L" Essais ");
    exchange.AddNode = true;
    ClearLog();
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      EXPECT_EQ(chooser.Caption(), L"Ajouter des Utilisateurs : Essais");
      EXPECT_EQ(chooser.GroupID, 12);
      EXPECT_TRUE(chooser.IsRemoveAdmin);
      EXPECT_EQ(TextsOf(chooser.List1[chooser.kMembers]),
                (Strings{L"Clément", L"Martin", L"Œuvrard"}));
      EXPECT_EQ(chooser.List1[chooser.kOthers].ListCount(), 36);
      MoveLeft(chooser, L"Clément");
      MoveRight(chooser, L"Bernard");
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_EQ(log.calls, Strings{data::SqlSelectAllUsers()});
    EXPECT_TRUE(exchange.AddNode);  // not the chooser's to say
    EXPECT_EQ(TextsOf(dialog.List1[dialog.kMembers]), (Strings{L"Martin", L"Œuvrard", L"Bernard"}));
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{9, 38, 3}));
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), (Ids{3, 9, 38}));
}

TEST_F(AddUsersForDialog, AnEmptyRightListEmptiesTheDialogsMembersAndDisablesRemove) {
  Edit(12, [this](frmEditGroup& dialog) {
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      user.Click(chooser.cmdBtn[chooser.kRemoveAll]);
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_EQ(MembersOf(12).size(), 3U);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), Ids{});
}

TEST_F(AddUsersForDialog, CancelEscapeAndCloseBoxLeaveTheMembersWithoutAQuestion) {
  Edit(12, [this](frmEditGroup& dialog) {
    for (int way = 0; way < 3; ++way) {
      ExpectChooser([this, way](frmAddUserInGroup& chooser) {
        user.Click(chooser.cmdBtn[chooser.kAddAll]);
        if (way == 0) user.Click(chooser.cmdCancel);
        if (way == 1) user.PressKey(chooser, test_support::kKeyEscape);
        if (way == 2) user.Close(chooser);
      });
      user.Click(dialog.cmdBtn[dialog.kAssign]);
      EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38}));
    }
    user.Click(dialog.cmdCancel);  // nothing has changed
    EXPECT_FALSE(dialog.IsLoaded());
  });
}

TEST_F(AddUsersForDialog, OkWithTheSameMembersIsNoChangeWithOthersItIs) {
  New([this](frmNewGroup& dialog) {
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      EXPECT_EQ(chooser.Caption(), L"Ajouter des Utilisateurs : ");
      EXPECT_EQ(chooser.List1[chooser.kMembers].ListCount(), 0);
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      MoveRight(chooser, L"Martin");
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kRemove].Enabled());
    ExpectDiscardQuestion(kResultYes);
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(AddUsersForDialog, AChooserThatCannotBeFilledLeavesTheMembersAsTheyWere) {
  Edit(12, [this](frmEditGroup& dialog) {
    FailAt(data::SqlSelectAllUsers());
    ExpectReport(L"List1AddItem", data::SqlSelectAllUsers());
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 3);
    user.Click(dialog.cmdCancel);
    EXPECT_FALSE(dialog.IsLoaded());
  });
}

}  // namespace
}  // namespace dialogs
