#include "tests/program/driver/WindowDump.h"

#include <sstream>

#include "data/Text.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/ListView.h"
#include "tests/program/driver/TreeView.h"
#include "tests/program/driver/Window.h"

namespace driver {
namespace {

// A dump is to be read, so long trees are cut.
constexpr std::size_t kMostNodes = 300;

class Dump {
 public:
  void WindowAndControls(const Window& window, std::size_t depth) {
    Line(window, depth);
    const std::wstring kind = window.Class();
    if (kind == WC_TREEVIEWW) {
      TreeView tree(window);
      if (tree.Count() > 0) Nodes(tree, tree.Root(), depth + 1);
    } else if (kind == WC_LISTVIEWW) {
      Rows(ListView(window).Rows(), depth + 1);
    }
    for (const Window& child : window.Children()) WindowAndControls(child, depth + 1);
  }

  std::ostringstream out;

 private:
  void Line(const Window& window, std::size_t depth) {
    const RECT place = window.Rectangle();
    out << std::string(2 * depth, ' ') << data::ToUtf8(window.Class()) << " " << window.Id() << " ["
        << place.left << "," << place.top << " " << place.right - place.left << "x"
        << place.bottom - place.top << "]" << ((window.Style() & WS_VISIBLE) != 0 ? "" : " hidden")
        << (window.IsEnabled() ? "" : " disabled") << (FocusIn(window) == window ? " focus" : "")
        << " \"" << data::ToUtf8(window.Text()) << "\"\n";
  }

  void Nodes(TreeView& tree, const TreeNode& node, std::size_t depth) {
    if (++nodes_ > kMostNodes) return;
    out << std::string(2 * depth, ' ')
        << (node.expanded      ? "- "
            : node.hasChildren ? "+ "
                               : "  ")
        << data::ToUtf8(node.text) << (node.selected ? "  <selected>" : "") << "\n";
    for (const TreeNode& child : tree.KnownChildren(node.item)) Nodes(tree, child, depth + 1);
  }

  void Rows(const std::vector<ListRow>& rows, std::size_t depth) {
    for (const ListRow& row : rows) {
      out << std::string(2 * depth, ' ') << (row.checked ? "[x] " : "[ ] ")
          << data::ToUtf8(row.text) << (row.selected ? "  <selected>" : "") << "\n";
    }
  }

  std::size_t nodes_ = 0;
};

}  // namespace

std::string DumpWindows() {
  Dump dump;
  for (const Window& window : AllTopWindows()) {
    if (!window.IsVisible()) continue;
    try {
      dump.out << "process " << window.ProcessId() << "\n";
      dump.WindowAndControls(window, 1);
    } catch (const Failure& failure) {
      dump.out << "  (" << failure.what() << ")\n";
    }
  }
  return dump.out.str();
}

}  // namespace driver
