#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::TreeNodes;

// Martin is user 9; groups 7 and 12 are his, permission 14 is his own.
class Lookup : public test_support::MainWindowFixture {
 protected:
  static int User(frmUserGroupPerm& window, const wchar_t* key) {
    return window.TreeView1[0].Nodes().Find(key);
  }
  static int Group(frmUserGroupPerm& window, const wchar_t* key) {
    return window.TreeView1[1].Nodes().Find(key);
  }
  void ExpectReport(const wchar_t* procedure, const wchar_t* number = L"35601") {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = std::wstring(procedure) + L" Error [" + number + L"]\r\n" +
                                 desktop.LoadResString(10000 + std::stoi(number)),
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
  }
};

TEST_F(Lookup, TheTypeOfANodeIsTheTwoCharactersBehindTheFirstTypeMarker) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lookup.GetTypeNode(L"\\TUS \\U12"), L"US");
    EXPECT_EQ(window.lookup.GetTypeNode(L"x\\TGR\\TUS"), L"GR");
    EXPECT_EQ(window.lookup.GetTypeNode(L"\\TR"), L"R");
  });
}

TEST_F(Lookup, AKeyWithoutATypeHasTheEmptyTypeAndNoOwner) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring tag = window.lookup.GetTypeNode(L"\\U12");
    EXPECT_EQ(tag, L"");
    EXPECT_EQ(window.lookup.GetIndexUserNode(tag, 2), L"-1");
    EXPECT_EQ(window.lookup.GetIndexGroupNode(tag, 2), L"-1");
    EXPECT_EQ(window.lookup.GetUserName(tag, 2), L"");
    EXPECT_EQ(window.lookup.GetGroupName(tag, 2), L"");
  });
}

TEST_F(Lookup, APermissionsNumberMayHaveBlanksAroundIt) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lookup.GetPermID(L"\\TPU \\U12 \\P  7 "), 7);
    EXPECT_EQ(window.lookup.GetPermID(L""), -1);
    EXPECT_EQ(window.lookup.GetPermID(L"\\TUS \\U12"), -1);
  });
}

TEST_F(Lookup, APermissionsNumberThatIsNoneIsReported) {
  Run([this](frmUserGroupPerm& window) {
    ExpectReport(L"GetPermID", L"13");
    EXPECT_EQ(window.lookup.GetPermID(L"\\TPU \\U12 \\Psept"), -1);
    ExpectReport(L"GetPermID", L"6");
    EXPECT_EQ(window.lookup.GetPermID(L"\\TPU \\U12 \\P2147483648"), -1);
  });
}

TEST_F(Lookup, EveryNodeOfAUserLeadsToHisNode) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring martin = std::to_wstring(User(window, L"\\TUS \\U9"));
    for (const wchar_t* key :
         {L"\\TUS \\U9", L"\\TMO \\U9 \\G", L"\\TGU \\U9 \\G12", L"\\TUP \\U9 \\P",
          L"\\TPU \\U9 \\P14", L"\\TAP \\U9 \\P", L"\\TPA \\U9 \\P14"}) {
      const std::wstring tag = window.lookup.GetTypeNode(key);
      EXPECT_EQ(window.lookup.GetIndexUserNode(tag, User(window, key)), martin);
    }
    EXPECT_EQ(window.lookup.GetIndexUserNode(L"RT", 1), L"-1");
    EXPECT_EQ(window.lookup.GetIndexUserNode(L"GR", 2), L"-1");
  });
}

TEST_F(Lookup, EveryNodeOfAGroupLeadsToItsNode) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring quality = std::to_wstring(Group(window, L"\\TGR \\G6"));
    for (const wchar_t* key : {L"\\TGR \\G6", L"\\TMS \\G6 \\U", L"\\TUG \\G6 \\U15",
                               L"\\TGP \\G6 \\P", L"\\TPG \\G6 \\P21"}) {
      const std::wstring tag = window.lookup.GetTypeNode(key);
      EXPECT_EQ(window.lookup.GetIndexGroupNode(tag, Group(window, key)), quality);
    }
    EXPECT_EQ(window.lookup.GetIndexGroupNode(L"RT", 1), L"-1");
    EXPECT_EQ(window.lookup.GetIndexGroupNode(L"US", 2), L"-1");
  });
}

TEST_F(Lookup, TheUsersNameIsGivenForHisNodesAndForMembers) {
  Run([](frmUserGroupPerm& window) {
    for (const wchar_t* key : {L"\\TUS \\U9", L"\\TMO \\U9 \\G", L"\\TGU \\U9 \\G12",
                               L"\\TUP \\U9 \\P", L"\\TPU \\U9 \\P14"}) {
      const std::wstring tag = window.lookup.GetTypeNode(key);
      EXPECT_EQ(window.lookup.GetUserName(tag, User(window, key)), L"Martin (Jean Martin)");
    }
    const int member = Group(window, L"\\TUG \\G7 \\U9");
    EXPECT_EQ(window.lookup.GetUserName(L"UG", member), L"Martin (Jean Martin)");
    EXPECT_EQ(window.lookup.GetUserName(L"RT", 1), L"");
    EXPECT_EQ(window.lookup.GetUserName(L"GR", 2), L"");
  });
}

TEST_F(Lookup, TheFolderOfAllPermissionsGivesNoNameThoughItsUserIsFound) {
  Run([](frmUserGroupPerm& window) {
    const int folder = User(window, L"\\TAP \\U9 \\P");
    const int leaf = User(window, L"\\TPA \\U9 \\P14");
    EXPECT_EQ(window.lookup.GetUserName(L"AP", folder), L"");
    EXPECT_EQ(window.lookup.GetUserName(L"PA", leaf), L"");
    EXPECT_NE(window.lookup.GetIndexUserNode(L"AP", folder), L"-1");
    EXPECT_NE(window.lookup.GetIndexUserNode(L"PA", leaf), L"-1");
  });
}

TEST_F(Lookup, TheGroupsNameIsGivenForItsNodesAndForMemberships) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring name = L"Laboratoire (Mesures et essais)";
    for (const wchar_t* key :
         {L"\\TGR \\G12", L"\\TMS \\G12 \\U", L"\\TUG \\G12 \\U9", L"\\TGP \\G12 \\P"}) {
      const std::wstring tag = window.lookup.GetTypeNode(key);
      EXPECT_EQ(window.lookup.GetGroupName(tag, Group(window, key)), name);
    }
    EXPECT_EQ(window.lookup.GetGroupName(L"GU", User(window, L"\\TGU \\U9 \\G12")), name);
    EXPECT_EQ(window.lookup.GetGroupName(L"MO", User(window, L"\\TMO \\U9 \\G")), L"");
  });
}

TEST_F(Lookup, APermissionsNameIsGivenForDirectPermissionsOnly) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lookup.GetPermName(L"PU", User(window, L"\\TPU \\U9 \\P14")),
              L"Consulter le stock");
    EXPECT_EQ(window.lookup.GetPermName(L"PG", Group(window, L"\\TPG \\G6 \\P14")),
              L"Consulter le stock");
    EXPECT_EQ(window.lookup.GetPermName(L"PA", User(window, L"\\TPA \\U9 \\P14")), L"");
    EXPECT_EQ(window.lookup.GetPermName(L"UP", User(window, L"\\TUP \\U9 \\P")), L"");
  });
}

TEST_F(Lookup, ANodeIsFoundByItsFullPathExactly) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"Utilisateurs\\Martin (Jean Martin)"),
              User(window, L"\\TUS \\U9"));
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"Utilisateurs"), 1);
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"utilisateurs"), -1);
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"Martin (Jean Martin)"), -1);
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"\\Utilisateurs"), -1);
    EXPECT_EQ(window.lookup.GetIndexNode(0, L""), -1);
    EXPECT_EQ(window.lookup.GetIndexNode(
                  1, L"Groupes\\Laboratoire (Mesures et essais)\\Membres\\Martin (Jean Martin)"),
              Group(window, L"\\TUG \\G12 \\U9"));
  });
}

TEST_F(Lookup, OfTwoNodesOfOneFullPathTheLowerIndexIsFound) {
  Raw().Execute(
      "INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (500, 'Martin', 'Jean Martin')");
  Run([](frmUserGroupPerm& window) {
    const int first = User(window, L"\\TUS \\U9");
    const int second = User(window, L"\\TUS \\U500");
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"Utilisateurs\\Martin (Jean Martin)"),
              std::min(first, second));
  });
}

TEST_F(Lookup, ANameWithBackslashesIsFoundAsItStands) {
  Raw().Execute("INSERT INTO QRUSER (USERID, NAME) VALUES (500, 'usine\\nord')");
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.lookup.GetIndexNode(0, L"Utilisateurs\\usine\\nord"),
              User(window, L"\\TUS \\U500"));
  });
}

TEST_F(Lookup, TheAccountAboveANodeIsFoundByTheCaptions) {
  Run([](frmUserGroupPerm& window) {
    const auto above = [&](const wchar_t* key) {
      return window.lookup.GetIndParentNode(0, User(window, key), L"Droits Utilisateur",
                                            L"Membre du Groupe");
    };
    const int martin = User(window, L"\\TUS \\U9");
    EXPECT_EQ(window.lookup.GetIndParentNode(0, 1, L"a", L"b"), -1);
    EXPECT_EQ(above(L"\\TUS \\U9"), martin);
    EXPECT_EQ(above(L"\\TMO \\U9 \\G"), martin);
    EXPECT_EQ(above(L"\\TUP \\U9 \\P"), martin);
    EXPECT_EQ(above(L"\\TGU \\U9 \\G12"), martin);
    EXPECT_EQ(above(L"\\TPU \\U9 \\P14"), martin);
    EXPECT_EQ(above(L"\\TPA \\U9 \\P14"), martin);
    // A folder by another caption counts as a leaf.
    EXPECT_EQ(above(L"\\TAP \\U9 \\P"), 1);
    const int leaf = User(window, L"\\TGU \\U9 \\G12");
    EXPECT_EQ(window.lookup.GetIndParentNode(0, leaf, L"Membre du Groupe", L"Membre du Groupe"),
              -1);
  });
}

TEST_F(Lookup, ANodeThatDoesNotLiveIsReportedUnderTheOperationsName) {
  Run([this](frmUserGroupPerm& window) {
    const TreeLookup& lookup = window.lookup;
    ExpectReport(L"GetIndexUserNode");
    EXPECT_EQ(lookup.GetIndexUserNode(L"US", 999999), L"-1");
    ExpectReport(L"GetIndexGroupNode");
    EXPECT_EQ(lookup.GetIndexGroupNode(L"UG", 1), L"-1");
    ExpectReport(L"GetUserName");
    EXPECT_EQ(lookup.GetUserName(L"US", 0), L"");
    ExpectReport(L"GetGroupName");
    EXPECT_EQ(lookup.GetGroupName(L"GR", -1), L"");
    ExpectReport(L"GetPermName");
    EXPECT_EQ(lookup.GetPermName(L"PU", 999999), L"");
    ExpectReport(L"GetIndParentNode");
    EXPECT_EQ(lookup.GetIndParentNode(1, 999999, L"", L""), -1);
    ExpectReport(L"DelAllChild");
    window.Folders().DelAllChild(0, 999999);
    ExpectReport(L"EditMemberOfNode");
    EXPECT_EQ(window.Folders().EditMemberOfNode(999999), data::kFailed);
    ExpectReport(L"EditUserPermissionsNode");
    EXPECT_EQ(window.Folders().EditUserPermissionsNode(999999), data::kFailed);
    ExpectReport(L"EditAllPermissionsNode");
    EXPECT_EQ(window.Folders().EditAllPermissionsNode(999999), data::kFailed);
    ExpectReport(L"EditMembersNode");
    EXPECT_EQ(window.Folders().EditMembersNode(999999), data::kFailed);
    ExpectReport(L"EditGroupPermissionsNode");
    EXPECT_EQ(window.Folders().EditGroupPermissionsNode(999999), data::kFailed);
  });
}

}  // namespace
}  // namespace browser
