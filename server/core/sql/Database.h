#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "server/core/sql/Engine.h"
#include "server/core/sql/ReadAhead.h"
#include "server/core/sql/SessionCheck.h"
#include "server/core/sql/StatementCache.h"

namespace server {

// The open database of a session: its engine behind the statement guard. Shared by the session, its
// connections and their result sets, so that whichever is released last closes it.
class Database {
 public:
  // Without a check the session never ends.
  explicit Database(std::unique_ptr<Engine> engine,
                    std::unique_ptr<SessionCheck> session = nullptr);

  // Comes before each write: raises the session's error where the session has ended, and lets go
  // what was read ahead.
  void BeginWrite();

  // What a client's statement, a SELECT, is answered with.
  struct Answer {
    std::unique_ptr<CursorLoan> cursor;  // ready to run
    // The rows, where they are at hand; the cursor then need not run.
    std::unique_ptr<RowBuffer> rows;
    // Where the first column of each row is to be noted as it is given; may be null.
    std::shared_ptr<IdentifierList> list;
  };
  Answer Ask(std::wstring_view statement);

  // A cursor for a client's statement, its literals bound. Raises a database error for a statement
  // of another kind than wanted, before anything of it is run.
  std::unique_ptr<CursorLoan> Borrow(std::wstring_view statement, bool select);
  // A cursor for a statement of the server's own.
  std::unique_ptr<CursorLoan> BorrowOwn(std::string_view sql);

  // Runs a client's deletion or soft delete and returns how many rows it affected.
  std::int32_t Execute(std::wstring_view statement);

  // Reading transactions, nested by counting.
  void BeginRead();
  void EndRead();
  bool Reading() const { return readDepth_ > 0; }
  // Grows with every outermost BeginRead: what was read in an earlier one may have changed.
  std::uint32_t ReadNumber() const { return readNumber_; }

  Engine& Get() { return *engine_; }
  // What the rows that were read ahead take, in bytes.
  std::size_t BytesAhead() const { return readAhead_.Bytes(); }

 private:
  void RequireSession();
  void RequireSessionForRead();

  std::unique_ptr<Engine> engine_;
  std::unique_ptr<SessionCheck> session_;  // may be null
  StatementCache cache_;
  StatementShape shape_;
  ReadAhead readAhead_;
  int readDepth_ = 0;
  std::uint32_t readNumber_ = 0;
};

}  // namespace server
