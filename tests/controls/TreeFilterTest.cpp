#include <string>
#include <vector>

#include "tests/controls/TreeTest.h"
#include "tests/support/controls/ShownContent.h"

namespace controls_test {
namespace {

using controls::kNoNode;
using controls::NodeId;

// A filter that leaves some of the users on view.
class TreeFilter : public TreeTest {
 protected:
  TreeFilter() {
    tree.SetSorted(root, true);
    tree.SetSelectedNode(root);
    tree.SetExpanded(root, true);
    events.clear();
  }

  // The texts of the lines on view, each with a blank for each level.
  Events Shown() const {
    Events lines;
    for (const test_support::ShownNode& line : test_support::ShownNodes(tree)) {
      lines.push_back(std::wstring(static_cast<std::size_t>(line.level), L' ') + line.text);
    }
    return lines;
  }
  void Filter(const std::wstring& part) { tree.SetFilter(Containing(part)); }
};

TEST_F(TreeFilter, LeavesWhatMatchesOnViewAndAllNodesWhereTheyAre) {
  const int count = tree.Nodes().Count();
  Filter(L"m");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam"}));
  EXPECT_EQ(tree.Nodes().Count(), count);
  EXPECT_EQ(Children(root), (Events{L"Adam", L"Martin", L"Zoé"}));
  EXPECT_TRUE(tree.IsFiltered());
  EXPECT_EQ(tree.MatchCount(), 1);
  EXPECT_EQ(tree.FirstMatch(), adam);
  EXPECT_FALSE(tree.Matches(martin));
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeFilter, ShowsAllAgainWithoutARule) {
  Filter(L"m");
  tree.SetFilter({});
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L" Martin", L" Zoé"}));
  EXPECT_FALSE(tree.IsFiltered());
  EXPECT_TRUE(tree.Matches(zoe));
}

TEST_F(TreeFilter, TakesANarrowerAndAWiderOneInItsPlace) {
  for (const wchar_t* part : {L"a", L"am", L"a", L"z", L"", L"Zo"}) {
    Filter(part);
    Events expected{L"Utilisateurs"};
    for (const wchar_t* name : {L"Adam", L"Martin", L"Zoé"}) {
      if (std::wstring(name).find(part) != std::wstring::npos) {
        expected.push_back(std::wstring(L" ") + name);
      }
    }
    EXPECT_EQ(Shown(), expected);
    EXPECT_EQ(tree.MatchCount(), static_cast<int>(expected.size()) - 1);
  }
}

TEST_F(TreeFilter, LooksAtTheStoredNameToo) {
  tree.SetStoredName(zoe, L"Everyone");
  Filter(L"very");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zoé"}));
  tree.SetStoredName(zoe, L"Zoe");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs"}));
  tree.SetStoredName(martin, L"every");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Martin"}));
}

TEST_F(TreeFilter, TheTwoNamesAreNotOneText) {
  tree.SetStoredName(adam, L"Martin");
  Filter(L"mM");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs"}));
}

TEST_F(TreeFilter, LooksAtWhatIsBelowTheRootAlone) {
  tree.SetSelectedNode(six);
  Filter(L"Ad");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L"  Membre du Groupe", L"   Qualité",
                             L"   Achats"}));
  Filter(L"Achats");
  EXPECT_EQ(tree.MatchCount(), 0);
}

TEST_F(TreeFilter, ARootWithNothingOnViewHasNoButtonAndStaysOpenForLater) {
  Filter(L"nobody");
  const std::vector<test_support::ShownNode> lines = test_support::ShownNodes(tree);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_FALSE(lines[0].hasButton);
  EXPECT_TRUE(tree.Nodes().Expanded(root));
  EXPECT_EQ(tree.FirstMatch(), kNoNode);
  EXPECT_FALSE(user.Try().Collapse(tree, root));
  Filter(L"Z");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zoé"}));
}

TEST_F(TreeFilter, AClosedRootOpensToWhatMatches) {
  tree.SetExpanded(root, false);
  Filter(L"Z");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs"}));
  user.Expand(tree, root);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zoé"}));
}

TEST_F(TreeFilter, NeverHidesTheSelectedAccount) {
  tree.SetSelectedNode(five);
  events.clear();
  Filter(L"Z");
  EXPECT_EQ(tree.SelectedNode(), five);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L"  Membre du Groupe", L"   Qualité",
                             L"   Achats", L" Zoé"}));
  EXPECT_EQ(tree.MatchCount(), 1);
  EXPECT_EQ(tree.FirstMatch(), zoe);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeFilter, LeavesWhatWasSelectedOnViewUntilTheNextOne) {
  tree.SetSelectedNode(adam);
  Filter(L"Z");
  user.Select(tree, zoe);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L" Zoé"}));
  Filter(L"Zo");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zoé"}));
}

TEST_F(TreeFilter, AnAccountThatTheProgramSelectsComesOnView) {
  Filter(L"Z");
  tree.SetSelectedNode(six);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L"  Membre du Groupe", L"   Qualité",
                             L"   Achats", L" Zoé"}));
  EXPECT_EQ(tree.SelectedNode(), six);
}

TEST_F(TreeFilter, AUserDoesNotGetAtWhatIsHidden) {
  Filter(L"Z");
  for (const NodeId hidden : {adam, folder, six, martin}) {
    EXPECT_FALSE(user.Try().Select(tree, hidden));
    EXPECT_FALSE(user.Try().Expand(tree, hidden));
  }
  EXPECT_EQ(tree.SelectedNode(), root);
}

TEST_F(TreeFilter, TheSelectionPassesToTheNextAccountOnView) {
  const NodeId anna = tree.Add(root, kUserForm, 20, L"Anna", 1);
  const NodeId malo = tree.Add(root, kUserForm, 21, L"Malo", 1);
  tree.SetSelectedNode(anna);
  Filter(L"Zo");
  tree.Remove(anna);
  EXPECT_EQ(tree.SelectedNode(), zoe);
  Filter(L"Mal");
  tree.Remove(zoe);
  EXPECT_EQ(tree.SelectedNode(), malo);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Malo"}));
  tree.Remove(malo);
  EXPECT_EQ(tree.SelectedNode(), root);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs"}));
}

TEST_F(TreeFilter, FollowsAccountsThatComeGoAndAreRenamed) {
  Filter(L"Z");
  tree.Add(root, kUserForm, 20, L"Zacharie", 1);
  tree.Add(root, kUserForm, 21, L"Anna", 1);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zacharie", L" Zoé"}));
  tree.SetText(martin, L"Zut");
  tree.SetText(zoe, L"Chloé");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zacharie", L" Zut"}));
  tree.Remove(martin);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zacharie"}));
  EXPECT_EQ(tree.MatchCount(), 1);
}

TEST_F(TreeFilter, TheSelectedAccountStaysWhenItIsRenamed) {
  Filter(L"Z");
  user.Select(tree, zoe);
  tree.SetText(zoe, L"Chloé");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Chloé"}));
  EXPECT_EQ(tree.SelectedNode(), zoe);
}

TEST_F(TreeFilter, SurvivesARebuildAndForgetsWhatWasKept) {
  tree.SetSelectedNode(adam);
  Filter(L"Z");
  {
    const controls::TreeView::Update update(tree);
    tree.Clear();
    root = tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    // The indexes of the old ones, for others.
    for (const wchar_t* name : {L"Zacharie", L"Anna", L"Bob", L"Zut", L"Eve", L"Max"}) {
      tree.Add(root, kUserForm, 30 + tree.Nodes().Count(), name, 1);
    }
    tree.SetSelectedNode(root);
    tree.SetExpanded(root, true);
  }
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zacharie", L" Zut"}));
  EXPECT_EQ(tree.MatchCount(), 2);
}

TEST_F(TreeFilter, AnIndexThatIsGivenAgainStandsForTheNewText) {
  Filter(L"Z");
  tree.SetSelectedNode(adam);
  tree.SetSelectedNode(root);
  tree.Remove(adam);
  const NodeId again = tree.Add(root, kUserForm, 40, L"Bob", 1);
  EXPECT_FALSE(tree.Matches(again));
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zoé"}));
}

TEST_F(TreeFilter, OpenAccountsAreOpenWhenTheyComeBack) {
  tree.SetExpanded(adam, true);
  Filter(L"Z");
  Filter(L"A");
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Adam", L"  Membre du Groupe"}));
}

TEST_F(TreeFilter, FollowsOnceAtTheEndOfAnUpdate) {
  Filter(L"Z");
  {
    const controls::TreeView::Update update(tree);
    tree.SetText(martin, L"Zut");
    Filter(L"Zu");
    tree.Remove(zoe);
  }
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs", L" Zut"}));
}

TEST_F(TreeFilter, EndsWithTheLifeOfTheForm) {
  Filter(L"Z");
  form.Unload();
  form.Show();
  EXPECT_FALSE(tree.IsFiltered());
  root = tree.Add(kNoNode, kRootForm, 0, L"Groupes", 0);
  tree.SetExpanded(root, true);
  tree.Add(root, kUserForm, 1, L"Anna", 1);
  EXPECT_EQ(Shown(), (Events{L"Groupes", L" Anna"}));
}

TEST_F(TreeFilter, ATreeWithoutNodesMayBeFilteredToo) {
  tree.Clear();
  Filter(L"Z");
  EXPECT_EQ(tree.MatchCount(), 0);
  EXPECT_EQ(tree.FirstMatch(), kNoNode);
  EXPECT_EQ(Shown(), Events{});
  tree.SetExpanded(tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0), true);
  EXPECT_EQ(Shown(), (Events{L"Utilisateurs"}));
}

// Among enough others for every way in which the control may be told.
TEST_F(TreeFilter, NarrowsAndWidensAmongManyAccounts) {
  {
    const controls::TreeView::Update update(tree);
    for (int i = 0; i < 3000; ++i) {
      const NodeId account = tree.Add(root, kUserForm, 1000 + i, L"U" + std::to_wstring(i), 1);
      if (i % 500 == 0) {
        tree.Add(account, kFolderForm, 0, L"Membre du Groupe", 2);
        tree.SetExpanded(account, true);
      }
    }
  }
  for (const wchar_t* part : {L"1", L"12", L"123", L"12", L"U", L"299", L"", L"2999", L""}) {
    Filter(part);
    Events expected{L"Utilisateurs"};
    for (const std::wstring& name : Children(root)) {
      if (name.find(part) == std::wstring::npos) continue;
      expected.push_back(L" " + name);
      const bool open = name == L"U0" || (name.size() > 3 && name.ends_with(L"00") &&
                                          std::stoi(name.substr(1)) % 500 == 0);
      if (open) expected.push_back(L"  Membre du Groupe");
    }
    EXPECT_EQ(Shown(), expected);
  }
}

}  // namespace
}  // namespace controls_test
