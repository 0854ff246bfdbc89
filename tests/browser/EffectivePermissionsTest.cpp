#include "browser/rules/EffectivePermissions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "browser/rules/AccountName.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/walk/Tables.h"

namespace browser {
namespace {

using controls::kNoNode;
using controls::NodeId;
using controls::TreeNodes;
using test_support::Keys;
using test_support::Tables;

// Who has what, and why, held against the tables of the database.
class WhoHasWhat : public CommandTest {
 protected:
  using Ids = std::vector<std::int32_t>;

  static Ids IdsOf(const TreeNodes& nodes, const std::vector<NodeId>& accounts) {
    Ids ids;
    for (const NodeId account : accounts) ids.push_back(nodes.Id(account));
    std::ranges::sort(ids);
    return ids;
  }

  // The groups that give the permission to the user, by the tables.
  static Ids GivingGroups(const Tables& tables, std::int32_t userId, std::int32_t permission) {
    Ids ids;
    for (const auto& [id, group] : tables.groups) {
      if (!group.deleted && tables.memberships.contains({userId, id}) &&
          tables.groupPermissions.contains({id, permission})) {
        ids.push_back(id);
      }
    }
    return ids;
  }

  static void ExpectSource(const TreeNodes& groups, const Tables& tables, std::int32_t userId,
                           std::int32_t permission, const PermissionSource& source) {
    EXPECT_EQ(source.direct, tables.userPermissions.contains({userId, permission}))
        << "user " << userId << ", permission " << permission;
    EXPECT_EQ(IdsOf(groups, source.groups), GivingGroups(tables, userId, permission))
        << "user " << userId << ", permission " << permission;
  }
};

TEST_F(WhoHasWhat, EveryUserHasWhatTheTablesGiveHimFromWhereTheyGiveIt) {
  Run([this](frmUserGroupPerm& window) {
    auto raw = Raw();
    const Tables tables = test_support::ReadTables(raw);
    const TreeNodes& users = window.Users.TreeView1.Nodes();
    const TreeNodes& groups = window.Groups.TreeView1.Nodes();
    const EffectivePermissions permissions(users, groups);
    int checked = 0;
    for (const NodeId one : users.ChildrenInOrder(users.Root())) {
      std::set<std::int32_t> held;
      for (const HeldPermission& right : permissions.PermissionsOf(one)) {
        EXPECT_TRUE(held.insert(right.permission).second);
        EXPECT_EQ(users.Id(right.leaf), right.permission);
        ExpectSource(groups, tables, users.Id(one), right.permission, right.source);
      }
      for (const auto& [id, name] : tables.permissions) {
        const bool given = tables.userPermissions.contains({users.Id(one), id}) ||
                           !GivingGroups(tables, users.Id(one), id).empty();
        EXPECT_EQ(held.contains(id), given) << users.Id(one) << " has " << id;
        EXPECT_EQ(permissions.Has(one, id), given);
        ++checked;
      }
    }
    EXPECT_EQ(checked, 39 * 30);
  });
}

TEST_F(WhoHasWhat, TheHoldersOfAPermissionAreThoseWhoHaveItInTheOrderOfTheTree) {
  Run([this](frmUserGroupPerm& window) {
    auto raw = Raw();
    const Tables tables = test_support::ReadTables(raw);
    const TreeNodes& users = window.Users.TreeView1.Nodes();
    const TreeNodes& groups = window.Groups.TreeView1.Nodes();
    const EffectivePermissions permissions(users, groups);
    for (const auto& [id, name] : tables.permissions) {
      Ids wanted;
      for (const NodeId one : users.ChildrenInOrder(users.Root())) {
        if (permissions.Has(one, id)) wanted.push_back(users.Id(one));
      }
      Ids found;
      for (const PermissionHolder& holder : permissions.HoldersOf(id)) {
        found.push_back(users.Id(holder.user));
        ExpectSource(groups, tables, found.back(), id, holder.source);
      }
      EXPECT_EQ(found, wanted) << id;
    }
    EXPECT_TRUE(permissions.HoldersOf(0).empty());
    EXPECT_TRUE(permissions.HoldersOf(-1).empty());
  });
}

TEST_F(WhoHasWhat, IsAnsweredWithoutAnythingBeingSent) {
  Run([this](frmUserGroupPerm& window) {
    log.calls.clear();
    const EffectivePermissions permissions(window.Users.TreeView1.Nodes(),
                                           window.Groups.TreeView1.Nodes());
    EXPECT_FALSE(permissions.HoldersOf(2).empty());
    EXPECT_FALSE(permissions.PermissionsOf(At(window, kUsersTree, Keys::User(9))).empty());
    EXPECT_TRUE(log.calls.empty());
  });
}

TEST(EmptyTrees, GiveNobodyAnything) {
  const TreeNodes none([](std::wstring_view) { return std::string(); });
  EXPECT_TRUE(EffectivePermissions(none, none).HoldersOf(1).empty());
}

class AccountNames : public CommandTest {};

TEST_F(AccountNames, AreTheTwoPartsOfWhatANodeShows) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Labo (A)', DESCR = 'B' WHERE GROUPID = 7");
  Raw().Execute("UPDATE QRUSER SET FULLNAME = 'Jean (dit \"le grand\") Martin' WHERE USERID = 9");
  Raw().Execute("UPDATE QRUSER SET FULLNAME = NULL WHERE USERID = 10");
  Run([this](frmUserGroupPerm& window) {
    const TreeNodes& users = window.Users.TreeView1.Nodes();
    const TreeNodes& groups = window.Groups.TreeView1.Nodes();
    const NodeId martin = At(window, kUsersTree, Keys::User(9));
    EXPECT_EQ(AccountName(users, martin), L"Martin");
    EXPECT_EQ(AccountAddition(users, martin), L"Jean (dit \"le grand\") Martin");
    const NodeId plain = At(window, kUsersTree, Keys::User(10));
    EXPECT_EQ(AccountName(users, plain), users.Text(plain));
    EXPECT_EQ(AccountAddition(users, plain), L"");
    const NodeId everyone = At(window, kGroupsTree, Keys::Group(2));
    EXPECT_EQ(AccountName(groups, everyone), L"Tout le monde");
    EXPECT_EQ(AccountAddition(groups, everyone), L"Tous les utilisateurs");
    const NodeId laboratory = At(window, kGroupsTree, Keys::Group(7));
    EXPECT_EQ(AccountName(groups, laboratory), L"Labo (A) (B)");
    EXPECT_EQ(AccountAddition(groups, laboratory), L"");
  });
}

}  // namespace
}  // namespace browser
