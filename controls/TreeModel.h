#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/TreeFilter.h"
#include "controls/TreeView.h"

namespace controls {

// What a tree view holds and does, on either back end: its nodes, which of them is selected and
// open, what a user's gesture changes, and which events that raises.
class TreeModel {
 public:
  // What shows the nodes. It is told of each change as it happens and, once for a batch of them, to
  // show what has become of them.
  class View {
   public:
    // A child of this parent, kNoNode for a root, has been added, or others are on view.
    virtual void ChildrenChanged(NodeId parent) = 0;
    // The node, or all below it, or every node, is about to be removed.
    virtual void Removing(NodeId node) = 0;
    virtual void RemovingChildren(NodeId node) = 0;
    virtual void Clearing() = 0;
    // The text or the image.
    virtual void Changed(NodeId node) = 0;
    virtual void ExpansionChanged(NodeId node) = 0;
    // The children of these nodes are to be put in order.
    virtual void Reordered(const std::vector<NodeId>& parents) = 0;
    // Shows all of that, and the selection; reveal brings the selected node into view.
    virtual void Synchronise(NodeId selected, bool reveal) = 0;
    // Scrolls to a node that stands in open ones.
    virtual void EnsureVisible(NodeId node) = 0;

   protected:
    View() = default;
    ~View() = default;
    View(const View&) = default;
    View& operator=(const View&) = default;
  };

  // view may be null, where nothing is shown.
  explicit TreeModel(View* view);
  // Whose events are raised.
  void SetOwner(TreeView& tree) { tree_ = &tree; }
  // The form starts another life.
  void Restart();

  const TreeNodes& Nodes() const { return nodes_; }
  NodeId Selected() const { return selected_; }
  const TreeFilter& Filter() const { return filter_; }
  // The children of a node, of kNoNode the roots, that a view shows while the node is open. All
  // children keep the order that these have.
  std::vector<NodeId> ChildrenOnView(NodeId parent);
  bool HasChildrenOnView(NodeId parent) const;
  // In the middle of a batch of changes.
  bool Updating() const { return updates_ > 0; }

  // --- What the program does; see TreeView ---

  NodeId Add(NodeId parent, const KeyForm& keyForm, std::int32_t id, std::wstring_view text,
             int image);
  NodeId AddUnique(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text, int image);
  TextRef Share(std::wstring_view text) { return nodes_.Share(text); }
  void Remove(NodeId node);
  void RemoveChildren(NodeId node);
  void Clear();
  void SetText(NodeId node, std::wstring_view text);
  void SetImage(NodeId node, int image);
  void SetSorted(NodeId node, bool sorted);
  void SetStoredName(NodeId node, std::wstring_view name);
  // Does nothing where the node is so already.
  void SetExpanded(NodeId node, bool expanded);
  void Select(NodeId node);
  void EnsureVisible(NodeId node);
  void SetFilter(TreeFilterRule rule);
  NodeId FirstMatch() const;
  void BeginUpdate() { ++updates_; }
  // The last one sweeps the texts that no node shows.
  void EndUpdate();

  // --- What a user does ---

  // Expands what stands above the node, the topmost first.
  void OpenWay(NodeId node);
  // Selects a node, kNoNode for none.
  void Choose(NodeId node);
  // Wants the menu of a node, if it is there and selected.
  void AskForMenu(NodeId node);
  // Double-clicks a node, if it is there and selected.
  void DoubleClick(NodeId node);
  // Wants the selected node copied, if there is one.
  void AskForCopy();
  // Passes a selection below a node that is about to be closed on to the node, without an event.
  void LeaveBelow(NodeId node);
  // What there is to say about a node; empty for nothing.
  std::wstring AskTip(NodeId node) const;

 private:
  void LeaveNode(NodeId node);
  void KeepOnView(NodeId node);
  void TextChanged(NodeId node);
  void UpdateView();

  TreeNodes nodes_;
  TreeFilter filter_{nodes_};
  View* const view_;
  TreeView* tree_ = nullptr;
  NodeId selected_ = kNoNode;
  bool reveal_ = false;  // the selected node is to be brought into view
  int updates_ = 0;
};

// The model of a tree view; the back ends know where it is.
TreeModel& ModelOf(const TreeView& tree);

}  // namespace controls
