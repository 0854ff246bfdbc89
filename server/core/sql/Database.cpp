#include "server/core/sql/Database.h"

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {
namespace {

void Bind(Statement& statement, std::span<const Literal> literals) {
  int parameter = 0;
  for (const Literal& literal : literals) {
    if (literal.isText) {
      statement.Bind(++parameter, data::ToUtf8(literal.text));
    } else {
      statement.Bind(++parameter, literal.number);
    }
  }
}

}  // namespace

Database::Database(std::unique_ptr<Engine> engine, std::unique_ptr<SessionCheck> session)
    : engine_(std::move(engine)), session_(std::move(session)), readAhead_(*engine_) {}

void Database::BeginWrite() {
  RequireSession();
  readAhead_.ForgetRows();
}

void Database::RequireSession() {
  if (session_) session_->RequireOpen(*engine_);
}

std::unique_ptr<CursorLoan> Database::Borrow(std::wstring_view statement, bool select) {
  shape_.Read(statement);
  std::shared_ptr<CachedStatement> known = cache_.Find(shape_);
  if ((known->plan.kind == StatementKind::kSelect) != select) {
    FailDatabase(select ? L"statement returns no rows" : L"statement changes no rows");
  }
  CheckLiterals(known->plan, shape_.Literals());
  auto cursor = std::make_unique<CursorLoan>(*engine_, std::move(known));
  Bind(cursor->Get(), shape_.Literals());
  return cursor;
}

Database::Answer Database::Ask(std::wstring_view statement) {
  Answer answer{Borrow(statement, true), nullptr, nullptr};
  if (!Reading() || !engine_->ReadsAhead()) return answer;
  const std::shared_ptr<CachedStatement>& shape = answer.cursor->Shape();
  if (shape->plan.many) {
    answer.rows = readAhead_.Take(shape, shape_.Literals()[0].number);
  } else {
    answer.list = readAhead_.StartList(shape);
  }
  return answer;
}

std::unique_ptr<CursorLoan> Database::BorrowOwn(std::string_view sql) {
  return std::make_unique<CursorLoan>(*engine_, cache_.FindOwn(sql));
}

// Where the database itself cannot be asked, the first read of the transaction says so, in the name
// of what is being read.
void Database::RequireSessionForRead() {
  try {
    RequireSession();
  } catch (const data::RunTimeError& error) {
    if (error.Number() != kDatabaseError) throw;
  }
}

std::int32_t Database::Execute(std::wstring_view statement) {
  const std::unique_ptr<CursorLoan> cursor = Borrow(statement, false);
  BeginWrite();
  cursor->Get().Step();
  const std::int32_t affected = engine_->RowsAffected();
  if (session_) session_->AfterRemoval(*engine_);
  return affected;
}

void Database::BeginRead() {
  if (readDepth_ == 0) {
    RequireSessionForRead();
    engine_->BeginReading();
    ++readNumber_;
  }
  ++readDepth_;
}

void Database::EndRead() {
  if (readDepth_ == 0) Fail(kReadNotBegun);
  if (--readDepth_ > 0) return;
  readAhead_.ForgetRows();
  try {
    engine_->Commit();
  } catch (...) {
    engine_->Rollback();
    throw;
  }
}

}  // namespace server
