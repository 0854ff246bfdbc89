#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "controls/TreeNodes.h"

namespace controls_test {
namespace {

using controls::KeyForm;
using controls::kNoNode;
using controls::NodeId;
using controls::TreeNodes;

constexpr KeyForm kForms[] = {
    {L"\\TRT", L" "}, {L"\\TUS", L"\\U", true}, {L"\\TMO", L" \\G"}, {L"\\TGU", L"", true}};

// The plain picture of a tree that the real one is held against.
struct Plain {
  NodeId parent = kNoNode;
  int level = 0;
  int id = 0;
  std::wstring text;
  bool sorted = false;
  std::vector<NodeId> children;
};

class Picture {
 public:
  explicit Picture(unsigned seed) : random_(seed) {
    const NodeId root = nodes_.Add(kNoNode, kForms[0], 0, nodes_.Share(L"root"), 0);
    plain_[root].text = L"root";
  }

  void Step() {
    const NodeId node = Any();
    switch (Below(8)) {
      case 0:
        Remove(node);
        break;
      case 1:
        SetText(node);
        break;
      case 2:
        SortPlain(plain_[node]);
        plain_[node].sorted = Below(3) > 0;
        nodes_.SetSorted(node, plain_[node].sorted);
        break;
      case 3:
        Settle();
        break;
      default:
        Add(node);
    }
  }

  // Puts both in order and compares them whole.
  void Compare() {
    Settle();
    ASSERT_EQ(nodes_.Count(), static_cast<int>(plain_.size()));
    NodeId index = kNoNode;
    for (const auto& [node, plain] : plain_) {
      index = nodes_.NextIndex(index);
      ASSERT_EQ(index, node);
      ASSERT_EQ(nodes_.Text(node), plain.text);
      ASSERT_EQ(nodes_.Parent(node), plain.parent);
      ASSERT_EQ(Children(node), plain.children);
      ASSERT_EQ(nodes_.Key(node), Key(node));
    }
    ASSERT_EQ(nodes_.NextIndex(index), kNoNode);
    const NodeId wanted = Any();
    ASSERT_EQ(nodes_.Find(Key(wanted)), wanted);
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  NodeId Any() { return std::next(plain_.begin(), Below(static_cast<int>(plain_.size())))->first; }
  std::wstring AnyText() {
    return std::wstring(1 + Below(2), static_cast<wchar_t>(L'a' + Below(9)));
  }

  void Add(NodeId parent) {
    const int level = plain_[parent].level + 1;
    if (level == 4) return;
    const int id = kForms[level].hasId ? Below(1000) : 0;
    if (nodes_.FindChild(parent, kForms[level], id) != kNoNode) return;
    const std::wstring text = AnyText();
    const NodeId node = nodes_.Add(parent, kForms[level], id, nodes_.Share(text), 0);
    plain_[node] = {parent, level, id, text, false, {}};
    plain_[parent].children.push_back(node);
  }

  void Remove(NodeId node) {
    if (plain_[node].parent == kNoNode || Below(4) > 0) return;
    std::erase(plain_[plain_[node].parent].children, node);
    nodes_.Remove(node);
    Forget(node);
  }

  void Forget(NodeId node) {
    for (const NodeId child : plain_[node].children) Forget(child);
    plain_.erase(node);
  }

  void SetText(NodeId node) {
    plain_[node].text = AnyText();
    nodes_.SetText(node, nodes_.Share(plain_[node].text));
  }

  void Settle() {
    nodes_.TakeReordered();
    nodes_.Sweep();
    for (auto& [node, plain] : plain_) SortPlain(plain);
  }

  void SortPlain(Plain& plain) {
    if (!plain.sorted) return;
    std::sort(plain.children.begin(), plain.children.end(), [this](NodeId a, NodeId b) {
      return std::pair(plain_[a].text, a) < std::pair(plain_[b].text, b);
    });
  }

  std::vector<NodeId> Children(NodeId node) {
    const std::vector<NodeId> children = nodes_.ChildrenInOrder(node);
    nodes_.PutInOrder(node);
    EXPECT_EQ(nodes_.ChildrenInOrder(node), children) << "told before they stood so";
    NodeId previous = kNoNode;
    for (const NodeId child : children) {
      EXPECT_EQ(nodes_.Previous(child), previous);
      if (previous != kNoNode) {
        EXPECT_EQ(nodes_.Next(previous), child);
      }
      previous = child;
    }
    return children;
  }

  std::wstring Key(NodeId node) {
    const Plain& plain = plain_[node];
    const KeyForm& form = kForms[plain.level];
    std::wstring key(form.prefix);
    if (plain.parent != kNoNode) key += Key(plain.parent).substr(4);
    key += form.suffix;
    return form.hasId ? key + std::to_wstring(plain.id) : key;
  }

  std::mt19937 random_;
  TreeNodes nodes_{[](std::wstring_view text) { return std::string(text.begin(), text.end()); }};
  std::map<NodeId, Plain> plain_;
};

TEST(TreeNodesAtRandom, AgreeWithAPlainPictureOfATree) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    Picture picture(seed);
    for (int step = 0; step < 2000 && !testing::Test::HasFatalFailure(); ++step) {
      picture.Step();
      if (step % 50 == 0) picture.Compare();
    }
    picture.Compare();
    ASSERT_FALSE(testing::Test::HasFatalFailure()) << "seed " << seed;
  }
}

}  // namespace
}  // namespace controls_test
