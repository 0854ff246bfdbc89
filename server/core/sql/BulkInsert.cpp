#include "server/core/sql/BulkInsert.h"

namespace server {
namespace {

constexpr std::size_t kRowsAtOnce = 100;

void BindValue(Statement& statement, int parameter,
               const std::variant<std::monostate, std::int64_t, std::string>& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    statement.Bind(parameter, *number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    statement.Bind(parameter, std::string_view(*text));
  } else {
    statement.BindNull(parameter);
  }
}

}  // namespace

BulkInsert::BulkInsert(Engine& engine, std::string_view table,
                       std::vector<std::string_view> columns)
    : engine_(engine), columns_(columns.size()) {
  std::string names;
  for (const std::string_view column : columns) {
    names.append(names.empty() ? "" : ", ").append(column);
    marks_.append(marks_.empty() ? "(?" : ", ?");
  }
  marks_ += ")";
  start_ = "INSERT INTO ";
  start_.append(table).append(" (").append(names).append(") VALUES ");
}

std::unique_ptr<Statement> BulkInsert::Prepare(std::size_t rows) const {
  std::string sql = start_;
  for (std::size_t row = 0; row < rows; ++row) sql.append(row == 0 ? "" : ", ").append(marks_);
  return engine_.Prepare(sql);
}

void BulkInsert::AddField(const Field& field) {
  switch (field.kind) {
    case FieldKind::kNull:
      Append(nullptr);
      break;
    case FieldKind::kNumber:
      Append(field.number);
      break;
    case FieldKind::kText:
      Append(field.text);
      break;
  }
  if (values_.size() % columns_ == 0) RowAdded();
}

void BulkInsert::RowAdded() {
  if (values_.size() < kRowsAtOnce * columns_) return;
  if (full_ == nullptr) full_ = Prepare(kRowsAtOnce);
  Write(*full_);
}

void BulkInsert::Finish() {
  if (values_.empty()) return;
  Write(*Prepare(values_.size() / columns_));
}

void BulkInsert::Write(Statement& statement) {
  int parameter = 0;
  for (const Value& value : values_) BindValue(statement, ++parameter, value);
  while (statement.Step()) {
  }
  statement.Reset();
  values_.clear();
}

}  // namespace server
