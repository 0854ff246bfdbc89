#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace controls {

// Rows of texts in columns with headings. A row is named by its number in the order in which the
// rows were given, from 0: which of them are on view, and how they are sorted, changes nothing in
// that. A place is counted from the top of what is on view.
//
// A click on a heading sorts by its column, a second one the other way round. Ctrl+A selects all
// rows on view; Ctrl+C and Ctrl+Insert put the selected rows on the clipboard, all of them where
// none is selected, as lines of texts with tabs between them.
class ListView : public Control {
 public:
  struct Column {
    std::wstring caption;
    // How much of the list's width it takes, beside what the other columns take.
    int share = 1;
    // Its texts are whole numbers: they stand to the right and are sorted as such.
    bool isNumber = false;
    // Which text of a row it is sorted by; -1 for the one that it shows. A row may have more texts
    // than there are columns.
    int sortedBy = -1;
  };
  // A text a column; one that is missing is empty. Line ends and tabs are shown as blanks. What
  // comes after the last column's is not shown.
  using Row = std::vector<std::wstring>;

  ListView(Form& form, int id);

  // What screen readers call the list.
  const std::wstring& AccessibleName() const;
  void SetAccessibleName(const std::wstring& name);

  // Takes the rows away, and the order.
  void SetColumns(std::vector<Column> columns);
  // All of them are on view, in the order asked for before; none is selected.
  void SetRows(std::vector<Row> rows);
  int RowCount() const;
  // Empty for a row or column that is not there.
  const std::wstring& Text(int row, int column) const;

  // Shows the rows alone for which shows says so. A row that goes out of view is no longer selected
  // and, where it has the list's focus, loses it.
  void Filter(const std::function<bool(int row)>& shows);
  int ShownCount() const;
  // -1 for a place that is not there.
  int RowAt(int place) const;

  // Rows whose texts are equal keep the order in which they were given. A column of -1 has all of
  // them in that order.
  void Sort(int column, bool descending);
  int SortColumn() const;
  bool SortDescending() const;

  // The row that has the list's focus, -1 for none. A list without one puts it on its first row
  // when it gets the focus itself, which neither selects the row nor raises Click.
  int Index() const;
  // Selects the row alone and brings it into view, without Click. -1, or a row that is not on view,
  // takes focus and selection away.
  void SetIndex(int row);
  bool Selected(int row) const;
  // In the order in which they are on view.
  std::vector<int> SelectedRows() const;

  // When the user moves to another row.
  std::function<void()> Click;
  // When the user double-clicks a row, or presses Enter on it. Where nobody listens Enter presses
  // the form's default button.
  std::function<void(int row)> Activate;
};

}  // namespace controls
