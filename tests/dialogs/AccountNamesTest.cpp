#include "dialogs/AccountNames.h"

#include <gtest/gtest.h>

#include "controls/Desktop.h"
#include "controls/SortKey.h"
#include "data/Text.h"
#include "tests/support/controls/User.h"

namespace dialogs {
namespace {

constexpr controls::KeyForm kRoot{L"\\TRT", L" ", false};
constexpr controls::KeyForm kUser{L"\\TUS", L"\\U", true};
constexpr controls::KeyForm kGroup{L"\\TGR", L"\\G", true};
constexpr controls::KeyForm kFolder{L"\\TMO", L" \\G", false};

class AccountNames : public ::testing::Test {
 protected:
  AccountNames() : root(tree.Add(controls::kNoNode, kRoot, 0, tree.Share(L"Utilisateurs"), 0)) {}

  controls::NodeId Add(const controls::KeyForm& form, int id, const wchar_t* text) {
    return tree.Add(root, form, id, tree.Share(text), 0);
  }
  bool IsUserTaken(const wchar_t* name, int id = -1) {
    return IsDuplicateUser(global, tree, name, id);
  }
  void ExpectTold(const char* message) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = data::FromUtf8(message),
                       .style = controls::kInformation,
                       .title = L"Admin Utilisateurs"});
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  app::mGlobal global{desktop};
  controls::TreeNodes tree{controls::SortKey};
  controls::NodeId root;
};

TEST_F(AccountNames, ANameIsTakenWhateverItsCaseAndWhateverStandsInParentheses) {
  Add(kUser, 9, L"Martin (Jean Martin)");
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"martin"));
}

TEST_F(AccountNames, AnAccountKeepsItsOwnName) {
  Add(kUser, 9, L"Martin (Jean Martin)");
  EXPECT_FALSE(IsUserTaken(L"Martin", 9));
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"Martin", 10));
}

TEST_F(AccountNames, PartOfANameIsAnotherName) {
  Add(kUser, 9, L"Martin (Jean Martin)");
  EXPECT_FALSE(IsUserTaken(L"Mart"));
  EXPECT_FALSE(IsUserTaken(L"Martinez"));
  EXPECT_FALSE(IsUserTaken(L"Martin (Jean Martin)"));
}

TEST_F(AccountNames, ANameIsTakenByTheNameThatIsStored) {
  tree.SetStoredName(Add(kGroup, 2, L"Tout le monde (Tous)"), L"Everyone");
  for (const wchar_t* name : {L"Everyone", L"everyone", L"EVERYONE", L"tout le monde"}) {
    ExpectTold("Ce groupe existe déjà.");
    EXPECT_TRUE(IsDuplicateGroup(global, tree, name, 12));
    EXPECT_FALSE(IsDuplicateGroup(global, tree, name, 2));
  }
  EXPECT_FALSE(IsDuplicateGroup(global, tree, L"Every", 12));
}

TEST_F(AccountNames, AStoredNameCountsWithWhatItHasInParentheses) {
  tree.SetStoredName(Add(kUser, 9, L"Martin (Paris) (Jean Martin)"), L"Martin (Paris)");
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"MARTIN (PARIS)"));
  EXPECT_FALSE(IsUserTaken(L"Martin (Lyon)"));
}

TEST_F(AccountNames, AnAccentMakesAnotherName) {
  Add(kUser, 9, L"Andre");
  EXPECT_FALSE(IsUserTaken(L"Andr\x00E9"));
}

TEST_F(AccountNames, BlanksAroundTheNodesNameDoNotCount) {
  Add(kUser, 9, L"  Martin  (Jean)");
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"Martin"));
}

TEST_F(AccountNames, OnlyTheFirstDuplicateIsTold) {
  Add(kUser, 9, L"Martin");
  Add(kUser, 10, L"MARTIN (Paul)");
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"Martin"));
}

TEST_F(AccountNames, TheWalkGoesOnPastTheAccountsOwnNode) {
  Add(kUser, 9, L"Martin");
  Add(kUser, 10, L"Roux");
  Add(kUser, 11, L"martin");
  ExpectTold("Cet utilisateur existe déjà.");
  EXPECT_TRUE(IsUserTaken(L"Martin", 9));
}

TEST_F(AccountNames, NodesBelowAnAccountDoNotCount) {
  const controls::NodeId martin = Add(kUser, 9, L"Martin");
  tree.Add(martin, kFolder, 0, tree.Share(L"Membre du Groupe"), 0);
  EXPECT_FALSE(IsUserTaken(L"Membre du Groupe"));
}

TEST_F(AccountNames, AnEmptyTreeHoldsNoDuplicate) {
  EXPECT_FALSE(IsUserTaken(L"Martin"));
  tree.Clear();
  EXPECT_FALSE(IsUserTaken(L"Martin"));
}

TEST_F(AccountNames, GroupsAreCheckedByTheirOwnIdentifierAndMessage) {
  Add(kGroup, 12, L"Labo (Mesures)");
  EXPECT_FALSE(IsDuplicateGroup(global, tree, L"Labo", 12));
  ExpectTold("Ce groupe existe déjà.");
  EXPECT_TRUE(IsDuplicateGroup(global, tree, L"LABO", -1));
}

TEST_F(AccountNames, ReservedGroupNamesAreComparedExactly) {
  EXPECT_TRUE(IsReservedGroupName(L"Administrators"));
  EXPECT_TRUE(IsReservedGroupName(L"Everyone"));
  EXPECT_FALSE(IsReservedGroupName(L"everyone"));
  EXPECT_FALSE(IsReservedGroupName(L"Everyone "));
}

}  // namespace
}  // namespace dialogs
