// The session server's statement guard: whatever it is given, it refuses it as a database error or
// makes a statement of it that the database understands, that is one statement, and that holds none
// of the texts that came with it.

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

#include "data/RunTimeError.h"
#include "fuzz/Input.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"
#include "server/core/sql/StatementGuard.h"
#include "server/engines/sqlite/SqliteEngine.h"

namespace {

// A database to prepare statements on; nothing is ever run.
server::Engine& Database() {
  static const auto engine = [] {
    const auto file = std::filesystem::temp_directory_path() /
                      ("uadmin-fuzz-" + std::to_string(getpid()) + ".db");
    std::filesystem::remove(file);
    auto created = std::make_unique<server::SqliteEngine>(file, server::SqliteEngine::Mode::kCreate,
                                                          std::chrono::seconds(5));
    server::WriteTransaction transaction(*created);
    created->CreateSchema();
    transaction.Commit();
    std::filesystem::remove(file);
    return created;
  }();
  return *engine;
}

// What the guard makes of a statement; nothing where it refuses it.
std::optional<server::StatementPlan> Understood(const server::StatementShape& shape) {
  try {
    server::StatementPlan plan = server::UnderstandStatement(shape);
    server::CheckLiterals(plan, shape.Literals());
    return plan;
  } catch (const data::RunTimeError& error) {
    fuzz::Require(error.Number() == server::kDatabaseError, "a refusal is a database error");
    return std::nullopt;
  }
}

void CheckSql(const std::string& sql, std::size_t literals) {
  fuzz::Require(sql.find_first_of(";'\"#$!") == std::string::npos, "no sign of another statement");
  fuzz::Require(sql.find("--") == std::string::npos, "no comment");
  const auto marks = static_cast<std::size_t>(std::count(sql.begin(), sql.end(), '?'));
  fuzz::Require(marks == literals, "a parameter for each literal");
  Database().Prepare(sql);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  const std::wstring statement = fuzz::Wide(fuzz::Bytes(start, size));
  server::StatementShape shape;
  shape.Read(statement);
  const auto plan = Understood(shape);
  if (!plan) return 0;
  fuzz::Require(shape.Fault().empty(), "what has a fault is refused");
  CheckSql(plan->sql, shape.Literals().size());
  if (plan->many) CheckSql(plan->many->before + "?, ?" + plan->many->after, 2);
  return 0;
}
