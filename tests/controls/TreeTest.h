#pragma once

#include <string>

#include "tests/controls/ControlsTest.h"

namespace controls_test {

// Key forms as a tree of accounts has them.
constexpr controls::KeyForm kRootForm{L"\\TRT", L" "};
constexpr controls::KeyForm kUserForm{L"\\TUS", L"\\U", true};
constexpr controls::KeyForm kFolderForm{L"\\TMO", L" \\G"};
constexpr controls::KeyForm kOtherFolderForm{L"\\TUP", L" \\P"};
constexpr controls::KeyForm kLeafForm{L"\\TGU", L"", true};

// Lets through what has this letter, or part, as it is written.
inline controls::TreeFilterRule Containing(const std::wstring& part) {
  const auto fold = [](std::wstring_view text) {
    std::string folded;
    for (const wchar_t unit : text) folded += static_cast<char>(unit < 0x80 ? unit : L'?');
    return folded;
  };
  return {fold, [wanted = fold(part)](std::string_view folded) {
            return folded.find(wanted) != std::string_view::npos;
          }};
}

// A root with the users Zoé, Adam and Martin, in this order; Adam has a folder with the groups 5
// and 6.
class TreeTest : public ControlsTest {
 protected:
  TreeTest() {
    controls::TreeView::Update update(tree);
    root = tree.Add(controls::kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    zoe = tree.Add(root, kUserForm, 12, L"Zoé", 1);
    adam = tree.Add(root, kUserForm, 3, L"Adam", 1);
    martin = tree.Add(root, kUserForm, 7, L"Martin", 1);
    folder = tree.Add(adam, kFolderForm, 0, L"Membre du Groupe", 2);
    five = tree.Add(folder, kLeafForm, 5, L"Qualité", 3);
    six = tree.Add(folder, kLeafForm, 6, L"Achats", 3);
    tree.NodeClick = [this](controls::NodeId node) { Note(L"click", node); };
    tree.Expand = [this](controls::NodeId node) { Note(L"expand", node); };
    tree.Collapse = [this](controls::NodeId node) { Note(L"collapse", node); };
  }

  void Note(const std::wstring& event, controls::NodeId node) {
    events.push_back(event + L" " + Text(node));
  }
  const std::wstring& Text(controls::NodeId node) const { return tree.Nodes().Text(node); }
  // The texts of a node's children, in order.
  Events Children(controls::NodeId node) const {
    Events texts;
    const controls::TreeNodes& nodes = tree.Nodes();
    for (const controls::NodeId child : nodes.ChildrenInOrder(node)) {
      texts.push_back(nodes.Text(child));
    }
    return texts;
  }

  controls::TreeView& tree = form.tree;
  controls::NodeId root{}, zoe{}, adam{}, martin{}, folder{}, five{}, six{};
};

}  // namespace controls_test
