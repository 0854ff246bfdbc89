#include "bench/Floor.h"

#include <sqlite3.h>

#include <cctype>
#include <chrono>
#include <stdexcept>

#include "data/Text.h"
#include "server/engines/sqlite/SqliteSettings.h"

namespace bench {
namespace {

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
}

void Execute(sqlite3* database, const char* sql) {
  Check(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), database);
}

struct Parameterised {
  std::string sql;
  std::vector<std::int64_t> identifiers;
};

// No table or column of the schema has a digit in its name.
Parameterised Parameterise(const std::string& text) {
  Parameterised result;
  for (std::size_t i = 0; i < text.size();) {
    if (std::isdigit(static_cast<unsigned char>(text[i])) == 0) {
      result.sql += text[i++];
      continue;
    }
    std::size_t length = 0;
    result.identifiers.push_back(std::stoll(text.substr(i), &length));
    result.sql += '?';
    i += length;
  }
  return result;
}

}  // namespace

Floor::Floor(const std::string& databaseFile, const std::vector<std::wstring>& statements) {
  Check(sqlite3_open_v2(databaseFile.c_str(), &database_, SQLITE_OPEN_READWRITE, nullptr),
        database_);
  // What the server's connection has, the floor has too, so that they differ in nothing but the
  // work.
  server::ApplySettings(database_);
  for (const std::wstring& statement : statements) {
    const std::string text = data::ToUtf8(statement);
    if (text.starts_with("SELECT") || text.starts_with("DELETE")) {
      Parameterised step = Parameterise(text);
      steps_.push_back({ShapeOf(step.sql), std::move(step.identifiers), {}});
    } else {
      steps_.push_back({nullptr, {}, text});
    }
    if (text != "BEGIN" && text != "COMMIT") ++statements_;
  }
}

void Floor::Execute(const std::string& sql) {
  bench::Execute(database_, sql.c_str());
}

Floor::~Floor() {
  for (const auto& [sql, shape] : shapes_) sqlite3_finalize(shape);
  sqlite3_close(database_);
}

sqlite3_stmt* Floor::ShapeOf(const std::string& text) {
  sqlite3_stmt*& shape = shapes_[text];
  if (shape == nullptr) {
    Check(
        sqlite3_prepare_v3(database_, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &shape, nullptr),
        database_);
  }
  return shape;
}

double Floor::Run() {
  rows_ = 0;
  textBytes_ = 0;
  const auto start = std::chrono::steady_clock::now();
  for (const Step& step : steps_) RunStep(step);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Floor::RunStep(const Step& step) {
  if (step.shape == nullptr) {
    Execute(step.plain);
    return;
  }
  for (std::size_t i = 0; i < step.identifiers.size(); ++i) {
    sqlite3_bind_int64(step.shape, static_cast<int>(i) + 1, step.identifiers[i]);
  }
  const int columns = sqlite3_column_count(step.shape);
  while (sqlite3_step(step.shape) == SQLITE_ROW) {
    ++rows_;
    for (int column = 0; column < columns; ++column) {
      if (sqlite3_column_type(step.shape, column) == SQLITE_INTEGER) {
        rows_ += sqlite3_column_int64(step.shape, column) == INT64_MIN ? 1U : 0U;
      } else if (sqlite3_column_text(step.shape, column) != nullptr) {
        textBytes_ += static_cast<std::uint64_t>(sqlite3_column_bytes(step.shape, column));
      }
    }
  }
  Check(sqlite3_reset(step.shape), database_);
}

}  // namespace bench
