#include "server/core/sql/SqlResultSet.h"

#include <algorithm>

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {

SqlResultSet::SqlResultSet(std::shared_ptr<Database> database, Database::Answer answer)
    : database_(std::move(database)),
      cursor_(std::move(answer.cursor)),
      list_(std::move(answer.list)),
      rows_(std::move(answer.rows)) {
  if (rows_ == nullptr) {
    Start();
  } else {
    SortRows();
  }
}

void SqlResultSet::Start() {
  onRow_ = cursor_->Get().Step();
  if (!IsPutInOrder()) {
    NoteRow();
    return;
  }
  Detach();
  SortRows();
  if (list_ == nullptr) return;
  for (; !rows_->EndOfRows(); rows_->MoveNext()) list_->Add(rows_->Read(0).Number());
  rows_->Rewind();
}

void SqlResultSet::SortRows() {
  if (IsPutInOrder()) rows_->Sort(*cursor_->Plan().nameOrder);
}

void SqlResultSet::NoteRow() {
  if (onRow_ && list_ != nullptr) list_->Add(cursor_->Get().Read(0).number);
}

bool SqlResultSet::IsPutInOrder() const {
  const StatementPlan& plan = cursor_->Plan();
  return plan.nameOrder && (plan.hasOrderBy || !database_->Reading());
}

CursorLoan& SqlResultSet::Open() {
  if (cursor_ == nullptr) Fail(kResultSetClosed);
  return *cursor_;
}

bool SqlResultSet::EndOfRows() {
  Open();
  return rows_ != nullptr ? rows_->EndOfRows() : !onRow_;
}

void SqlResultSet::RequireRow() {
  if (EndOfRows()) Fail(kNoCurrentRow);
}

data::ColumnValue SqlResultSet::Column(int position) {
  CursorLoan& cursor = Open();
  if (position < 0 || static_cast<std::size_t>(position) >= cursor.Plan().columns.size()) {
    Fail(kColumnUnknown, data::Decimal(position));
  }
  RequireRow();
  return rows_ != nullptr ? rows_->Read(position) : cursor.Rows().Read(position);
}

void SqlResultSet::MoveNext() {
  RequireRow();
  writer_.reset();
  if (rows_ != nullptr) {
    rows_->MoveNext();
  } else {
    onRow_ = false;
    onRow_ = cursor_->Get().Step();
    NoteRow();
  }
}

void SqlResultSet::MoveFirst() {
  Statement& statement = Open().Get();
  writer_.reset();
  rows_.reset();
  list_.reset();
  onRow_ = false;
  statement.Reset();
  Start();
}

void SqlResultSet::RequireWritable() {
  const StatementPlan& plan = Open().Plan();
  if (plan.table == nullptr || plan.table->writesTo.empty()) Fail(kSetNotWritable);
  for (const SchemaColumn& column : plan.table->columns) {
    if (!column.key) continue;
    if (std::find(plan.columns.begin(), plan.columns.end(), &column) == plan.columns.end()) {
      Fail(kSetNotWritable);
    }
  }
}

void SqlResultSet::Detach() {
  if (rows_ != nullptr) return;
  auto rows = std::make_unique<RowBuffer>();
  if (onRow_) rows->Fill(cursor_->Rows());
  cursor_->Get().Reset();
  rows_ = std::move(rows);
}

void SqlResultSet::AddNew() {
  RequireWritable();
  Detach();
  const StatementPlan& plan = cursor_->Plan();
  writer_.emplace(*plan.table, plan.columns, std::vector<std::int64_t>{});
}

void SqlResultSet::Edit() {
  RequireWritable();
  RequireRow();
  Detach();
  const StatementPlan& plan = cursor_->Plan();
  writer_.emplace(*plan.table, plan.columns, CurrentKeys());
}

std::vector<std::int64_t> SqlResultSet::CurrentKeys() {
  const StatementPlan& plan = cursor_->Plan();
  std::vector<std::int64_t> keys;
  for (const SchemaColumn& column : plan.table->columns) {
    if (!column.key) continue;
    const auto place = std::find(plan.columns.begin(), plan.columns.end(), &column);
    keys.push_back(rows_->Read(static_cast<int>(place - plan.columns.begin())).Integer());
  }
  return keys;
}

void SqlResultSet::SetColumn(std::wstring_view name, const data::FieldValue& value) {
  const std::vector<const SchemaColumn*>& columns = Open().Plan().columns;
  const std::string narrow = data::ToUtf8(name);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (SameName(columns[i]->name, narrow)) {
      Set(i, value);
      return;
    }
  }
  Fail(kColumnUnknown, name);
}

void SqlResultSet::SetColumn(int position, const data::FieldValue& value) {
  if (position < 0 || static_cast<std::size_t>(position) >= Open().Plan().columns.size()) {
    Fail(kColumnUnknown, data::Decimal(position));
  }
  Set(static_cast<std::size_t>(position), value);
}

void SqlResultSet::Set(std::size_t column, const data::FieldValue& value) {
  if (!writer_) Fail(kNothingToWrite);
  writer_->Set(column, value);
}

void SqlResultSet::Update() {
  Open();
  if (!writer_) Fail(kNothingToWrite);
  const RowWriter writer = std::move(*writer_);
  writer_.reset();
  writer.Write(*database_);
  if (!writer.IsNew()) {
    for (std::size_t i = 0; i < writer.Values().size(); ++i) {
      if (writer.Values()[i]) rows_->Change(i, *writer.Values()[i]);
    }
  }
}

void SqlResultSet::Close() {
  writer_.reset();
  rows_.reset();
  list_.reset();
  cursor_.reset();
}

}  // namespace server
