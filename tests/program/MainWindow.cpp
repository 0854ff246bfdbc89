#include "tests/program/MainWindow.h"
#include "app/StringIds.h"

#include "resources/ResourceIds.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Mouse.h"
#include "tests/program/driver/PromptBox.h"
#include "tests/program/driver/Wait.h"

namespace program {
namespace {

bool IsMainWindow(const driver::Window& window) {
  return window.IsVisible() && window.HasChild(IDC_TAB);
}

// The status line tells the counts when all is read. They are shown once before the permissions,
// of which there is at least one, are counted.
bool TellsAllCounts(const std::wstring& status) {
  const std::wstring pattern = String(app::kCounts);
  const std::wstring end = pattern.substr(pattern.find(L"%3") + 2);
  return status.ends_with(end) && !status.ends_with(L" 0" + end);
}

}  // namespace

driver::Window FindMainWindow(DWORD processId) {
  const auto found = driver::TopWindows(processId, IsMainWindow);
  return found.empty() ? driver::Window() : found.front();
}

MainWindow::MainWindow(const driver::Process& process) {
  driver::Await("the main window", [&] {
    SetForm(FindMainWindow(process.Id()));
    return Form() || !process.IsRunning() || driver::FindPrompt(process.Id());
  });
  if (Form()) return;
  if (process.IsRunning()) throw driver::Failure("the program shows a message box");
  throw driver::Failure("the program has ended, exit code " +
                        std::to_string(process.WaitForExit().value()));
}

driver::TabStrip MainWindow::Tabs() const {
  return driver::TabStrip(Control(IDC_TAB));
}

driver::TreeView MainWindow::Tree(Tab tab) const {
  return driver::TreeView(Control(tab == kUsersTab ? IDC_TREE_USERS : IDC_TREE_GROUPS));
}

std::wstring MainWindow::Status() const {
  return Control(IDC_STATUS).Text();
}

void MainWindow::AwaitStarted() const {
  driver::Await("both trees to be read", [this] { return TellsAllCounts(Status()); });
}

void MainWindow::AwaitUsable() const {
  driver::Await("the main window to be usable", [this] { return Form().IsEnabled(); });
  Form().Send(WM_NULL);
}

void MainWindow::SelectTab(Tab tab) const {
  Tabs().Select(tab);
  const int tree = tab == kUsersTab ? IDC_TREE_USERS : IDC_TREE_GROUPS;
  driver::Await("the tab to show its tree", [&] { return Control(tree).IsVisible(); });
}

void MainWindow::Select(Tab tab, const std::vector<std::wstring>& path) const {
  driver::TreeView tree = Tree(tab);
  tree.Select(tree.Find(path).item);
}

void MainWindow::ClickTab(Tab tab) const {
  driver::TabStrip tabs = Tabs();
  driver::ClickAt(tabs.Control(), tabs.Place(tab));
  driver::Await("the tab to be selected", [&] { return tabs.Selected() == tab; });
}

void MainWindow::ClickNode(Tab tab, const std::vector<std::wstring>& path) const {
  driver::TreeView tree = Tree(tab);
  const HTREEITEM item = tree.Find(path).item;
  driver::ClickAt(tree.Control(), tree.Reveal(item));
  driver::Await("the node to be selected", [&] { return tree.Selected().item == item; });
}

void MainWindow::PressAndWait(int button) const {
  Control(button).Send(BM_CLICK);
}

}  // namespace program
