#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/ListView.h"

namespace controls {

// What a list view holds and does, on either back end: its rows, which of them are on view and in
// which order, which are selected, what a user's gesture changes, and which events that raises.
class ListViewModel {
 public:
  // What shows the rows. It is told after the model has changed.
  class View {
   public:
    virtual void ColumnsChanged() = 0;
    // Which rows are on view, or their order, and with it where the selected ones are.
    virtual void RowsChanged() = 0;
    virtual void OrderChanged() = 0;  // what the headings show of it
    virtual void SelectionChanged() = 0;

   protected:
    View() = default;
    ~View() = default;
    View(const View&) = default;
    View& operator=(const View&) = default;
  };

  // view may be null, where nothing is shown.
  explicit ListViewModel(View* view) : view_(view) {}
  // Whose events are raised.
  void SetOwner(ListView& list) { list_ = &list; }
  // The form starts another life.
  void Restart() { life_ = {}; }

  const std::vector<ListView::Column>& Columns() const { return life_.columns; }
  bool HasColumn(int column) const;
  int RowCount() const { return static_cast<int>(life_.rows.size()); }
  const std::wstring& Text(int row, int column) const;
  int ShownCount() const { return static_cast<int>(life_.shown.size()); }
  bool HasPlace(int place) const { return place >= 0 && place < ShownCount(); }
  int RowAt(int place) const;
  // -1 for a row that is not on view.
  int PlaceOf(int row) const;
  int SortColumn() const { return life_.sortColumn; }
  bool SortDescending() const { return life_.descending; }
  int Index() const { return life_.index; }
  bool Selected(int row) const { return HasRow(row) && At(row).selected; }
  std::vector<int> SelectedRows() const;

  // --- What the program does ---

  void SetColumns(std::vector<ListView::Column> columns);
  void SetRows(std::vector<ListView::Row> rows);
  void Filter(const std::function<bool(int row)>& shows);
  void Sort(int column, bool descending);
  void SetIndex(int row);

  // --- What a user does ---

  // The list gets the focus.
  void TakeFocus();
  void ClickHeading(int column);
  // Moves to a place, by a click or an arrow key, and selects the row there alone.
  void Choose(int place);
  // Moves to a place and changes the selection of the row there.
  void Toggle(int place);
  void SelectAll();
  // True where somebody listens and there is a row to do something with.
  bool Activate();
  void AskForCopy();

  // --- What a native control has done with a user's gesture by itself ---

  void TakeIndex(int place);
  // The places from the first to the last one.
  void TakeSelection(int first, int last, bool selected);

 private:
  struct Item {
    ListView::Row texts;
    bool visible = true;
    bool selected = false;
    int place = -1;
  };

  // All that ends with the form's life.
  struct Life {
    std::vector<ListView::Column> columns;
    std::vector<Item> rows;
    std::vector<int> order;  // all rows in the order asked for
    std::vector<int> shown;  // those of them that are on view
    int sortColumn = -1;
    bool descending = false;
    int index = -1;
  };

  bool HasRow(int row) const { return row >= 0 && row < RowCount(); }
  Item& At(int row) { return life_.rows[static_cast<std::size_t>(row)]; }
  const Item& At(int row) const { return life_.rows[static_cast<std::size_t>(row)]; }
  const std::wstring& TextAt(int row, std::size_t text) const;
  void PutInOrder();
  void SortByNumber(std::size_t text);
  void SortByText(std::size_t text);
  void UpdateView();
  bool MoveTo(int row);
  void SelectAlone(int row);
  std::wstring CopiedText() const;
  void AppendLine(std::wstring& text, int row) const;
  void RaiseClick() const;

  View* const view_;
  ListView* list_ = nullptr;
  Life life_;
};

// The model of a list view; the back ends know where it is.
ListViewModel& ModelOf(const ListView& list);

}  // namespace controls
