#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/program/driver/Window.h"

namespace driver {

// A list box. Its messages carry texts over by themselves.
class ListBox {
 public:
  explicit ListBox(const Window& window) : window_(window) {}

  const Window& Control() const { return window_; }
  int Count() const;
  std::wstring Text(int row) const;
  LPARAM Data(int row) const;
  std::vector<std::wstring> Texts() const;
  // The row of that text; throws a Failure when there is none.
  int Find(std::wstring_view text) const;
  bool IsSelected(int row) const;
  // The rows that are selected, of which a list of one selection has one at the most.
  std::vector<std::wstring> Selected() const;
  // The middle of a row that is in view, in the control's coordinates.
  POINT Place(int row) const;
  // Selects a row and tells the parent, as a click does. In a list of several selections the row is
  // added to them.
  void Select(int row) const;

 private:
  Window window_;
};

}  // namespace driver
