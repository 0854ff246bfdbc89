#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/Value.h"
#include "server/core/sql/Engine.h"
#include "server/core/sql/StatementGuard.h"

namespace server {

// A prepared statement with the buffers in which the texts of its current row are handed out.
class Cursor {
 public:
  Cursor(std::unique_ptr<Statement> statement, std::size_t columns)
      : statement_(std::move(statement)), texts_(columns) {}

  Statement& Get() { return *statement_; }
  std::size_t Columns() const { return texts_.size(); }
  // A column of the current row. Its text stays until the next step, or the same column is read in
  // another row.
  data::ColumnValue Read(int column);

 private:
  std::unique_ptr<Statement> statement_;
  std::vector<std::wstring> texts_;
};

// What the cache keeps of a shape: its plan, and the cursors that nobody uses at the moment.
struct CachedStatement {
  StatementPlan plan;
  std::vector<std::unique_ptr<Cursor>> idle;
  // Those that ask for the rows of several identifiers, by how many they have room for.
  std::map<std::size_t, std::unique_ptr<Cursor>> many;
};

// A cursor on loan, given back to its shape when the loan ends. Several of one shape may be out at
// once.
class CursorLoan {
 public:
  CursorLoan(Engine& engine, std::shared_ptr<CachedStatement> statement);
  ~CursorLoan();
  CursorLoan(const CursorLoan&) = delete;
  CursorLoan& operator=(const CursorLoan&) = delete;

  const StatementPlan& Plan() const { return statement_->plan; }
  const std::shared_ptr<CachedStatement>& Shape() const { return statement_; }
  Cursor& Rows() const { return *cursor_; }
  Statement& Get() const { return cursor_->Get(); }

 private:
  std::shared_ptr<CachedStatement> statement_;
  std::unique_ptr<Cursor> cursor_;
};

// The shapes understood so far. A shape that is known costs one look-up and no allocation.
class StatementCache {
 public:
  // The shape's entry, which is made, or refused by the guard, at first sight.
  std::shared_ptr<CachedStatement> Find(const StatementShape& shape);
  // The same for a statement of the server's own, which needs no guard.
  std::shared_ptr<CachedStatement> FindOwn(std::string_view sql);

  std::size_t Size() const { return statements_.size(); }

  // Programs send a few dozen shapes; whoever sends more starts over.
  static constexpr std::size_t kMostShapes = 128;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };

  std::shared_ptr<CachedStatement> Keep(std::string_view key, StatementPlan plan);

  std::unordered_map<std::string, std::shared_ptr<CachedStatement>, Hash, std::equal_to<>>
      statements_;
};

}  // namespace server
