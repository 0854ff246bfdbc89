#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/NodeId.h"
#include "controls/TextPool.h"

namespace controls {

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
// when somebody who may change the tree asks how they stand: most folders of a large tree are never
// opened. Who may only read it is given their order, and changes nothing by it.
class TreeNodes {
 public:
  // sortKey gives the bytes by which a text is ordered among its siblings.
  explicit TreeNodes(std::function<std::string(std::wstring_view)> sortKey);

  // Adds a node as the parent's last child, or a root where parent is kNoNode. The caller sees to
  // it that the parent has no other child of this key form and id. Raises nothing; an unknown
  // parent is a broken invariant.
  NodeId Add(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text, int image);
  // The parent's child of this key form and id, a root where parent is kNoNode; kNoNode without
  // one.
  NodeId FindChild(NodeId parent, const KeyForm& keyForm, std::int32_t id) const;
  // Removes a node and all below it.
  void Remove(NodeId node);
  void RemoveChildren(NodeId node);
  void Clear();

  // A text to be shown by any number of nodes. The reference holds while a node shows it and, when
  // none does, until the next Sweep.
  TextRef Share(std::wstring_view text) { return texts_.Share(text); }
  // Frees the texts that no node shows, and the room that a cleared tree had and no longer needs.
  void Sweep();
  const std::wstring& SharedText(TextRef text) const { return texts_.Text(text); }

  bool Exists(NodeId node) const;
  int Count() const { return count_; }
  // The living node with the lowest index above the one given, of all where that is kNoNode;
  // kNoNode when there is none.
  NodeId NextIndex(NodeId node) const;
  // The first root.
  NodeId Root() const { return firstRoot_; }

  std::wstring Key(NodeId node) const;
  // The node with this key, kNoNode when there is none.
  NodeId Find(std::wstring_view key) const;
  const KeyForm& FormOf(NodeId node) const { return forms_[At(node).form]; }
  std::int32_t Id(NodeId node) const { return At(node).id; }

  const std::wstring& Text(NodeId node) const { return texts_.Text(At(node).text); }
  TextRef TextOf(NodeId node) const { return At(node).text; }
  void SetText(NodeId node, TextRef text);
  int Image(NodeId node) const { return At(node).image; }
  void SetImage(NodeId node, int image) { At(node).image = static_cast<std::uint8_t>(image); }
  bool Expanded(NodeId node) const { return At(node).expanded; }
  void SetExpanded(NodeId node, bool expanded) { At(node).expanded = expanded; }
  // Whether the node's children stand in the order of their texts. Once they no longer need to,
  // they keep the order that they have.
  bool Sorted(NodeId node) const { return At(node).sorted; }
  void SetSorted(NodeId node, bool sorted);
  // The name that belongs to the text, where the node was given one; otherwise empty.
  std::wstring StoredName(NodeId node) const;
  void SetStoredName(NodeId node, std::wstring_view name);

  NodeId Parent(NodeId node) const { return At(node).parent; }
  // The children of a node, the roots where it is kNoNode, in the order in which they are seen.
  std::vector<NodeId> ChildrenInOrder(NodeId parent) const;
  // Has the children of a node stand in that order from now on, until one comes or changes; costs
  // nothing where they do. kNoNode changes nothing: roots stand as they came.
  void PutInOrder(NodeId parent);
  // The siblings of a node in that order, which these bring about.
  NodeId Next(NodeId node) { return AmongSiblings(node).next; }
  NodeId Previous(NodeId node) { return AmongSiblings(node).previous; }
  // For a walk over a node's children that may come in any order. Whatever puts them in order
  // during the walk changes its way, the removal of a selected node among others.
  NodeId AnyChild(NodeId node) const { return At(node).firstChild; }
  NodeId OtherSibling(NodeId node) const { return At(node).next; }
  int Children(NodeId node) const;
  bool HasChildren(NodeId node) const { return At(node).firstChild != kNoNode; }
  // The texts from the root to the node, joined by backslashes.
  std::wstring FullPath(NodeId node) const;
  bool IsBelow(NodeId node, NodeId ancestor) const;

  // The sorted nodes that have gained or changed children since this was last asked.
  std::vector<NodeId> TakeReordered();

  // What the nodes and texts take in memory, in bytes.
  std::size_t NodeBytes() const;
  std::size_t TextBytes() const { return texts_.Bytes(); }

 private:
  struct Node {
    std::int32_t id = 0;
    TextRef text = 0;
    NodeId parent = kNoNode;
    NodeId firstChild = kNoNode;
    NodeId lastChild = kNoNode;
    NodeId next = kNoNode;
    NodeId previous = kNoNode;
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

  Node& At(NodeId node) {
    const int index = IndexOf(node);
    return blocks_[static_cast<std::size_t>(index >> kBlockBits)][index & (kBlock - 1)];
  }
  const Node& At(NodeId node) const {
    const int index = IndexOf(node);
    return blocks_[static_cast<std::size_t>(index >> kBlockBits)][index & (kBlock - 1)];
  }
  NodeId TakeIndex();
  int KnownForm(const KeyForm& keyForm) const;
  std::uint8_t FormNumber(const KeyForm& keyForm);
  void Link(NodeId node, NodeId parent);
  void Unlink(NodeId node);
  void Free(NodeId node);
  void FreeBelow(NodeId node);
  void ComposeKey(NodeId node, std::wstring& key) const;
  bool HasTail(NodeId node, std::wstring_view tail) const;
  const Node& AmongSiblings(NodeId node) {
    PutInOrder(At(node).parent);
    return At(node);
  }
  void MarkOrderPending(NodeId parent);
  std::vector<NodeId> ChildrenAsLinked(NodeId parent) const;
  bool WorthRanking(NodeId parent) const;
  bool StandsBefore(NodeId a, NodeId b) const;
  void SortByRank(std::vector<NodeId>& children) const;
  void SortByKey(std::vector<NodeId>& children) const;
  std::vector<NodeId> TakeMisplaced(std::vector<NodeId>& children) const;
  void Relink(NodeId parent, const std::vector<NodeId>& children);

  TextPool texts_;
  std::vector<KeyForm> forms_;
  std::uint8_t lastForm_ = 0;  // the one last asked for
  std::vector<std::unique_ptr<Node[]>> blocks_;
  int used_ = 1;                   // index 0 is never given
  std::vector<NodeId> free_;       // indexes to be used again, the latest freed last
  std::vector<NodeId> reordered_;  // may hold a node twice, and nodes that are no more
  std::unordered_map<NodeId, std::wstring> storedNames_;
  int count_ = 0;
  NodeId firstRoot_ = kNoNode;
  NodeId lastRoot_ = kNoNode;
};

}  // namespace controls
