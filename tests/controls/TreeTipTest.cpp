#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

// What a tree says about its nodes and puts on the clipboard.
class TreeTip : public TreeTest {};

class TreeCopy : public TreeTest {
 protected:
  TreeCopy() {
    tree.Copy = [this](controls::NodeId node) { Note(L"copy", node); };
  }
};

TEST_F(TreeTip, IsAskedForByNode) {
  tree.Tip = [this](controls::NodeId node) {
    return L"Par le groupe " + Text(node) + L" & \"Été\"";
  };
  EXPECT_EQ(user.TipOf(tree, five), L"Par le groupe Qualité & \"Été\"");
  EXPECT_EQ(user.TipOf(tree, zoe), L"Par le groupe Zoé & \"Été\"");
}

TEST_F(TreeTip, IsThereForANodeOnView) {
  tree.Tip = [](controls::NodeId) { return L"Accordée directement"; };
  user.Select(tree, six);
  EXPECT_EQ(user.TipOf(tree, six), L"Accordée directement");
}

TEST_F(TreeTip, IsEmptyWhereThereIsNothingToSay) {
  EXPECT_EQ(user.TipOf(tree, root), L"");
  tree.Tip = [](controls::NodeId) { return std::wstring(); };
  user.Select(tree, root);
  EXPECT_EQ(user.TipOf(tree, root), L"");
}

TEST_F(TreeTip, IsEmptyForANodeThatIsNoMore) {
  tree.Tip = [](controls::NodeId) { return L"?"; };
  tree.Remove(martin);
  EXPECT_EQ(user.TipOf(tree, martin), L"");
}

TEST_F(TreeTip, IsEmptyWhereAskingFails) {
  tree.Tip = [](controls::NodeId) -> std::wstring { throw 1; };
  EXPECT_EQ(user.TipOf(tree, root), L"");
  EXPECT_EQ(escapedErrors, 1);
}

TEST_F(TreeCopy, IsAskedForWithCtrlCAndCtrlInsertForTheSelectedNode) {
  user.Select(tree, five);
  events.clear();
  user.PressCtrl(form, test_support::kKeyC);
  user.PressCtrl(form, test_support::kKeyInsert);
  EXPECT_EQ(events, (Events{L"copy Qualité", L"copy Qualité"}));
  EXPECT_EQ(user.BeepCount(), 0);
}

TEST_F(TreeCopy, ReachesTheFormsKeyProceduresFirst) {
  user.Select(tree, root);
  events.clear();
  form.OnKeyDown = [this](int key) { events.push_back(L"down " + std::to_wstring(key)); };
  form.OnKeyUp = [this](int key) { events.push_back(L"up " + std::to_wstring(key)); };
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(events,
            (Events{L"down " + std::to_wstring(test_support::kKeyC + +controls::kKeyControl),
                    L"copy Utilisateurs", L"up 67"}));
}

TEST_F(TreeCopy, TakesTheControlKey) {
  user.Select(tree, root);
  events.clear();
  user.PressKey(form, test_support::kKeyC);
  user.PressKey(form, test_support::kKeyInsert);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeCopy, TakesASelectedNode) {
  user.Focus(tree);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeCopy, TakesATreeThatHasTheFocus) {
  user.Select(tree, root);
  events.clear();
  form.ok.SetFocus();
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeCopy, MayUnloadItsForm) {
  user.Select(tree, root);
  tree.Copy = [this](controls::NodeId) { form.Unload(); };
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_FALSE(form.IsLoaded());
}

}  // namespace
}  // namespace controls_test
