// Measures the building of both trees against the database alone, in one process and in turn.
// Arguments: the numbers of users to measure with; 1000, 10000 and 30000 without any.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/Floor.h"
#include "bench/Program.h"
#include "bench/Row.h"

namespace bench {
namespace {

constexpr int kPairs = 5;

// Where a leaf node's memory goes: all nodes of both trees, over the leaves alone.
double BytesPerLeaf(const browser::frmUserGroupPerm& window) {
  std::size_t bytes = 0;
  std::size_t leaves = 0;
  for (const int tab : {0, 1}) {
    const controls::TreeNodes& nodes = window.Page(tab).TreeView1.Nodes();
    bytes += nodes.NodeBytes();
    for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
         node = nodes.NextIndex(node)) {
      if (!nodes.HasChildren(node)) ++leaves;
    }
  }
  return static_cast<double>(bytes) / static_cast<double>(leaves);
}

// The child of a node that has the most children of its own.
controls::NodeId LargestChild(const controls::TreeNodes& nodes, controls::NodeId parent) {
  controls::NodeId largest = controls::kNoNode;
  int most = -1;
  for (const controls::NodeId child : nodes.ChildrenInOrder(parent)) {
    const int children = nodes.Children(child);
    if (children > most) {
      most = children;
      largest = child;
    }
  }
  return largest;
}

// The group with the most members, opened down to them, as the user sees it.
double ExpandLargestFolder(browser::frmUserGroupPerm& window) {
  controls::TreeView& groups = window.Groups.TreeView1;
  const controls::TreeNodes& nodes = groups.Nodes();
  controls::NodeId largest = controls::kNoNode;
  for (const controls::NodeId group : nodes.ChildrenInOrder(nodes.Root())) {
    const controls::NodeId members = LargestChild(nodes, group);
    if (largest == controls::kNoNode || nodes.Children(members) > nodes.Children(largest)) {
      largest = members;
    }
  }
  groups.SetExpanded(nodes.Parent(largest), true);
  window.Repaint();
  const double seconds = SecondsOf([&] {
    groups.SetExpanded(largest, true);
    window.Repaint();
  });
  groups.SetExpanded(largest, false);
  return seconds;
}

double SwitchTabs(browser::frmUserGroupPerm& window) {
  return SecondsOf([&] {
    for (const int tab : {1, 0}) {
      window.TabStrip1.SetSelectedTab(tab);
      window.Repaint();
    }
  });
}

void Measure(int users) {
  Program program({users, kGroups, kPermissions});
  Floor floor(program.DatabaseFile(),
              program.Statements([](auto&) {}, [](auto& window) { Refresh(window); }));
  const auto window = program.Start();
  floor.Run();
  Comparison refresh;
  for (int pair = 0; pair < kPairs; ++pair) {
    const double seconds = SecondsOf([&] {
      Refresh(*window);
      Settle(*window);
    });
    refresh.Add(seconds, floor.Run());
  }
  window->TabStrip1.SetSelectedTab(1);
  const double expand = ExpandLargestFolder(*window);
  window->TabStrip1.SetSelectedTab(0);
  const double tabs = SwitchTabs(*window);
  char bytes[32];
  std::snprintf(bytes, sizeof bytes, "%.1f", BytesPerLeaf(*window));
  PrintRow(std::to_string(users),
           {std::to_string(floor.Statements()), std::to_string(floor.Rows()),
            Milliseconds(refresh.FloorMedian()), Milliseconds(refresh.Median()),
            Times(refresh.Ratio()), bytes, Milliseconds(expand), Milliseconds(tabs)});
  window->Unload();
}

int Run(const std::vector<int>& sizes) {
  PrintRow("users", {"statements", "rows", "floor", "RefreshTree", "ratio", "bytes/leaf", "expand",
                     "both tabs"});
  return ExitCodeOf([&] {
    for (const int users : sizes) Measure(users);
  });
}

}  // namespace
}  // namespace bench

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(_wtoi(argv[i]));
#else
int main(int argc, char** argv) {
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
#endif
  if (sizes.empty()) sizes = {1000, 10000, 30000};
  return bench::Run(sizes);
}
