#include "server/core/sql/RowWriter.h"

#include <string>

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {
namespace {

void BindValue(Statement& statement, int parameter, const data::FieldValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    statement.Bind(parameter, *number);
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    statement.Bind(parameter, data::ToUtf8(*text));
  } else {
    statement.BindNull(parameter);
  }
}

// A value in its column's own kind.
data::FieldValue Converted(const data::FieldValue& value, ColumnKind kind) {
  if (kind == ColumnKind::kNumber) {
    if (const auto* text = std::get_if<std::wstring>(&value)) return data::ToInteger(*text);
  } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
    return data::Decimal(*number);
  }
  return value;
}

}  // namespace

RowWriter::RowWriter(const SchemaTable& table, const std::vector<const SchemaColumn*>& columns,
                     std::vector<std::int64_t> keys)
    : table_(table), columns_(columns), keys_(std::move(keys)), values_(columns.size()) {}

void RowWriter::Set(std::size_t column, const data::FieldValue& value) {
  values_[column] = Converted(value, columns_[column]->kind);
}

void RowWriter::Write(Database& database) const {
  database.BeginWrite();
  if (keys_.empty()) {
    Insert(database);
  } else {
    Change(database);
  }
}

void RowWriter::Insert(Database& database) const {
  std::string names;
  std::string marks;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool set = values_[i].has_value();
    // An engine may make up an identifier that is missing; a link or account without one is a
    // fault.
    if (columns_[i]->key && (!set || std::holds_alternative<std::monostate>(*values_[i]))) {
      Fail(kKeyMissing, data::FromUtf8(columns_[i]->name));
    }
    if (!set) continue;
    names.append(names.empty() ? "" : ", ").append(columns_[i]->name);
    marks.append(marks.empty() ? "?" : ", ?");
  }
  const auto cursor = database.BorrowOwn("INSERT INTO " + std::string(table_.writesTo) + " (" +
                                         names + ") VALUES (" + marks + ")");
  BindValues(cursor->Get());
  cursor->Get().Step();
}

void RowWriter::Change(Database& database) const {
  std::string sql;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (values_[i]) sql.append(sql.empty() ? "" : ", ").append(columns_[i]->name).append(" = ?");
  }
  if (sql.empty()) return;
  sql = "UPDATE " + std::string(table_.writesTo) + " SET " + sql + " WHERE ";
  const std::size_t start = sql.size();
  for (const SchemaColumn& column : table_.columns) {
    if (!column.key) continue;
    sql.append(sql.size() == start ? "" : " AND ").append(column.name).append(" = ?");
  }
  if (!table_.writesWhere.empty()) sql.append(" AND ").append(table_.writesWhere);
  const auto cursor = database.BorrowOwn(sql);
  int parameter = BindValues(cursor->Get());
  for (const std::int64_t key : keys_) cursor->Get().Bind(++parameter, key);
  cursor->Get().Step();
  if (database.Get().RowsAffected() == 0) Fail(kRowGone);
}

int RowWriter::BindValues(Statement& statement) const {
  int parameter = 0;
  for (const auto& value : values_) {
    if (value) BindValue(statement, ++parameter, *value);
  }
  return parameter;
}

}  // namespace server
