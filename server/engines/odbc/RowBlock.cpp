#include "server/engines/odbc/RowBlock.h"

#include <algorithm>

#include "server/engines/odbc/OdbcError.h"
#include "server/engines/odbc/WideText.h"

namespace server {
namespace {

constexpr std::size_t kRowsAtOnce = 100;
// In bytes. Names are shorter by far; where one is not, its row alone pays for it.
constexpr std::size_t kUsualWidth = 256;

bool IsNumber(SQLSMALLINT type) {
  switch (type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_BIT:
      return true;
    default:
      return false;
  }
}

SQLSMALLINT CTypeOfTexts(TextForm form) {
  return form == TextForm::kWide ? SQL_C_WCHAR : SQL_C_CHAR;
}

}  // namespace

void RowBlock::Check(SQLRETURN result) const {
  if (!SQL_SUCCEEDED(result)) FailWith(DiagnosisOf(SQL_HANDLE_STMT, statement_));
}

void RowBlock::Start(SQLSMALLINT columns) {
  if (columns_.empty()) {
    std::vector<Column> described(static_cast<std::size_t>(columns));
    for (std::size_t i = 0; i < described.size(); ++i) described[i].number = IsNumberColumn(i);
    columns_ = std::move(described);
  }
  if (!isReady_) {
    for (Column& column : columns_) column.width = kUsualWidth;
    SetRowsAtOnce(kRowsAtOnce);
    BindColumns();
    isReady_ = true;
  }
  fetched_ = 0;
  row_ = 0;
  passed_ = 0;
}

bool RowBlock::IsNumberColumn(std::size_t column) const {
  // There are drivers that fail where the name has no room.
  SQLWCHAR name[64];
  SQLSMALLINT length = 0;
  SQLSMALLINT type = 0;
  Check(SQLDescribeColW(statement_, static_cast<SQLUSMALLINT>(column + 1), name,
                        static_cast<SQLSMALLINT>(std::size(name)), &length, &type, nullptr, nullptr,
                        nullptr));
  return IsNumber(type);
}

void RowBlock::SetRowsAtOnce(std::size_t rows) {
  isReady_ = false;
  rowsAtOnce_ = rows;
  Check(SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows), 0));
  Check(SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0));
}

void RowBlock::BindColumns() {
  SQLUSMALLINT position = 0;
  for (Column& column : columns_) {
    column.lengths.assign(rowsAtOnce_, SQL_NULL_DATA);
    if (column.number) {
      column.numbers.assign(rowsAtOnce_, 0);
      Check(SQLBindCol(statement_, ++position, SQL_C_SBIGINT, column.numbers.data(),
                       sizeof(std::int64_t), column.lengths.data()));
    } else {
      column.texts.assign(rowsAtOnce_ * column.width, 0);
      Check(SQLBindCol(statement_, ++position, CTypeOfTexts(textForm_), column.texts.data(),
                       static_cast<SQLLEN>(column.width), column.lengths.data()));
    }
  }
}

bool RowBlock::Fetch(SQLSMALLINT orientation, SQLLEN place) {
  const SQLRETURN result = SQLFetchScroll(statement_, orientation, place);
  if (result == SQL_NO_DATA) fetched_ = 0;
  if (result != SQL_NO_DATA) Check(result);
  return fetched_ > 0;
}

bool RowBlock::Next() {
  if (row_ + 1 < fetched_) {
    ++row_;
  } else {
    passed_ += static_cast<SQLLEN>(fetched_);
    row_ = 0;
    if (!Fetch(SQL_FETCH_NEXT, 0)) return false;
  }
  const bool cut = std::any_of(columns_.begin(), columns_.end(),
                               [this](const Column& column) { return IsCut(column); });
  if (cut && textForm_ == TextForm::kWide) ReadByPosition();
  if (cut && textForm_ == TextForm::kUtf8) FetchAlone();
  return true;
}

bool RowBlock::IsCut(const Column& column) const {
  if (column.number) return false;
  const std::size_t unit = textForm_ == TextForm::kWide ? sizeof(SQLWCHAR) : 1;
  const SQLLEN length = column.lengths[row_];
  return length == SQL_NO_TOTAL || length > static_cast<SQLLEN>(column.width - unit);
}

void RowBlock::ReadByPosition() {
  Check(SQLSetPos(statement_, row_ + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE));
  SQLUSMALLINT position = 0;
  for (Column& column : columns_) {
    ++position;
    if (!IsCut(column)) continue;
    column.whole.assign(static_cast<std::size_t>(column.lengths[row_]) + sizeof(SQLWCHAR), 0);
    SQLLEN length = 0;
    Check(SQLGetData(statement_, position, CTypeOfTexts(textForm_), column.whole.data(),
                     static_cast<SQLLEN>(column.whole.size()), &length));
    if (length != column.lengths[row_]) FailWith({"01004", "a text cannot be read whole"});
  }
}

bool RowBlock::WidenCutColumns() {
  bool widened = false;
  for (Column& column : columns_) {
    if (!IsCut(column)) continue;
    column.width *= 4;
    widened = true;
  }
  return widened;
}

// Fetches the current row once more, into buffers as wide as it needs. The rows after it come one
// by one too, until the statement is executed the next time.
void RowBlock::FetchAlone() {
  const SQLLEN place = passed_ + static_cast<SQLLEN>(row_) + 1;
  bool cut = WidenCutColumns();
  SetRowsAtOnce(1);
  passed_ = place - 1;
  row_ = 0;
  while (cut) {
    BindColumns();
    if (!Fetch(SQL_FETCH_ABSOLUTE, place)) FailWith({"HY109", "a row cannot be read again"});
    cut = WidenCutColumns();
  }
}

Field RowBlock::Read(int position) {
  Column& column = columns_[static_cast<std::size_t>(position)];
  const SQLLEN length = column.lengths[row_];
  if (length == SQL_NULL_DATA) return {};
  if (column.number) return {FieldKind::kNumber, column.numbers[row_], {}};
  const char* const text = IsCut(column) ? column.whole.data() : &column.texts[row_ * column.width];
  const auto size = static_cast<std::size_t>(length);
  if (textForm_ == TextForm::kUtf8) return {FieldKind::kText, 0, {text, size}};
  column.utf8 = FromOdbc(reinterpret_cast<const SQLWCHAR*>(text), size / sizeof(SQLWCHAR));
  return {FieldKind::kText, 0, column.utf8};
}

}  // namespace server
