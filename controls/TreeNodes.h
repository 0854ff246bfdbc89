#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/TextPool.h"

namespace controls {

// The index of a node in its tree, from 1; stable while the node lives.
using NodeId = int;

// No node: the parent of a root, the sibling after the last, a search without result.
constexpr NodeId kNoNode = -1;

// How a node's key is made from its parent's: the first four characters of the parent's key are
// replaced by prefix, then suffix is appended and, where hasId is set, the node's id in decimal. A
// root, having no parent, has prefix followed by suffix.
struct KeyForm {
  std::wstring_view prefix;  // four characters; must outlive the tree
  std::wstring_view suffix;  // must outlive the tree
  bool hasId = false;
};

// The nodes of a tree, as the tree view of every back end keeps them. A node has an index of its
// own while it lives, from 1; a freed index is used again. A node is small: its key is composed
// when asked for and its text is kept once for all nodes that show it. Children are put in order
// when somebody asks how they stand: most folders of a large tree are never opened.
class TreeNodes {
 public:
  // sortKey gives the bytes by which a text is ordered among its siblings.
  explicit TreeNodes(std::function<std::string(std::wstring_view)> sortKey);

  // Adds a node as the parent's last child, or a root where parent is kNoNode. The caller sees to
  // it that the parent has no other child of this key form and id. Raises nothing; an unknown
  // parent is a broken invariant.
  int Add(int parent, const KeyForm& keyForm, std::int32_t id, TextRef text, int image);
  // The parent's child of this key form and id, a root where parent is kNoNode; kNoNode without
  // one.
  int FindChild(int parent, const KeyForm& keyForm, std::int32_t id) const;
  // Removes a node and all below it.
  void Remove(int node);
  void RemoveChildren(int node);
  void Clear();

  // A text to be shown by any number of nodes. The reference holds while a node shows it and, when
  // none does, until the next Sweep.
  TextRef Share(std::wstring_view text) { return texts_.Share(text); }
  // Frees the texts that no node shows, and the room that a cleared tree had and no longer needs.
  void Sweep();
  const std::wstring& SharedText(TextRef text) const { return texts_.Text(text); }

  bool Exists(int node) const;
  int Count() const { return count_; }
  // The living node with the lowest index above the one given; kNoNode when there is none.
  int NextIndex(int node) const;
  // The first root.
  int Root() const { return firstRoot_; }

  std::wstring Key(int node) const;
  // The node with this key, kNoNode when there is none.
  int Find(std::wstring_view key) const;
  const KeyForm& FormOf(int node) const { return forms_[At(node).form]; }
  std::int32_t Id(int node) const { return At(node).id; }

  const std::wstring& Text(int node) const { return texts_.Text(At(node).text); }
  TextRef TextOf(int node) const { return At(node).text; }
  void SetText(int node, TextRef text);
  int Image(int node) const { return At(node).image; }
  void SetImage(int node, int image) { At(node).image = static_cast<std::uint8_t>(image); }
  bool Expanded(int node) const { return At(node).expanded; }
  void SetExpanded(int node, bool expanded) { At(node).expanded = expanded; }
  // Whether the node's children stand in the order of their texts. Once they no longer need to,
  // they keep the order that they have.
  bool Sorted(int node) const { return At(node).sorted; }
  void SetSorted(int node, bool sorted);
  // The name behind the text, where the node was given one; otherwise empty.
  std::wstring StoredName(int node) const;
  void SetStoredName(int node, std::wstring_view name);

  int Parent(int node) const { return At(node).parent; }
  int FirstChild(int node) const { return InOrder(node).firstChild; }
  int LastChild(int node) const { return InOrder(node).lastChild; }
  int Next(int node) const { return AmongSiblings(node).next; }
  int Previous(int node) const { return AmongSiblings(node).previous; }
  // For a walk over a node's children that may come in any order. Whatever asks for the order
  // during the walk may change it, the removal of a selected node among others.
  int AnyChild(int node) const { return At(node).firstChild; }
  int OtherSibling(int node) const { return At(node).next; }
  int FirstSibling(int node) const;
  int LastSibling(int node) const;
  int Children(int node) const;
  bool HasChildren(int node) const { return At(node).firstChild != kNoNode; }
  // The texts from the root to the node, joined by backslashes.
  std::wstring FullPath(int node) const;
  bool IsBelow(int node, int ancestor) const;

  // The sorted nodes that have gained or changed children since this was last asked.
  std::vector<int> TakeReordered();

  // What the nodes and texts take in memory, in bytes.
  std::size_t NodeBytes() const;
  std::size_t TextBytes() const { return texts_.Bytes(); }

 private:
  struct Node {
    std::int32_t id = 0;
    TextRef text = 0;
    int parent = kNoNode;
    int firstChild = kNoNode;
    int lastChild = kNoNode;
    int next = kNoNode;
    int previous = kNoNode;
    std::uint8_t form = 0;
    std::uint8_t image = 0;
    bool alive : 1 = false;
    bool expanded : 1 = false;
    bool sorted : 1 = false;
    bool orderPending : 1 = false;  // its children are to be put in order
    bool reordered : 1 = false;     // stands in reordered_
    bool named : 1 = false;
  };
  static_assert(sizeof(Node) <= 32);

  // Nodes lie in blocks that never move: growing copies nothing and wastes one block at most.
  static constexpr int kBlockBits = 14;
  static constexpr int kBlock = 1 << kBlockBits;

  Node& At(int node) { return Linked(node); }
  const Node& At(int node) const { return Linked(node); }
  int TakeIndex();
  int KnownForm(const KeyForm& keyForm) const;
  std::uint8_t FormNumber(const KeyForm& keyForm);
  void Link(int node, int parent);
  void Unlink(int node);
  void Free(int node);
  void FreeBelow(int node);
  void ComposeKey(int node, std::wstring& key) const;
  bool HasTail(int node, std::wstring_view tail) const;
  const Node& InOrder(int parent) const {
    const Node& above = At(parent);
    if (above.orderPending) SortChildren(parent);
    return above;
  }
  const Node& AmongSiblings(int node) const {
    const Node& one = At(node);
    if (one.parent != kNoNode) InOrder(one.parent);
    return one;
  }
  void MarkOrderPending(int parent);
  void SortChildren(int parent) const;
  bool WorthRanking(int parent) const;
  bool StandsBefore(int a, int b) const;
  void SortChildrenByRank(int parent) const;
  void SortChildrenByKey(int parent) const;
  void TakeMisplaced(int parent) const;
  void Relink(int parent) const;
  // Putting children in order changes nothing that could be seen before.
  Node& Linked(int node) const { return blocks_[node >> kBlockBits][node & (kBlock - 1)]; }

  mutable TextPool texts_;  // makes the keys by which texts are ordered when it is asked for them
  std::vector<KeyForm> forms_;
  std::uint8_t lastForm_ = 0;  // the one last asked for
  std::vector<std::unique_ptr<Node[]>> blocks_;
  int used_ = 1;                // index 0 is never given
  std::vector<int> free_;       // indexes to be used again, the latest freed last
  std::vector<int> reordered_;  // may hold a node twice, and nodes that are no more
  // While children are sorted: those in their order, and the others.
  mutable std::vector<int> ordered_;
  mutable std::vector<int> misplaced_;
  mutable std::vector<std::uint64_t> ranked_;  // the same, each a rank above a node's index
  std::unordered_map<int, std::wstring> storedNames_;
  int count_ = 0;
  int firstRoot_ = kNoNode;
  int lastRoot_ = kNoNode;
};

}  // namespace controls
