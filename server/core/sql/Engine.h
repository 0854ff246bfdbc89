#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "data/RunTimeError.h"

// The place where a database engine is plugged in. The session server above it speaks the part of
// SQL that all engines share, with a question mark for each parameter; what differs between engines
// stands behind these two classes: types and indexes of the schema, settings of a connection, locks
// and how long they are waited for. Texts are UTF-8. Failures are RunTimeErrors (kDatabaseError)
// with the engine's own message.
namespace server {

enum class FieldKind { kNull, kNumber, kText };

// One column of the current row. The text holds until the statement is stepped or reset.
struct Field {
  FieldKind kind = FieldKind::kNull;
  std::int64_t number = 0;
  std::string_view text;
};

// A prepared statement. Parameters are counted from 1, columns from 0.
class Statement {
 public:
  virtual ~Statement() = default;

  virtual void Bind(int parameter, std::int64_t number) = 0;
  virtual void Bind(int parameter, std::string_view text) = 0;
  virtual void BindNull(int parameter) = 0;
  // Runs up to the next row. False at the end of the rows; locks are given back by then.
  virtual bool Step() = 0;
  virtual Field Read(int column) = 0;
  // Ends the run and gives its locks back; the parameters stay bound.
  virtual void Reset() noexcept = 0;
};

class Engine {
 public:
  virtual ~Engine() = default;

  // Creates all tables, views, indexes and counters in an empty database, inside the caller's
  // writing transaction. What is created holds what SchemaTables.h lists.
  virtual void CreateSchema() = 0;

  // Whether a statement costs so much by itself, a journey through a network, that the rows of many
  // are better asked for at once.
  virtual bool ReadsAhead() const = 0;

  virtual std::unique_ptr<Statement> Prepare(std::string_view sql) = 0;
  // How many rows the last writing statement met, whether it changed their values or not.
  virtual std::int32_t RowsAffected() = 0;
  // A reading transaction turns into a writing one when something is written in it.
  virtual void BeginReading() = 0;
  virtual void BeginWriting() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() noexcept = 0;

  // Whether an error ended a writing transaction for the sake of somebody else's, who was faster:
  // done once more it may go through.
  virtual bool IsConflict(const data::RunTimeError&) const { return false; }
};

}  // namespace server
