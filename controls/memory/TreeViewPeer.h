#pragma once

#include "controls/TreeView.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct TreeViewPeer : Control::Peer {
  TreeViewPeer();

  // Whether every node above is expanded.
  bool OnView(int node) const;
  // Expands what stands above the node, the topmost first.
  void OpenWay(TreeView& tree, int node);
  // Passes the selection on before the node and what is below it are removed.
  void LeaveNode(int node);
  // What a user asks for with the keyboard; nothing where no node is selected.
  void AskForMenu(const TreeView& tree) const;
  void AskForCopy(const TreeView& tree) const;
  // Once for a batch of changes: outside of one, after every change.
  void EndChange();

  TreeNodes nodes;
  int selected = kNoNode;
  int updates = 0;

 protected:
  void RestartKind() override;
};

}  // namespace controls
