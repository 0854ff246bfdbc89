#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/program/driver/RemoteMemory.h"
#include "tests/program/driver/Window.h"

namespace driver {

struct ListRow {
  std::wstring text;
  LPARAM data = 0;
  bool checked = false;
  bool selected = false;
};

// A list, with check boxes or without. The text of its rows is that of their first column.
class ListView {
 public:
  explicit ListView(const Window& window);

  const Window& Control() const { return window_; }
  int Count() const;
  ListRow Row(int row);
  std::vector<ListRow> Rows();
  // The text of a row in a column, from 0.
  std::wstring Text(int row, int column);
  // The row of that text; throws a Failure when there is none.
  int Find(std::wstring_view text);
  int FocusedRow() const;

  // The texts of the rows whose check boxes are on.
  std::vector<std::wstring> Checked();
  // Brings a row into view and answers the middle of its check box, in the control's coordinates.
  POINT CheckPlace(int row);

  void Select(int row, bool selected = true);
  // Turns a row's check box over by the space bar, as a user does. Waits until it has turned.
  void Toggle(int row);

 private:
  void SetState(int row, UINT state, UINT mask);
  UINT State(int row, UINT mask) const;
  bool IsRowChecked(int row) const;

  Window window_;
  RemoteMemory memory_;
};

}  // namespace driver
