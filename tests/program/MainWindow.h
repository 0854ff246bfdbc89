#pragma once

#include <string>
#include <vector>

#include "tests/program/FormWindow.h"
#include "tests/program/driver/Process.h"
#include "tests/program/driver/TabStrip.h"
#include "tests/program/driver/TreeView.h"

namespace program {

enum Tab { kUsersTab = 0, kGroupsTab = 1 };

// The program's main window as its user finds it.
class MainWindow : public FormWindow {
 public:
  // Waits for the window. It may still be reading.
  explicit MainWindow(const driver::Process& process);

  driver::TabStrip Tabs() const;
  driver::TreeView Tree(Tab tab) const;
  std::wstring Status() const;

  // Waits until both trees are read.
  void AwaitStarted() const;
  // Waits until no dialog stands over the window and it answers.
  void AwaitUsable() const;
  void SelectTab(Tab tab) const;
  // Selects the node reached from the root by these texts, as an arrow key does.
  void Select(Tab tab, const std::vector<std::wstring>& path) const;

  // Clicks with the real mouse on a tab.
  void ClickTab(Tab tab) const;
  // Clicks with the real mouse on a node, and waits until it is selected.
  void ClickNode(Tab tab, const std::vector<std::wstring>& path) const;
  // Presses a button and waits until its handler is done. For those that open no modal window.
  void PressAndWait(int button) const;
};

// The main window of a process, if it has one that is visible.
driver::Window FindMainWindow(DWORD processId);

}  // namespace program
