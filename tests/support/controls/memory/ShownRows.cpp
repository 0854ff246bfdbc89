#include "controls/ListViewModel.h"
#include "tests/support/controls/ShownContent.h"

namespace test_support {

std::vector<ShownRow> ShownRows(const controls::ListView& list) {
  const controls::ListViewModel& model = controls::ModelOf(list);
  std::vector<ShownRow> shown;
  for (int place = 0; place < model.ShownCount(); ++place) {
    const int row = model.RowAt(place);
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < model.Columns().size(); ++i) {
      texts.push_back(model.Text(row, static_cast<int>(i)));
    }
    shown.push_back({texts, model.Selected(row), row == model.Index()});
  }
  return shown;
}

std::vector<std::wstring> ShownHeadings(const controls::ListView& list) {
  const controls::ListViewModel& model = controls::ModelOf(list);
  std::vector<std::wstring> headings;
  for (const controls::ListView::Column& column : model.Columns()) {
    const bool sorted = static_cast<int>(headings.size()) == model.SortColumn();
    const wchar_t* const sign = sorted ? (model.SortDescending() ? L"-" : L"+") : L"";
    headings.push_back(sign + column.caption);
  }
  return headings;
}

}  // namespace test_support
