#include <gtest/gtest.h>

#include "data/MSQLStatement.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmListItem.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using Rows = std::vector<std::vector<std::string>>;
using controls::ListBox;

// The four Assign commands; the removals have tests of their own.
class LinkAssignment : public CommandTest {
 protected:
  void ExpectChooser(const wchar_t* kind, const wchar_t* relation, std::int32_t owner,
                     std::initializer_list<std::int32_t> ids) {
    user.ExpectModal([=, this, wanted = std::vector<std::int32_t>(ids)](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmListItem&>(form);
      EXPECT_EQ(dialog.ListKind, kind);
      EXPECT_EQ(dialog.RelationName, relation);
      EXPECT_EQ(dialog.OwnerID, owner);
      for (const std::int32_t id : wanted) user.Toggle(dialog.List1, ItemOf(dialog.List1, id));
      user.Click(dialog.cmdOK);
    });
  }
  // Moves the users to the right and presses OK.
  void ExpectMembersChooser(std::initializer_list<std::int32_t> ids,
                            const std::function<void(dialogs::frmAddUserInGroup&)>& look = {}) {
    user.ExpectModal([=, this, wanted = std::vector<std::int32_t>(ids)](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmAddUserInGroup&>(form);
      if (look) look(dialog);
      for (const std::int32_t id : wanted) {
        ListBox& outside = dialog.List1[kOutsideList];
        user.DoubleClick(outside, ItemOf(outside, id));
      }
      members_ = test_support::IdsOf(dialog.List1[kInsideList]);
      user.Click(dialog.cmdOK);
    });
  }
  // The look-ups of the add-users dialog for group 6 and its members at OK.
  Strings MembershipLookups() const {
    Strings sent;
    for (const std::int32_t id : members_) sent.push_back(data::SqlSelectMembership(6, id));
    return sent;
  }

 private:
  std::vector<std::int32_t> members_;
};

TEST_F(LinkAssignment, OfGroupsToAUserWritesThemAndUpdatesHimAndEveryGroup) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupsOfUser(9));
    log.statements.clear();
    ExpectChooser(L"Groupes", L"Membre du Groupe", 9, {6, 3});
    user.Click(window.Users.cmdMemberOf[kAssignButton]);
    EXPECT_EQ(log.statements,
              Joined({data::SqlSelectAllGroups(), data::SqlSelectUserGroupIds(9),
                      data::SqlSelectMembership(9, 3), data::SqlSelectMembership(9, 6),
                      data::SqlSelectUserGroups(9), data::SqlSelectInheritedPermissions(9)},
                     GroupRebuild(window)));
    EXPECT_EQ(Raw().Rows("SELECT GROUPID FROM QRUSGP WHERE USERID = 9 ORDER BY 1"),
              (Rows{{"2"}, {"3"}, {"6"}, {"7"}, {"12"}}));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::GroupOfUser(9, 6)));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(9, 23)));
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(6, 9)));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, OfPermissionsToAUserWritesThemAndUpdatesHisFolders) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::OwnPermissions(9));
    log.statements.clear();
    ExpectChooser(L"Permissions", L"Droits Utilisateur", 9, {16, 30});
    user.Click(window.Users.cmdUserPermission[kAssignButton]);
    EXPECT_EQ(
        log.statements,
        (Strings{data::SqlSelectAllPermissions(), data::SqlSelectUserPermIds(9),
                 data::SqlSelectUserPermission(9, 16), data::SqlSelectUserPermission(9, 30),
                 data::SqlSelectUserPermissionNames(9), data::SqlSelectInheritedPermissions(9)}));
    EXPECT_EQ(Raw().Rows("SELECT PERMID FROM QRUPRM WHERE USERID = 9 ORDER BY 1"),
              (Rows{{"14"}, {"16"}, {"20"}, {"30"}}));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(9, 30)));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, OfMembersToAGroupAddsThemAndUpdatesItAndEveryUser) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MembersOfGroup(6));
    log.statements.clear();
    ExpectMembersChooser({9, 40}, [](dialogs::frmAddUserInGroup& dialog) {
      EXPECT_TRUE(dialog.IsRemoveAdmin);
      EXPECT_EQ(dialog.adminUserId, 1);
      EXPECT_EQ(dialog.Members, nullptr);
      EXPECT_EQ(dialog.GroupID, 6);
      EXPECT_EQ(dialog.GroupName, L"Qualité (Contrôle final et réclamations)");
      EXPECT_EQ(dialog.Caption(),
                L"Ajouter des Utilisateurs : Qualité (Contrôle final et réclamations)");
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
    EXPECT_EQ(log.statements,
              Joined(Joined({data::SqlSelectAllUsers(), data::SqlSelectGroupUsers(6)},
                            MembershipLookups()),
                     Joined({data::SqlSelectGroupUsers(6)}, UserRebuild(window))));
    EXPECT_EQ(Raw().Rows("SELECT USERID FROM QRUSGP WHERE GROUPID = 6 ORDER BY 1"),
              (Rows{{"9"}, {"15"}, {"21"}, {"34"}, {"38"}, {"40"}}));
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(6, 9)));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::AnyPermission(40, 23)));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, OfPermissionsToAGroupAddsThemAndUpdatesEveryUsersPermissions) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::GroupPermissions(6));
    log.statements.clear();
    ExpectChooser(L"Permissions", L"Droits du Groupe", 6, {30});
    user.Click(window.Groups.cmdGroupPermission[kAssignButton]);
    EXPECT_EQ(
        log.statements,
        Joined({data::SqlSelectAllPermissions(), data::SqlSelectGroupPermIds(6),
                data::SqlSelectGroupPermission(6, 30), data::SqlSelectGroupPermissionNames(6)},
               AllPermissionsRebuild(window)));
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRGPRM WHERE GROUPID = 6 AND PERMID = 30"), 1);
    for (const std::wstring& key :
         {Keys::AnyPermission(15, 30), Keys::AnyPermission(21, 30), Keys::AnyPermission(38, 30)}) {
      EXPECT_TRUE(Has(window, kUsersTree, key));
    }
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, TellsTheMembersDialogThatAdminStaysInAdministrators) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(1));
    ExpectMembersChooser({9}, [this](dialogs::frmAddUserInGroup& dialog) {
      EXPECT_FALSE(dialog.IsRemoveAdmin);
      EXPECT_EQ(dialog.adminUserId, 1);
      // Admin stays; Moreau goes, without a write, since somebody is left.
      user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kInformation});
      user.Click(dialog.cmdBtn[kTakeAllButton]);
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
    EXPECT_EQ(Raw().Rows("SELECT USERID FROM QRUSGP WHERE GROUPID = 1 ORDER BY 1"),
              (Rows{{"1"}, {"2"}, {"9"}}));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, ThatEmptiesAGroupTakesEveryMembershipOfIt) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
    ExpectMembersChooser({}, [this](dialogs::frmAddUserInGroup& dialog) {
      user.Click(dialog.cmdBtn[kTakeAllButton]);
      log.statements.clear();
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
    EXPECT_EQ(log.statements, Joined({L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID =  6",
                                      data::SqlSelectGroupUsers(6)},
                                     UserRebuild(window)));
    EXPECT_EQ(Selected(window, kGroupsTree), Keys::MembersOfGroup(6));
    EXPECT_FALSE(window.Groups.cmdMember[kRemoveButton].Enabled());
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, KeepsSelectionAndExpansion) {
  struct Case {
    int tree;
    std::wstring key;
    controls::CommandButton* (*button)(frmUserGroupPerm& window);
  };
  const Case cases[] = {
      {kUsersTree, Keys::GroupOfUser(9, 7),
       [](frmUserGroupPerm& w) { return &w.Users.cmdMemberOf[kAssignButton]; }},
      {kUsersTree, Keys::OwnPermission(9, 14),
       [](frmUserGroupPerm& w) { return &w.Users.cmdUserPermission[kAssignButton]; }},
      {kGroupsTree, Keys::GroupPermission(6, 21),
       [](frmUserGroupPerm& w) { return &w.Groups.cmdGroupPermission[kAssignButton]; }},
      {kUsersTree, Keys::User(3),
       [](frmUserGroupPerm& w) { return &w.Users.cmdMemberOf[kAssignButton]; }},
      {kUsersTree, Keys::User(3),
       [](frmUserGroupPerm& w) { return &w.Users.cmdUserPermission[kAssignButton]; }},
      {kGroupsTree, Keys::Group(12),
       [](frmUserGroupPerm& w) { return &w.Groups.cmdGroupPermission[kAssignButton]; }},
      {kGroupsTree, Keys::MemberOfGroup(6, 34),
       [](frmUserGroupPerm& w) { return &w.Groups.cmdMember[kAssignButton]; }},
      {kGroupsTree, Keys::Group(12),
       [](frmUserGroupPerm& w) { return &w.Groups.cmdMember[kAssignButton]; }},
  };
  for (const Case& test : cases) {
    UseSample();
    Run([&](frmUserGroupPerm& window) {
      const auto expanded = [&window, &test] {
        const controls::TreeNodes& nodes = window.Page(test.tree).TreeView1.Nodes();
        Strings keys;
        for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
             node = nodes.NextIndex(node)) {
          if (nodes.Expanded(node)) keys.push_back(nodes.Key(node));
        }
        return keys;
      };
      Select(window, test.tree, test.key);
      const Strings before = expanded();
      user.ExpectModal([this](controls::Form& form) {
        if (auto* members = dynamic_cast<dialogs::frmAddUserInGroup*>(&form)) {
          user.Click(members->cmdBtn[kAddAllButton]);
          user.Click(members->cmdOK);
          return;
        }
        auto& dialog = dynamic_cast<dialogs::frmListItem&>(form);
        user.Click(dialog.cmdBtn[kCheckAllButton]);
        user.Click(dialog.cmdOK);
      });
      user.Click(*test.button(window));
      EXPECT_EQ(Selected(window, test.tree), test.key);
      EXPECT_EQ(expanded(), before);
      ExpectInStep(window);
    });
  }
}

TEST_F(LinkAssignment, OfNothingTickedOrCancelledChangesNoNode) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    const auto nothing = [&](int tree, const std::wstring& key, controls::CommandButton& button) {
      Select(window, tree, key);
      user.ExpectModal([this](controls::Form& form) {
        user.Click(dynamic_cast<dialogs::frmListItem&>(form).cmdOK);
        log.statements.clear();
      });
      user.Click(button);
      EXPECT_FALSE(window.exchange.AddNode);
      EXPECT_TRUE(log.statements.empty());
      user.ExpectModal([this](controls::Form& form) {
        user.Click(dynamic_cast<dialogs::frmListItem&>(form).cmdBtn[kCheckAllButton]);
        user.ExpectMsgBox(controls::kResultYes);
        user.PressKey(form, test_support::kKeyEscape);
        log.statements.clear();
      });
      user.Click(button);
      EXPECT_TRUE(log.statements.empty());
    };
    nothing(kUsersTree, Keys::GroupsOfUser(9), window.Users.cmdMemberOf[kAssignButton]);
    nothing(kUsersTree, Keys::OwnPermissions(9), window.Users.cmdUserPermission[kAssignButton]);
    nothing(kGroupsTree, Keys::GroupPermissions(6),
            window.Groups.cmdGroupPermission[kAssignButton]);
    Select(window, kGroupsTree, Keys::MembersOfGroup(6));
    user.ExpectModal([this](controls::Form& form) {
      user.PressKey(form, test_support::kKeyEscape);
      log.statements.clear();
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(LinkAssignment, WithoutAnAccountOpensNothing) {
  Run([this](frmUserGroupPerm& window) {
    log.statements.clear();
    window.Users.cmdMemberOf_Click(kAssignButton);
    window.Users.cmdUserPermission_Click(kAssignButton);
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    window.Groups.cmdMember_Click(kAssignButton);
    window.Groups.cmdGroupPermission_Click(kAssignButton);
    EXPECT_TRUE(log.statements.empty());
  });
}

TEST_F(LinkAssignment, ForgetsWhatAnEarlierDialogHasHandedBack) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    window.exchange.AddNode = true;
    user.ExpectModal([](controls::Form& form) { form.Unload(); });
    user.Click(window.Users.cmdMemberOf[kAssignButton]);
    EXPECT_FALSE(window.exchange.AddNode);
  });
}

TEST_F(LinkAssignment, OnTheUsersTabBringsBackInStepWhatARemovalThereHadLeft) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce membre du groupe ?");
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(12, 9)));
    ExpectChooser(L"Groupes", L"Membre du Groupe", 9, {6});
    user.Click(window.Users.cmdMemberOf[kAssignButton]);
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(12, 9)));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, OfAGroupToAdminIsNoEditOfHimAndShowsInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(1));
    ExpectChooser(L"Groupes", L"Membre du Groupe", 1, {6});
    user.Click(window.Users.cmdMemberOf[kAssignButton]);
    EXPECT_TRUE(Has(window, kGroupsTree, Keys::MemberOfGroup(6, 1)));
    ExpectInStep(window);
  });
}

TEST_F(LinkAssignment, OfALinkThatSomebodyElseHasMadeMeanwhileIsReportedAndKeepsWhatWasWritten) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    const Strings before = Look(window);
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmListItem&>(form);
      for (const std::int32_t id : {3, 6}) user.Toggle(dialog.List1, ItemOf(dialog.List1, id));
      Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
      user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kExclamation});
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Users.cmdMemberOf[kAssignButton]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"UpdateData Error ["));
    EXPECT_FALSE(window.exchange.AddNode);
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID = 3"), 1);
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    EXPECT_TRUE(Has(window, kUsersTree, Keys::GroupOfUser(9, 3)));
  });
}

}  // namespace
}  // namespace browser
