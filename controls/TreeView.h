#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "controls/Control.h"
#include "controls/ImageList.h"
#include "controls/TreeFilter.h"
#include "controls/TreeNodes.h"

namespace controls {

// A tree of nodes, complete in memory from the moment they are added. The native control is told of
// a node's children when they are first shown. Nodes are named by their index (see TreeNodes).
class TreeView : public Control {
 public:
  TreeView(Form& form, int id);

  // Stands around every structural change: the native control follows once, at the end of the
  // outermost one. Selection, expansion and scroll position of what still lives are kept.
  class Update {
   public:
    explicit Update(TreeView& tree);
    ~Update();
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

   private:
    TreeView& tree_;
  };

  void SetImageList(const ImageList& images);

  // The new node, the last child of a parent that is not sorted; or the child of this key form and
  // id that the parent has already, unchanged. A parent of kNoNode makes a root.
  NodeId Add(NodeId parent, const KeyForm& keyForm, std::int32_t id, std::wstring_view text,
             int image);
  // For many nodes: no look at the parent's other children, the caller has seen to it.
  NodeId AddUnique(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text, int image);
  // A text for any number of nodes; the reference holds until the outermost Update ends (which
  // sweeps the texts that no node shows) or the tree is cleared.
  TextRef Share(std::wstring_view text);
  void Remove(NodeId node);
  void RemoveChildren(NodeId node);
  void Clear();

  void SetText(NodeId node, std::wstring_view text);
  void SetImage(NodeId node, int image);
  void SetSorted(NodeId node, bool sorted);
  void SetStoredName(NodeId node, std::wstring_view name);
  // Raises Expand or Collapse, at once, when that changes something. A node without children may
  // be expanded too: those it gets are shown. Collapsing a node passes the selection from below it
  // to it, before Collapse is raised and without NodeClick.
  void SetExpanded(NodeId node, bool expanded);

  // All that can be read of the nodes.
  const TreeNodes& Nodes() const;

  NodeId SelectedNode() const;
  // Opens the way to the node and brings it into view, past a filter too. Does not raise NodeClick.
  // When a selected node is removed the selection passes to its next sibling on view, else its
  // previous, else its parent.
  void SetSelectedNode(NodeId node);
  // Scrolls to a node that stands in open ones; does nothing where one above it is closed.
  void EnsureVisible(NodeId node);

  // Leaves on view, of the nodes directly below the root, those alone that the rule lets through by
  // their text or stored name, and those that are selected, or have the selected node below them,
  // at any time while the rule stands. A rule without Matches shows all again. The nodes themselves
  // stay whole; the selection stays what it is, and in view.
  void SetFilter(TreeFilterRule rule);
  bool IsFiltered() const;
  // Whether the rule lets a node through that stands directly below the root.
  bool Matches(NodeId node) const;
  // The first of them in their order; kNoNode when there is none.
  NodeId FirstMatch() const;
  int MatchCount() const;

  // When the user selects another node, by mouse or keyboard.
  std::function<void(NodeId node)> NodeClick;
  std::function<void(NodeId node)> Expand;
  std::function<void(NodeId node)> Collapse;
  // When the user asks for the menu of a node: with the right mouse button, which selects the node
  // first (and raises NodeClick when that changes the selection), or with the Apps key or Shift+F10
  // for the selected node. See ShowPopupMenu.
  std::function<void(NodeId node)> ContextMenu;
  // When the user double-clicks a node, which the first click has selected. One that has children
  // is opened or closed by it as well.
  std::function<void(NodeId node)> DblClick;
  // When the user wants the selected node on the clipboard: Ctrl+C or Ctrl+Insert.
  std::function<void(NodeId node)> Copy;
  // What there is to say about a node, empty for nothing. Asked when the mouse rests on the node
  // and, for screen readers, when the node has the focus. May change nothing.
  std::function<std::wstring(NodeId node)> Tip;
};

}  // namespace controls
