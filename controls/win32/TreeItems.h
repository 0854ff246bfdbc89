#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "controls/TreeNodes.h"
#include "controls/win32/Handles.h"

namespace controls {

// What the native tree view has been told of a tree's nodes: the roots, and the children of every
// node that has been expanded. Changes of the nodes are noted as they happen and brought to the
// native control together, while it does not paint.
class TreeItems {
 public:
  explicit TreeItems(const TreeNodes& nodes) : nodes_(nodes) {}

  void Attach(HWND window);
  void Detach();

  // --- What happens to the nodes ---
  // A child of this parent, kNoNode for a root, has been added.
  void Added(int parent);
  // The node, or all below it, is about to be removed.
  void Removing(int node);
  void RemovingChildren(int node);
  // All nodes are about to be removed.
  void Clearing();
  // Its text or image.
  void Changed(int node);
  void Expanded(int node);
  void Reordered(const std::vector<int>& parents);

  // Brings all of that to the native control, keeping its scroll position, and its selection to the
  // node given. show brings that node into view.
  void Follow(int selected, bool show);
  // Tells of the node's children, unless that has been done.
  void Fill(int node);

  // Whether the native control is being changed from here: what it then reports is no user's doing.
  bool Busy() const { return busy_ > 0; }
  int NodeOf(HTREEITEM item) const;
  // Null where the native control has not been told of the node.
  HTREEITEM ItemOf(int node) const;
  HTREEITEM SelectedItem() const;
  bool IsOpen(int node) const;
  // Gives back a selection that the native control has made by itself.
  void Reselect(int selected);

 private:
  class Quiet;

  // An item whose node is gone and which may stand for another one. The node, the text and the rest
  // are what it shows.
  struct Spare {
    HTREEITEM item = nullptr;
    int node = kNoNode;
    TextRef text = 0;
    int image = 0;
    bool hasChildren = false;
    bool opened = false;  // the control has been told of children below it
  };

  // An item that goes, or all that is below it.
  struct Removal {
    HTREEITEM item;
    bool childrenOnly;
  };

  int FirstChild(int parent) const;
  bool Pending() const;
  void Forget(int node);
  void ForgetBelow(int node);
  void Forget();
  void KeepSpares();
  Spare ShownAs(int node) const;
  bool UseSpares();
  HTREEITEM TakeSpare(int node);
  void DeleteSpares();
  void ShowFromTheStart() const;
  void DeleteRemoved();
  void DeleteChildren(HTREEITEM item) const;
  HTREEITEM TopThatStays() const;
  HTREEITEM ShownLine(HTREEITEM item) const;
  void FollowChildren(int parent);
  bool InOrder(const std::vector<int>& told, const std::vector<int>& wanted) const;
  void InsertInPlace(const std::vector<int>& wanted);
  void Insert(int node, HTREEITEM after);
  TVITEMW Shown(int node, HTREEITEM item, UINT parts) const;
  void Refresh(int node) const;
  void ShowExpansion(int node);
  void Sort(int parent, const std::vector<int>& wanted) const;
  LRESULT Send(UINT number, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(window_, number, wParam, lParam);
  }

  const TreeNodes& nodes_;
  HWND window_ = nullptr;
  int busy_ = 0;
  std::unordered_map<int, HTREEITEM> items_;
  std::unordered_map<int, std::vector<int>> filled_;  // the children told of, in native order
  // In the order in which they happened: what is above a removed item may be removed after it.
  std::vector<Removal> removals_;
  bool cleared_ = false;
  // The root and its children as they stood before all nodes were removed, the next to be used
  // last.
  std::vector<Spare> spares_;
  std::unordered_set<int> changedParents_;
  std::unordered_set<int> changedNodes_;
  std::unordered_set<int> changedExpansions_;
};

}  // namespace controls
