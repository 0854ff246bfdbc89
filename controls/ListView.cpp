#include "controls/ListView.h"

#include <utility>

#include "controls/Form.h"
#include "controls/ListViewModel.h"

// Constructor, ModelOf and the accessible name are the back ends'.
namespace controls {

void ListView::SetColumns(std::vector<Column> columns) {
  if (Owner().IsLoaded()) ModelOf(*this).SetColumns(std::move(columns));
}

void ListView::SetRows(std::vector<Row> rows) {
  if (Owner().IsLoaded()) ModelOf(*this).SetRows(std::move(rows));
}

int ListView::RowCount() const {
  return ModelOf(*this).RowCount();
}

const std::wstring& ListView::Text(int row, int column) const {
  return ModelOf(*this).Text(row, column);
}

void ListView::Filter(const std::function<bool(int row)>& shows) {
  ModelOf(*this).Filter(shows);
}

int ListView::ShownCount() const {
  return ModelOf(*this).ShownCount();
}

int ListView::RowAt(int place) const {
  return ModelOf(*this).RowAt(place);
}

void ListView::Sort(int column, bool descending) {
  ModelOf(*this).Sort(column, descending);
}

int ListView::SortColumn() const {
  return ModelOf(*this).SortColumn();
}

bool ListView::SortDescending() const {
  return ModelOf(*this).SortDescending();
}

int ListView::Index() const {
  return ModelOf(*this).Index();
}

void ListView::SetIndex(int row) {
  ModelOf(*this).SetIndex(row);
}

bool ListView::Selected(int row) const {
  return ModelOf(*this).Selected(row);
}

std::vector<int> ListView::SelectedRows() const {
  return ModelOf(*this).SelectedRows();
}

}  // namespace controls
