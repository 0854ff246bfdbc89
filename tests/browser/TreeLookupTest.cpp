#include <gtest/gtest.h>

#include "tests/support/keys/Keys.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::NodeId;
using controls::TreeNodes;
using test_support::Keys;

// Martin is user 9; groups 7 and 12 are his, permission 14 is his own.
class Lookup : public test_support::MainWindowFixture {
 protected:
  static NodeId User(frmUserGroupPerm& window, const std::wstring& key) {
    return window.Users.TreeView1.Nodes().Find(key);
  }
  static NodeId Group(frmUserGroupPerm& window, const std::wstring& key) {
    return window.Groups.TreeView1.Nodes().Find(key);
  }
  void ExpectReport(const wchar_t* procedure, const wchar_t* number = L"35601") {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = std::wstring(procedure) + L" Error [" + number + L"]\r\n" +
                                 TextOfError(std::stol(number)),
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
  }
};

TEST_F(Lookup, TheTypeOfANodeIsTheTwoCharactersAfterTheFirstTypeMarker) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.Users.lookup.GetTypeNode(Keys::User(12)), L"US");
    EXPECT_EQ(window.Users.lookup.GetTypeNode(L"x\\TGR\\TUS"), L"GR");
    EXPECT_EQ(window.Users.lookup.GetTypeNode(L"\\TR"), L"R");
  });
}

TEST_F(Lookup, AKeyWithoutATypeHasTheEmptyTypeAndNoOwner) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring tag = window.Users.lookup.GetTypeNode(L"\\U12");
    EXPECT_EQ(tag, L"");
    EXPECT_EQ(window.Users.lookup.GetIndexUserNode(tag, NodeId{2}), controls::kNoNode);
    EXPECT_EQ(window.Groups.lookup.GetIndexGroupNode(tag, NodeId{2}), controls::kNoNode);
    EXPECT_EQ(window.Users.lookup.GetUserName(tag, NodeId{2}), L"");
    EXPECT_EQ(window.Users.lookup.GetGroupName(tag, NodeId{2}), L"");
  });
}

TEST_F(Lookup, APermissionsNumberMayHaveBlanksAroundIt) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.Users.lookup.GetPermID(L"\\TPU \\U12 \\P  7 "), 7);
    EXPECT_EQ(window.Users.lookup.GetPermID(L""), -1);
    EXPECT_EQ(window.Users.lookup.GetPermID(Keys::User(12)), -1);
  });
}

TEST_F(Lookup, APermissionsNumberThatIsNoneIsReported) {
  Run([this](frmUserGroupPerm& window) {
    ExpectReport(L"GetPermID", L"13");
    EXPECT_EQ(window.Users.lookup.GetPermID(L"\\TPU \\U12 \\Psept"), -1);
    ExpectReport(L"GetPermID", L"6");
    EXPECT_EQ(window.Users.lookup.GetPermID(L"\\TPU \\U12 \\P2147483648"), -1);
  });
}

TEST_F(Lookup, EveryNodeOfAUserLeadsToHisNode) {
  Run([](frmUserGroupPerm& window) {
    const NodeId martin = User(window, Keys::User(9));
    for (const std::wstring& key :
         {Keys::User(9), Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 12), Keys::OwnPermissions(9),
          Keys::OwnPermission(9, 14), Keys::AllPermissions(9), Keys::AnyPermission(9, 14)}) {
      const std::wstring tag = window.Users.lookup.GetTypeNode(key);
      EXPECT_EQ(window.Users.lookup.GetIndexUserNode(tag, User(window, key)), martin);
    }
    EXPECT_EQ(window.Users.lookup.GetIndexUserNode(L"RT", NodeId{1}), controls::kNoNode);
    EXPECT_EQ(window.Users.lookup.GetIndexUserNode(L"GR", NodeId{2}), controls::kNoNode);
  });
}

TEST_F(Lookup, EveryNodeOfAGroupLeadsToItsNode) {
  Run([](frmUserGroupPerm& window) {
    const NodeId quality = Group(window, Keys::Group(6));
    for (const std::wstring& key :
         {Keys::Group(6), Keys::MembersOfGroup(6), Keys::MemberOfGroup(6, 15),
          Keys::GroupPermissions(6), Keys::GroupPermission(6, 21)}) {
      const std::wstring tag = window.Users.lookup.GetTypeNode(key);
      EXPECT_EQ(window.Groups.lookup.GetIndexGroupNode(tag, Group(window, key)), quality);
    }
    EXPECT_EQ(window.Groups.lookup.GetIndexGroupNode(L"RT", NodeId{1}), controls::kNoNode);
    EXPECT_EQ(window.Groups.lookup.GetIndexGroupNode(L"US", NodeId{2}), controls::kNoNode);
  });
}

TEST_F(Lookup, TheUsersNameIsGivenForHisNodesAndForMembers) {
  Run([](frmUserGroupPerm& window) {
    for (const std::wstring& key : {Keys::User(9), Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 12),
                                    Keys::OwnPermissions(9), Keys::OwnPermission(9, 14)}) {
      const std::wstring tag = window.Users.lookup.GetTypeNode(key);
      EXPECT_EQ(window.Users.lookup.GetUserName(tag, User(window, key)), L"Martin (Jean Martin)");
    }
    const NodeId member = Group(window, Keys::MemberOfGroup(7, 9));
    EXPECT_EQ(window.Groups.lookup.GetUserName(L"UG", member), L"Martin (Jean Martin)");
    EXPECT_EQ(window.Users.lookup.GetUserName(L"RT", NodeId{1}), L"");
    EXPECT_EQ(window.Users.lookup.GetUserName(L"GR", NodeId{2}), L"");
  });
}

TEST_F(Lookup, TheFolderOfAllPermissionsGivesNoNameThoughItsUserIsFound) {
  Run([](frmUserGroupPerm& window) {
    const NodeId folder = User(window, Keys::AllPermissions(9));
    const NodeId leaf = User(window, Keys::AnyPermission(9, 14));
    EXPECT_EQ(window.Users.lookup.GetUserName(L"AP", folder), L"");
    EXPECT_EQ(window.Users.lookup.GetUserName(L"PA", leaf), L"");
    EXPECT_NE(window.Users.lookup.GetIndexUserNode(L"AP", folder), controls::kNoNode);
    EXPECT_NE(window.Users.lookup.GetIndexUserNode(L"PA", leaf), controls::kNoNode);
  });
}

TEST_F(Lookup, TheGroupsNameIsGivenForItsNodesAndForMemberships) {
  Run([](frmUserGroupPerm& window) {
    const std::wstring name = L"Laboratoire (Mesures et essais)";
    for (const std::wstring& key : {Keys::Group(12), Keys::MembersOfGroup(12),
                                    Keys::MemberOfGroup(12, 9), Keys::GroupPermissions(12)}) {
      const std::wstring tag = window.Users.lookup.GetTypeNode(key);
      EXPECT_EQ(window.Groups.lookup.GetGroupName(tag, Group(window, key)), name);
    }
    EXPECT_EQ(window.Users.lookup.GetGroupName(L"GU", User(window, Keys::GroupOfUser(9, 12))),
              name);
    EXPECT_EQ(window.Users.lookup.GetGroupName(L"MO", User(window, Keys::GroupsOfUser(9))), L"");
  });
}

TEST_F(Lookup, APermissionsNameIsGivenForDirectPermissionsOnly) {
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.Users.lookup.GetPermName(L"PU", User(window, Keys::OwnPermission(9, 14))),
              L"Consulter le stock");
    EXPECT_EQ(window.Groups.lookup.GetPermName(L"PG", Group(window, Keys::GroupPermission(6, 14))),
              L"Consulter le stock");
    EXPECT_EQ(window.Users.lookup.GetPermName(L"PA", User(window, Keys::AnyPermission(9, 14))),
              L"");
    EXPECT_EQ(window.Users.lookup.GetPermName(L"UP", User(window, Keys::OwnPermissions(9))), L"");
  });
}

TEST_F(Lookup, ANodeThatDoesNotLiveIsReportedUnderTheOperationsName) {
  Run([this](frmUserGroupPerm& window) {
    const TreeLookup& users = window.Users.lookup;
    const TreeLookup& groups = window.Groups.lookup;
    ExpectReport(L"GetIndexUserNode");
    EXPECT_EQ(users.GetIndexUserNode(L"US", NodeId{999999}), controls::kNoNode);
    ExpectReport(L"GetIndexGroupNode");
    EXPECT_EQ(groups.GetIndexGroupNode(L"UG", NodeId{1}), controls::kNoNode);
    ExpectReport(L"GetUserName");
    EXPECT_EQ(users.GetUserName(L"US", NodeId{0}), L"");
    ExpectReport(L"GetGroupName");
    EXPECT_EQ(groups.GetGroupName(L"GR", controls::kNoNode), L"");
    ExpectReport(L"GetPermName");
    EXPECT_EQ(users.GetPermName(L"PU", NodeId{999999}), L"");
  });
}

}  // namespace
}  // namespace browser
