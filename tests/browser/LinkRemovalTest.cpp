#include <gtest/gtest.h>

#include "data/MSQLStatement.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;
using Rows = std::vector<std::vector<std::string>>;
using controls::kExclamation;
using controls::kInformation;
using controls::kResultNo;
using controls::kResultYes;

constexpr const wchar_t* kAskMembership = L"Souhaitez-vous supprimer ce membre du groupe ?";
constexpr const wchar_t* kAskUserPermission =
    L"Souhaitez-vous supprimer cette permission utilisateur ?";
constexpr const wchar_t* kAskMember = L"Souhaitez-vous supprimer ce membre ?";
constexpr const wchar_t* kAskGroupPermission =
    L"Souhaitez-vous supprimer cette permission de groupe ?";

// One of the four commands that take a link away, with a link of the sample to take.
struct Removal {
  int tree;
  controls::CommandButton* (*button)(frmUserGroupPerm& window);
  void (*handler)(frmUserGroupPerm& window, int Index);
  std::wstring leaf;
  std::wstring folder;
  const wchar_t* question;
  std::wstring statement;
  std::wstring reread;  // of the leaf's folder
  const char* rowCount;
};

// Martin (9) is in Laboratoire (12) and holds 14; L'Hermitte (15) is in Qualité (6), which
// gives 21.
const Removal kRemovals[] = {
    {kUsersTree, [](frmUserGroupPerm& window) { return &window.Users.cmdMemberOf[kRemoveButton]; },
     [](frmUserGroupPerm& window, int Index) { window.Users.cmdMemberOf_Click(Index); },
     Keys::GroupOfUser(9, 12), Keys::GroupsOfUser(9), kAskMembership,
     L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = 12 and QRUSGP.USERID =9",
     data::SqlSelectUserGroups(9), "SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID = 12"},
    {kUsersTree,
     [](frmUserGroupPerm& window) { return &window.Users.cmdUserPermission[kRemoveButton]; },
     [](frmUserGroupPerm& window, int Index) { window.Users.cmdUserPermission_Click(Index); },
     Keys::OwnPermission(9, 14), Keys::OwnPermissions(9), kAskUserPermission,
     L"DELETE FROM QRUPRM WHERE QRUPRM.PERMID = 14 and QRUPRM.USERID =9",
     data::SqlSelectUserPermissionNames(9),
     "SELECT COUNT(*) FROM QRUPRM WHERE USERID = 9 AND PERMID = 14"},
    {kGroupsTree, [](frmUserGroupPerm& window) { return &window.Groups.cmdMember[kRemoveButton]; },
     [](frmUserGroupPerm& window, int Index) { window.Groups.cmdMember_Click(Index); },
     Keys::MemberOfGroup(6, 15), Keys::MembersOfGroup(6), kAskMember,
     L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = 6 and QRUSGP.USERID =15",
     data::SqlSelectGroupUsers(6), "SELECT COUNT(*) FROM QRUSGP WHERE USERID = 15 AND GROUPID = 6"},
    {kGroupsTree,
     [](frmUserGroupPerm& window) { return &window.Groups.cmdGroupPermission[kRemoveButton]; },
     [](frmUserGroupPerm& window, int Index) { window.Groups.cmdGroupPermission_Click(Index); },
     Keys::GroupPermission(6, 21), Keys::GroupPermissions(6), kAskGroupPermission,
     L"DELETE FROM QRGPRM WHERE QRGPRM.PERMID = 21 and QRGPRM.GROUPID =6",
     data::SqlSelectGroupPermissionNames(6),
     "SELECT COUNT(*) FROM QRGPRM WHERE GROUPID = 6 AND PERMID = 21"},
};

class LinkRemoval : public CommandTest {
 protected:
  void SelectLeaf(frmUserGroupPerm& window, const Removal& removal) {
    Select(window, removal.tree, removal.leaf);
  }
  void Press(frmUserGroupPerm& window, const Removal& removal) {
    log.statements.clear();
    user.Click(*removal.button(window));
  }
  void Remove(frmUserGroupPerm& window, const Removal& removal) {
    SelectLeaf(window, removal);
    ExpectQuestion(kResultYes, removal.question);
    Press(window, removal);
  }
  // What each command sends after its DELETE.
  static Strings StatementsAfter(frmUserGroupPerm& window, const Removal& removal) {
    if (removal.tree == kUsersTree) return {data::SqlSelectInheritedPermissions(9)};
    return removal.question == kAskMember ? UserRebuild(window) : AllPermissionsRebuild(window);
  }
  void DeleteBySomebodyElse(const Removal& removal) {
    std::string sql = removal.rowCount;
    Raw().Execute("DELETE" + sql.substr(sql.find(" FROM")));
  }
  static Strings Stale(const Removal& removal) {
    return removal.question == kAskMembership ? Strings{Keys::MemberOfGroup(12, 9)} : Strings{};
  }
};

TEST_F(LinkRemoval, SendsOneDeleteAndThenWhatBringsTheTreesUpToDate) {
  for (const Removal& removal : kRemovals) {
    UseSample();
    Run([&](frmUserGroupPerm& window) {
      Remove(window, removal);
      EXPECT_EQ(log.statements, Joined({removal.statement}, StatementsAfter(window, removal)));
      EXPECT_EQ(Raw().Number(removal.rowCount), 0);
      EXPECT_FALSE(Has(window, removal.tree, removal.leaf));
    });
  }
}

TEST_F(LinkRemoval, LeavesTheTreesAsARefreshShowsThemButForWhatTheUsersTabLeavesToIt) {
  for (const Removal& removal : kRemovals) {
    UseSample();
    Run([&](frmUserGroupPerm& window) {
      Remove(window, removal);
      ExpectInStepBut(window, Stale(removal));
    });
  }
}

TEST_F(LinkRemoval, OfAMembershipOnTheUsersTabUpdatesThatUsersPermissionsAndNotTheGroups) {
  Run([this](frmUserGroupPerm& window) {
    const Removal& membership = kRemovals[0];
    const Strings groups =
        ChildTexts(window.Groups.TreeView1, At(window, kGroupsTree, Keys::MembersOfGroup(12)));
    // 20 is Martin's own, too; without that it would come from the group alone.
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9 AND PERMID = 20");
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (8, 12)");
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(9, 20)));
    Remove(window, membership);
    EXPECT_FALSE(Has(window, kUsersTree, Keys::AnyPermission(9, 20)));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(8, 20)));
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(12, 9)));
    EXPECT_EQ(ChildTexts(window.Groups.TreeView1, At(window, kGroupsTree, Keys::MembersOfGroup(12)))
                  .size(),
              groups.size() + 1);
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(12, 9)));
  });
}

TEST_F(LinkRemoval, OfThatSameMembershipOnTheGroupsTabUpdatesTheUsersAtOnce) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(12, 9));
    ExpectQuestion(kResultYes, kAskMember);
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    EXPECT_FALSE(Has(window, kUsersTree, Keys::GroupOfUser(9, 12)));
    ExpectInStep(window);
  });
}

TEST_F(LinkRemoval, OfAGroupsPermissionTakesItFromEveryUserWhoHadItThroughThatGroup) {
  Run([this](frmUserGroupPerm& window) {
    for (const std::wstring& key : {Keys::AnyPermission(15, 21), Keys::AnyPermission(34, 21),
                                    Keys::AnyPermission(38, 21), Keys::AnyPermission(21, 21)}) {
      EXPECT_TRUE(Has(window, kUsersTree, key));
    }
    Remove(window, kRemovals[3]);
    for (const std::wstring& key :
         {Keys::AnyPermission(15, 21), Keys::AnyPermission(34, 21), Keys::AnyPermission(38, 21)}) {
      EXPECT_FALSE(Has(window, kUsersTree, key));
    }
    // Guérin holds it himself as well.
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(21, 21)));
  });
}

TEST_F(LinkRemoval, OfAUsersPermissionLeavesItAmongAllWhereAGroupGivesIt) {
  Run([this](frmUserGroupPerm& window) {
    Remove(window, kRemovals[1]);
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(9, 14)));
    EXPECT_EQ(
        user.TipOf(window.Users.TreeView1, At(window, kUsersTree, Keys::AnyPermission(9, 14))),
        L"Par le groupe Production");
  });
}

TEST_F(LinkRemoval, OnAFolderOrAnyOtherNodeWarnsInTwoLinesAndStops) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    const auto warn = [&](const Removal& removal, const wchar_t* text, const Strings& keys) {
      for (const std::wstring& key : keys) {
        Select(window, removal.tree, key);
        log.statements.clear();
        ExpectWarning(text, kInformation);
        removal.handler(window, kRemoveButton);
        EXPECT_TRUE(log.statements.empty());
      }
    };
    warn(kRemovals[0],
         L"Sélectionnez le groupe à supprimer puis cliquez sur\r\n"
         L"le bouton Supprimer dans la section Membre du Groupe.",
         {Keys::Root(), Keys::User(9), Keys::GroupsOfUser(9), Keys::OwnPermissions(9),
          Keys::OwnPermission(9, 14), Keys::AllPermissions(9), Keys::AnyPermission(9, 16)});
    warn(kRemovals[1],
         L"Sélectionnez la permission à supprimer puis cliquez sur \r\n"
         L"le bouton Supprimer dans la section Droits Utilisateur.",
         {Keys::Root(), Keys::User(9), Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 12),
          Keys::OwnPermissions(9), Keys::AllPermissions(9), Keys::AnyPermission(9, 14)});
    warn(kRemovals[2],
         L"Sélectionnez le groupe à supprimer puis cliquez sur\r\n"
         L"le bouton Supprimer dans la section Membres du Groupe.",
         {Keys::Root(), Keys::Group(6), Keys::MembersOfGroup(6), Keys::GroupPermissions(6),
          Keys::GroupPermission(6, 21), Keys::Group(2), Keys::MembersOfGroup(2),
          Keys::GroupPermissions(2)});
    warn(kRemovals[3],
         L"Sélectionnez la permission à supprimer puis cliquez sur \r\n"
         L"le bouton Supprimer dans la section Droits Groupe.",
         {Keys::Root(), Keys::Group(6), Keys::MembersOfGroup(6), Keys::MemberOfGroup(6, 15),
          Keys::GroupPermissions(6), Keys::Group(1), Keys::MembersOfGroup(1),
          Keys::MemberOfGroup(1, 1), Keys::GroupPermissions(1)});
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(LinkRemoval, AnsweredWithNoChangesNothingAndSetsTheButtonsAgain) {
  for (const Removal& removal : kRemovals) {
    Run([&](frmUserGroupPerm& window) {
      SelectLeaf(window, removal);
      const Strings before = Look(window);
      ExpectQuestion(kResultNo, removal.question);
      controls::CommandButton& edit = removal.tree == kUsersTree
                                          ? window.Users.cmdUser[kEditButton]
                                          : window.Groups.cmdGroup[kEditButton];
      edit.SetEnabled(false);
      Press(window, removal);
      EXPECT_TRUE(log.statements.empty());
      EXPECT_EQ(Look(window), before);
      EXPECT_EQ(Raw().Number(removal.rowCount), 1);
      EXPECT_EQ(Selected(window, removal.tree), removal.leaf);
      EXPECT_TRUE(edit.Enabled());
    });
  }
}

TEST_F(LinkRemoval, ThatTheDatabaseRefusesIsReportedAndLeavesTheTreesAsTheyWere) {
  for (const Removal& removal : kRemovals) {
    Run([&](frmUserGroupPerm& window) {
      SelectLeaf(window, removal);
      const Strings before = Look(window);
      log.FailAt = [&](const std::wstring& call) { return call == removal.statement ? 3155L : 0L; };
      ExpectQuestion(kResultYes, removal.question);
      const std::wstring report = L"DeleteRecord Error [3155]\r\ninjected: " + removal.statement;
      ExpectWarning(report.c_str(), kExclamation);
      Press(window, removal);
      log.FailAt = {};
      EXPECT_EQ(log.statements, Strings{removal.statement});
      EXPECT_EQ(Look(window), before);
      EXPECT_EQ(Selected(window, removal.tree), removal.leaf);
      EXPECT_EQ(Raw().Number(removal.rowCount), 1);
      ExpectInStep(window);
    });
  }
}

TEST_F(LinkRemoval, OfALinkThatSomebodyElseHasTakenReadsTheFolderAgainAndSaysSo) {
  for (const Removal& removal : kRemovals) {
    UseSample();
    Run([&](frmUserGroupPerm& window) {
      SelectLeaf(window, removal);
      DeleteBySomebodyElse(removal);
      ExpectQuestion(kResultYes, removal.question);
      ExpectChangedMeanwhile();
      Press(window, removal);
      EXPECT_EQ(log.statements,
                Joined({removal.statement, removal.reread}, StatementsAfter(window, removal)));
      EXPECT_FALSE(Has(window, removal.tree, removal.leaf));
      ExpectInStepBut(window, Stale(removal));
    });
  }
}

TEST_F(LinkRemoval, ShowsInTheReadFolderWhatElseSomebodyHasChangedThere) {
  Run([this](frmUserGroupPerm& window) {
    SelectLeaf(window, kRemovals[2]);
    DeleteBySomebodyElse(kRemovals[2]);
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    ExpectQuestion(kResultYes, kAskMember);
    ExpectChangedMeanwhile();
    Press(window, kRemovals[2]);
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(6, 9)));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::GroupOfUser(9, 6)));
    ExpectInStep(window);
  });
}

TEST_F(LinkRemoval, PassesTheSelectionToTheNextLinkAndKeepsTheFoldersOpen) {
  Run([this](frmUserGroupPerm& window) {
    Remove(window, kRemovals[0]);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(9, 7));
    EXPECT_TRUE(window.Users.cmdMemberOf[kRemoveButton].Enabled());
    EXPECT_TRUE(window.Users.TreeView1.Nodes().Expanded(At(window, kUsersTree, Keys::User(9))));
    EXPECT_TRUE(
        window.Users.TreeView1.Nodes().Expanded(At(window, kUsersTree, Keys::GroupsOfUser(9))));
    EXPECT_EQ(window.exchange.UserID, 9);
    EXPECT_EQ(window.exchange.GroupID, 7);
    ExpectQuestion(kResultYes, kAskMembership);
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    // Nobody leaves Everyone, which is left.
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(9, 2));
    EXPECT_FALSE(window.Users.cmdMemberOf[kRemoveButton].Enabled());
  });
}

TEST_F(LinkRemoval, OfTheLastLinkPassesTheSelectionToTheFolder) {
  Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9 AND PERMID = 20");
  Run([this](frmUserGroupPerm& window) {
    Remove(window, kRemovals[1]);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::OwnPermissions(9));
    EXPECT_FALSE(window.Users.cmdUserPermission[kRemoveButton].Enabled());
    EXPECT_EQ(window.Users.selectedPermId, -1);
    ExpectInStep(window);
  });
}

TEST_F(LinkRemoval, KeepsTheOtherTabsSelectionWhereItsNodeIsStillThere) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::AnyPermission(15, 20));
    Remove(window, kRemovals[3]);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::AnyPermission(15, 20));
    EXPECT_TRUE(
        window.Users.TreeView1.Nodes().Expanded(At(window, kUsersTree, Keys::AllPermissions(15))));
  });
}

TEST_F(LinkRemoval, SetsTheOtherTabsButtonsForWhatItsSelectionHasPassedTo) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(15, 6));
    EXPECT_TRUE(window.Users.cmdMemberOf[kRemoveButton].Enabled());
    Remove(window, kRemovals[2]);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(15, 2));
    user.ChooseTab(window.TabStrip1, kUsersTree);
    EXPECT_FALSE(window.Users.cmdMemberOf[kRemoveButton].Enabled());
  });
}

TEST_F(LinkRemoval, OfAdminFromAdministratorsIsRefusedBeforeAnythingIsAsked) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    Select(window, kGroupsTree, Keys::MemberOfGroup(1, 1));
    log.statements.clear();
    ExpectWarning(
        L"Impossible de supprimer l'utilisateur de 'Admin (Administrateur principal)' le groupe.",
        kInformation);
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    Select(window, kUsersTree, Keys::GroupOfUser(1, 1));
    EXPECT_FALSE(window.Users.cmdMemberOf[kRemoveButton].Enabled());
    window.Users.cmdMemberOf_Click(kRemoveButton);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 1 AND GROUPID = 1"), 1);
  });
}

TEST_F(LinkRemoval, OfAnotherMemberOfAdministratorsIsAllowed) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(1, 2));
    ExpectQuestion(kResultYes, kAskMember);
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    EXPECT_EQ(Raw().Rows("SELECT USERID FROM QRUSGP WHERE GROUPID = 1"), (Rows{{"1"}}));
    ExpectInStep(window);
  });
}

TEST_F(LinkRemoval, OfAdminFromAnOrdinaryGroupIsAllowed) {
  Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (1, 6)");
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 1));
    ExpectQuestion(kResultYes, kAskMember);
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    EXPECT_FALSE(Has(window, kUsersTree, Keys::GroupOfUser(1, 6)));
    ExpectInStep(window);
  });
}

// What the users tab has taken away is shown among the members until they are read again; taking it
// away there meets no row.
TEST_F(LinkRemoval, OfAMemberWhomTheUsersTabHasTakenOutAlreadyReadsTheFolderAgain) {
  Run([this](frmUserGroupPerm& window) {
    Remove(window, kRemovals[0]);
    Select(window, kGroupsTree, Keys::MemberOfGroup(12, 9));
    ExpectQuestion(kResultYes, kAskMember);
    ExpectChangedMeanwhile();
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(12, 9)));
    ExpectInStep(window);
  });
}

}  // namespace
}  // namespace browser
