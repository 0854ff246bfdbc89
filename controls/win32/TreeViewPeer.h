#pragma once

#include "controls/TreeView.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/TreeItems.h"

namespace controls {

struct TreeViewPeer : Control::Peer {
  TreeViewPeer(Form& owner, int controlId);

  void Attached() override;
  void Detached() override;
  LRESULT Notify(NMHDR& header) override;
  LRESULT Handle(const Message& message) override;
  void DpiChanged() override { ShowImages(); }

  void ShowImages() const;
  // Passes the selection on before the node and what is below it are removed.
  void LeaveNode(int node);
  // Passes a selection below a node that is closed on to it.
  void LeaveBelow(int node);
  // Notes that a node is open or closed now, and tells the form.
  void SetExpanded(int node, bool expanded);
  // Expands what stands above the node, the topmost first.
  void OpenWay(int node);
  // Once for a batch of changes: outside of one, after every change.
  void EndChange();
  // The same, but keeps texts that no node shows.
  void Follow();
  TreeView& Tree() const { return static_cast<TreeView&>(*control); }

  TreeNodes nodes;
  TreeItems items;
  int selected = kNoNode;
  bool show = false;  // the selected node is to be brought into view
  int updates = 0;
  const ImageList* images = nullptr;

 private:
  bool Refuses() const;
  LRESULT Expand(const Message& message);
  LRESULT Reach(const Message& message);
  void Chosen(int node);
  void Opened(int node, bool expanded);
};

}  // namespace controls
