#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "server/core/sql/Engine.h"

namespace server {

// Adds many rows to one table, a hundred with each statement: a statement a row would make the
// filling of a database behind a network as long as its distance.
class BulkInsert {
 public:
  BulkInsert(Engine& engine, std::string_view table, std::vector<std::string_view> columns);

  // Adds a row, a value for each column: numbers, UTF-8 texts, nullptr, or fields of another
  // engine's row. The row may be written with a later one.
  template <class... Values>
  void Add(const Values&... values) {
    (Append(values), ...);
    RowAdded();
  }
  // The same value by value; the row is complete with the value of the last column.
  void AddField(const Field& field);
  // Writes what is not written yet. Without it the last rows are missing.
  void Finish();

 private:
  using Value = std::variant<std::monostate, std::int64_t, std::string>;

  void Append(std::integral auto number) { values_.emplace_back(std::int64_t{number}); }
  void Append(std::string_view text) { values_.emplace_back(std::string(text)); }
  void Append(std::nullptr_t) { values_.emplace_back(); }

  std::unique_ptr<Statement> Prepare(std::size_t rows) const;
  void RowAdded();
  void Write(Statement& statement);

  Engine& engine_;
  std::string start_;  // of the statement, up to VALUES
  std::string marks_;  // of one row
  std::size_t columns_;
  std::unique_ptr<Statement> full_;  // for as many rows as are written at once
  std::vector<Value> values_;        // row by row
};

}  // namespace server
