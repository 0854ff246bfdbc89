#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace controls {
class ListBox;
class ListView;
class TreeView;
}  // namespace controls

namespace test_support {

// A line of a tree as it is on view, scrolled to or not.
struct ShownNode {
  int level = 0;
  std::wstring text;
  int image = 0;
  bool selected = false;
  bool hasButton = false;  // the sign that opens and closes it
  bool open = false;

  bool operator==(const ShownNode&) const = default;
};

// An item of a list as it is shown.
struct ShownItem {
  std::wstring text;
  bool marked = false;  // selected, or checked in a check list
  // Has the list's focus. Not looked at in a multi-select list: a native one marks an item as
  // focused also where none is.
  bool focused = false;

  bool operator==(const ShownItem&) const = default;
};

// A row of a list view as it is shown.
struct ShownRow {
  std::vector<std::wstring> texts;
  bool selected = false;
  bool focused = false;

  bool operator==(const ShownRow&) const = default;
};

// For the test's log; what is not ASCII is left out.
std::ostream& operator<<(std::ostream& out, const ShownNode& node);
std::ostream& operator<<(std::ostream& out, const ShownItem& item);
std::ostream& operator<<(std::ostream& out, const ShownRow& row);

// What a user sees in a control, from the top to the bottom: one source for each back end. Where
// there is a native control it is asked, and not the classes over it.
std::vector<ShownNode> ShownNodes(const controls::TreeView& tree);
std::vector<ShownItem> ShownItems(const controls::ListBox& list);
std::vector<ShownRow> ShownRows(const controls::ListView& list);
// The captions of the columns; that of the column by which the rows are sorted has a sign before
// it, + from the first to the last and - the other way round.
std::vector<std::wstring> ShownHeadings(const controls::ListView& list);

}  // namespace test_support
