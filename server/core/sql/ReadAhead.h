#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "server/core/sql/IdentifierList.h"
#include "server/core/sql/ListWalk.h"
#include "server/core/sql/RowBuffer.h"
#include "server/core/sql/StatementCache.h"

namespace server {

// Spares round trips within a reading transaction. A statement that is asked again and again with
// the next identifier of a list is asked for the next some hundred at once, and the rows are dealt
// out by the identifier: the same rows, and where a statement has an order the same order, as if
// each had been asked for by itself. All of them see the one state of the transaction.
//
// Lists are what a statement without an identifier of its own gave. Their identifiers, and nothing
// else, are kept beyond the end of the transaction: the next one may go through them again. Rows
// are kept up to kMostBytes; with a row that would go beyond it, what is being read is dropped.
class ReadAhead {
 public:
  explicit ReadAhead(Engine& engine) : engine_(engine) {}

  static constexpr std::size_t kMostBytes = std::size_t{16} << 20;

  // The rows of a statement for one identifier, not yet in their order of names. Null where the
  // statement is to be run by itself.
  std::unique_ptr<RowBuffer> Take(const std::shared_ptr<CachedStatement>& statement,
                                  std::int64_t identifier);
  // A list to note the identifiers in that a statement is about to give; null where it gives none.
  std::shared_ptr<IdentifierList> StartList(const std::shared_ptr<CachedStatement>& statement);

  // Forgets the rows, because something was written, or the transaction ends.
  void ForgetRows();

  // What the rows at hand take, in bytes.
  std::size_t Bytes() const { return bytes_; }

 private:
  using Rows = std::unordered_map<std::int64_t, std::unique_ptr<RowBuffer>>;

  struct Walk {
    std::shared_ptr<CachedStatement> statement;
    ListWalk path;
    Rows rows;
    bool failed = false;  // once: the statement is asked one by one from there on
  };

  struct NotedList {
    std::shared_ptr<CachedStatement> statement;
    std::shared_ptr<IdentifierList> list;
  };

  std::vector<std::shared_ptr<const IdentifierList>> ListsFor(const StatementPlan& plan) const;
  std::unique_ptr<RowBuffer> TakeRows(Walk& walk, std::int64_t identifier);
  void Drop(Walk& walk);
  void DropPassed(Walk& walk);
  void Read(Walk& walk, const std::vector<std::int64_t>& identifiers);
  bool ReadRows(const StatementPlan& plan, Cursor& cursor, Rows& rows, std::size_t& bytes) const;
  // Leaves each row of an identifier once, and returns what all rows take then.
  static std::size_t RemoveDoubles(Rows& rows);
  Cursor& CursorFor(CachedStatement& statement, std::size_t identifiers);

  Engine& engine_;
  std::vector<NotedList> lists_;  // the latest first
  std::unordered_map<const CachedStatement*, Walk> walks_;
  std::size_t bytes_ = 0;
};

}  // namespace server
