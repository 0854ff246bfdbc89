#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"
#include "data/NodeKey.h"
#include "data/Text.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::TreeNodes;
using controls::TreeView;
using test_support::Keys;
using Strings = std::vector<std::wstring>;

std::wstring U(const char* utf8) {
  return data::FromUtf8(utf8);
}

class Trees : public test_support::MainWindowFixture {};

TEST_F(Trees, EveryNodeHasTheKeyOfItsKindComposedFromItsParents) {
  Run([](frmUserGroupPerm& window) {
    const TreeView& users = window.Users.TreeView1;
    const TreeNodes& nodes = users.Nodes();
    const controls::NodeId martin = NodeAt(users, {L"Martin (Jean Martin)"});
    EXPECT_EQ(nodes.Key(nodes.Root()), Keys::Root());
    EXPECT_EQ(nodes.Key(martin), Keys::User(9));
    EXPECT_EQ(nodes.Key(Child(users, martin, L"Membre du Groupe")), Keys::GroupsOfUser(9));
    EXPECT_EQ(nodes.Key(Child(users, martin, L"Droits Utilisateur")), Keys::OwnPermissions(9));
    EXPECT_EQ(nodes.Key(Child(users, martin, L"Ensemble des Droits")), Keys::AllPermissions(9));
    EXPECT_NE(nodes.Find(Keys::GroupOfUser(9, 12)), controls::kNoNode);
    EXPECT_NE(nodes.Find(Keys::OwnPermission(9, 14)), controls::kNoNode);
    EXPECT_NE(nodes.Find(Keys::AnyPermission(9, 16)), controls::kNoNode);

    const TreeNodes& groups = window.Groups.TreeView1.Nodes();
    EXPECT_EQ(groups.Key(groups.Root()), Keys::Root());
    for (const std::wstring& key :
         {Keys::Group(6), Keys::MembersOfGroup(6), Keys::MemberOfGroup(6, 15),
          Keys::GroupPermissions(6), Keys::GroupPermission(6, 21)}) {
      EXPECT_NE(groups.Find(key), controls::kNoNode) << data::ToUtf8(key);
    }
  });
}

TEST_F(Trees, EveryKeyReadsBackAsWhatItsNodeStandsFor) {
  Run([](frmUserGroupPerm& window) {
    for (const int tab : {kUsersTree, kGroupsTree}) {
      const TreeNodes& nodes = window.Page(tab).TreeView1.Nodes();
      std::set<std::wstring> keys;
      for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
           node = nodes.NextIndex(node)) {
        const std::wstring key = nodes.Key(node);
        EXPECT_TRUE(keys.insert(key).second) << data::ToUtf8(key);
        const std::wstring type = data::GetTypeNode(key);
        if (type == L"US" || type == L"UG") {
          EXPECT_EQ(data::GetUserID(key), nodes.Id(node));
        } else if (type == L"GR" || type == L"GU") {
          EXPECT_EQ(data::GetGroupID(key), nodes.Id(node));
        } else if (type == L"PU" || type == L"PA" || type == L"PG") {
          EXPECT_EQ(data::GetPermID(key), nodes.Id(node));
        }
      }
      EXPECT_EQ(keys.size(), static_cast<std::size_t>(nodes.Count()));
    }
  });
}

TEST_F(Trees, AUserShowsHisGroupsUnderTheirDisplayForms) {
  Run([](frmUserGroupPerm& window) {
    const TreeView& users = window.Users.TreeView1;
    EXPECT_EQ(ChildTexts(users, NodeAt(users, {L"Martin (Jean Martin)", L"Membre du Groupe"})),
              (Strings{U("Laboratoire (Mesures et essais)"),
                       U("Production (Ateliers d'Annecy et de Châteauroux)"),
                       U("Tout le monde (Tous les utilisateurs)")}));
  });
}

TEST_F(Trees, AllPermissionsAreThoseThroughGroupsAndTheUsersOwnEachOnce) {
  Run([](frmUserGroupPerm& window) {
    const TreeView& users = window.Users.TreeView1;
    const Strings own{U("Consulter le stock"), U("Saisir un relevé de contrôle")};
    EXPECT_EQ(ChildTexts(users, NodeAt(users, {L"Martin (Jean Martin)", L"Droits Utilisateur"})),
              own);
    EXPECT_EQ(ChildTexts(users, NodeAt(users, {L"Martin (Jean Martin)", L"Ensemble des Droits"})),
              (Strings{U("Consulter le stock"), U("Consulter le tableau de bord"),
                       U("Consulter les gammes"), U("Corriger le stock"),
                       U("Lancer un ordre de fabrication"), U("Modifier ses préférences"),
                       U("Saisir un relevé de contrôle"), U("Solder un ordre de fabrication")}));
  });
}

TEST_F(Trees, AllPermissionsHoldAnOwnOneThatNoGroupGives) {
  Run([](frmUserGroupPerm& window) {
    const TreeView& users = window.Users.TreeView1;
    const std::wstring text = U("Consulter les factures");
    const controls::NodeId folder =
        NodeAt(users, {L"Morin (" + U("Agnès") + L" Morin)", L"Ensemble des Droits"});
    EXPECT_NE(Child(users, folder, text), controls::kNoNode);
  });
}

TEST_F(Trees, APermissionsImageTellsWhetherItIsHeldDirectly) {
  Run([](frmUserGroupPerm& window) {
    const TreeNodes& nodes = window.Users.TreeView1.Nodes();
    EXPECT_EQ(nodes.Image(nodes.Find(Keys::OwnPermission(9, 14))), kPermissionImage);
    EXPECT_EQ(nodes.Image(nodes.Find(Keys::AnyPermission(9, 14))), kPermissionImage);
    EXPECT_EQ(nodes.Image(nodes.Find(Keys::AnyPermission(9, 16))), kInheritedPermissionImage);
  });
}

TEST_F(Trees, ProtectedAccountsHaveImagesOfTheirOwnWhereverTheyStand) {
  Run(
      [](frmUserGroupPerm& window) {
        const TreeNodes& users = window.Users.TreeView1.Nodes();
        const TreeNodes& groups = window.Groups.TreeView1.Nodes();
        EXPECT_EQ(users.Image(users.Find(Keys::User(1))), kProtectedUserImage);
        EXPECT_EQ(users.Image(users.Find(Keys::User(2))), kProtectedUserImage);
        EXPECT_EQ(users.Image(users.Find(Keys::User(9))), kUserImage);
        EXPECT_EQ(users.Image(users.Find(Keys::GroupOfUser(9, 2))), kProtectedGroupImage);
        EXPECT_EQ(users.Image(users.Find(Keys::GroupOfUser(9, 7))), kGroupImage);
        EXPECT_EQ(groups.Image(groups.Find(Keys::Group(1))), kProtectedGroupImage);
        EXPECT_EQ(groups.Image(groups.Find(Keys::Group(6))), kGroupImage);
        EXPECT_EQ(groups.Image(groups.Find(Keys::MemberOfGroup(1, 1))), kProtectedUserImage);
      },
      L"Moreau");
}

TEST_F(Trees, AGroupShowsItsMembersAndItsPermissions) {
  Run([](frmUserGroupPerm& window) {
    const TreeView& groups = window.Groups.TreeView1;
    const std::wstring group = U("Qualité (Contrôle final et réclamations)");
    EXPECT_EQ(ChildTexts(groups, NodeAt(groups, {group, L"Membres"})),
              (Strings{U("Clément (Joëlle Clément)"), U("Guérin (Aurélie Guérin)"),
                       U("L'Hermitte (Gwenaëlle L'Hermitte)"), U("Œuvrard (Cœlia Œuvrard)")}));
    EXPECT_EQ(ChildTexts(groups, NodeAt(groups, {group, L"Droits du Groupe"})),
              (Strings{U("Bloquer un lot"), U("Consulter le stock"), U("Consulter les gammes"),
                       U("Libérer un lot"), U("Saisir un relevé de contrôle"),
                       U("Traiter une réclamation")}));
  });
}

TEST_F(Trees, AnAccountWithoutFullNameOrDescriptionShowsItsNameAlone) {
  Run([](frmUserGroupPerm& window) {
    NodeAt(window.Users.TreeView1, {L"Blanc"});    // a null
    NodeAt(window.Users.TreeView1, {L"Mercier"});  // an empty text
    NodeAt(window.Groups.TreeView1, {L"Achats"});
  });
}

TEST_F(Trees, ADeletedUserIsShownNowhere) {
  Run([](frmUserGroupPerm& window) {
    for (const int tab : {kUsersTree, kGroupsTree}) {
      const TreeNodes& nodes = window.Page(tab).TreeView1.Nodes();
      for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
           node = nodes.NextIndex(node)) {
        EXPECT_EQ(nodes.Text(node).find(L"Garnier"), std::wstring::npos);
      }
    }
  });
}

// As a database without keys may have them.
TEST_F(Trees, RowsOfOneIdentifierMakeOneNode) {
  Raw().Execute("DROP VIEW QRUSERV");
  Raw().Execute(
      "CREATE VIEW QRUSERV AS SELECT USERID, NAME, FULLNAME, PASSWORD FROM QRUSER"
      " WHERE COALESCE(VFLG, '') <> 'D' UNION ALL SELECT 9, 'Martin', 'encore', NULL");
  Run([](frmUserGroupPerm& window) {
    const auto nodesOfMartin = [&](int tree, const controls::KeyForm& form) {
      const TreeNodes& nodes = window.Page(tree).TreeView1.Nodes();
      std::map<controls::NodeId, int> perParent;
      for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
           node = nodes.NextIndex(node)) {
        if (nodes.Id(node) == 9 && nodes.FormOf(node).prefix == form.prefix) {
          ++perParent[nodes.Parent(node)];
        }
      }
      return perParent;
    };
    EXPECT_EQ(nodesOfMartin(0, kUserKey).size(), 1U);
    EXPECT_GT(nodesOfMartin(1, kGroupUserKey).size(), 1U);
    for (const auto& [parent, count] : nodesOfMartin(0, kUserKey)) EXPECT_EQ(count, 1);
    for (const auto& [parent, count] : nodesOfMartin(1, kGroupUserKey)) EXPECT_EQ(count, 1);
    EXPECT_EQ(window.Users.accountCount, 39);
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    EXPECT_EQ(nodesOfMartin(0, kUserKey).size(), 1U);
  });
}

TEST_F(Trees, AccountsAreSortedByTextWithoutRegardToCaseOrAccents) {
  Run([](frmUserGroupPerm& window) {
    const Strings users = ChildTexts(window.Users.TreeView1, window.Users.TreeView1.Nodes().Root());
    ASSERT_EQ(users.size(), 39U);
    const auto place = [&](const char* start) {
      const std::wstring wanted = U(start);
      const auto found = std::find_if(users.begin(), users.end(), [&](const std::wstring& text) {
        return text.starts_with(wanted);
      });
      EXPECT_NE(found, users.end()) << start;
      return found - users.begin();
    };
    EXPECT_EQ(place("Admin"), 0);
    EXPECT_LT(place("D'Angelo"), place("Dubois"));
    EXPECT_LT(place("de La Rochefoucauld"), place("Dubois"));
    EXPECT_LT(place("Gauthier"), place("Guérin"));
    EXPECT_LT(place("Müller"), place("Nguyễn"));
    EXPECT_LT(place("Nguyễn"), place("Œuvrard"));
    EXPECT_LT(place("Œuvrard"), place("Perrin"));
    EXPECT_EQ(place("Żak"), 38);
  });
}

TEST_F(Trees, TheStoredNameIsKeptBesideTheDisplayedText) {
  Run([](frmUserGroupPerm& window) {
    const TreeNodes& users = window.Users.TreeView1.Nodes();
    const TreeNodes& groups = window.Groups.TreeView1.Nodes();
    EXPECT_EQ(users.StoredName(users.Find(Keys::User(9))), L"Martin");
    EXPECT_EQ(groups.StoredName(groups.Find(Keys::Group(2))), L"Everyone");
    EXPECT_EQ(groups.Text(groups.Find(Keys::Group(2))), L"Tout le monde (Tous les utilisateurs)");
  });
}

TEST_F(Trees, EachDisplayFormIsAskedForOnceInATree) {
  Run([this](frmUserGroupPerm&) {
    for (const wchar_t* call : {L"GetDisplayName 104 Everyone", L"GetDisplayName 105 All users"}) {
      EXPECT_EQ(std::count(log.serverCalls.begin(), log.serverCalls.end(), call), 2)
          << data::ToUtf8(call);
    }
    EXPECT_EQ(std::count(log.serverCalls.begin(), log.serverCalls.end(),
                         L"GetDisplayName 101 Session audit"),
              2);
  });
}

TEST_F(Trees, NamesOfAnyKindAreShownAsTheyAre) {
  const std::string longName(4000, 'x');
  const std::string names[] = {"O'Neil \"le Grand\"",
                               "100 % sûr (enfin)",
                               "a\\b\\\\c",
                               "&Esperluette && Cie",
                               "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",  // right to left
                               "\xF0\x9F\x94\x91 clé",              // outside the BMP
                               longName};
  int id = 1000;
  for (const std::string& name : names) {
    std::string quoted = name;
    for (std::size_t at = 0; (at = quoted.find('\'', at)) != std::string::npos; at += 2) {
      quoted.insert(at, 1, '\'');
    }
    Raw().Execute("INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (" + std::to_string(++id) +
                  ", '" + quoted + "', NULL)");
  }
  Run([&](frmUserGroupPerm& window) {
    const TreeNodes& nodes = window.Users.TreeView1.Nodes();
    int shown = 1000;
    for (const std::string& name : names) {
      const controls::NodeId node = nodes.Find(Keys::User(++shown));
      ASSERT_NE(node, controls::kNoNode);
      EXPECT_EQ(nodes.Text(node), data::FromUtf8(name));
      EXPECT_EQ(nodes.Children(node), 3);
    }
  });
}

TEST_F(Trees, TheStatementsAreThoseOfEachAccountInTheOrderOfItsFolders) {
  Run([this](frmUserGroupPerm&) {
    const auto at = [this](const std::wstring& statement) {
      return std::find(log.statements.begin(), log.statements.end(), statement);
    };
    const auto martin = at(data::SqlSelectUserGroups(9));
    ASSERT_LT(martin + 2, log.statements.end());
    EXPECT_EQ(*(martin + 1), data::SqlSelectUserPermissionNames(9));
    EXPECT_EQ(*(martin + 2), data::SqlSelectInheritedPermissions(9));
    const auto quality = at(data::SqlSelectGroupUsers(6));
    ASSERT_LT(quality + 1, log.statements.end());
    EXPECT_EQ(*(quality + 1), data::SqlSelectGroupPermissionNames(6));
    EXPECT_LT(at(data::SqlSelectAllUsers()), at(data::SqlSelectAllGroups()));
    // Three lookups, two brackets, the list and three folders a user, the list and two folders a
    // group, the count of permissions.
    EXPECT_EQ(log.statements.size(), 3U + 2U + 1U + 3U * 39U + 1U + 2U * 12U + 1U);
  });
}

}  // namespace
}  // namespace browser
