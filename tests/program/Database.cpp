#include "tests/program/Database.h"

#include <sqlite3.h>

#include <fstream>
#include <iterator>

#include "data/Text.h"
#include "tests/program/driver/Failure.h"

namespace program {
namespace {

constexpr int kBusyTimeout = 10000;

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

[[noreturn]] void Fail(sqlite3* database) {
  throw driver::Failure(std::string("the test's own SQL: ") + sqlite3_errmsg(database));
}

Statement Prepare(sqlite3* database, const std::wstring& text) {
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(database, data::ToUtf8(text).c_str(), -1, &raw, nullptr) != SQLITE_OK) {
    Fail(database);
  }
  return Statement(raw);
}

std::optional<std::wstring> Column(sqlite3_stmt* statement, int column) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  if (text == nullptr) return std::nullopt;
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
  return data::FromUtf8({text, size});
}

std::vector<Database::Row> Step(sqlite3* database, sqlite3_stmt* statement) {
  std::vector<Database::Row> rows;
  int result = SQLITE_ROW;
  while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
    Database::Row& row = rows.emplace_back();
    const int columns = sqlite3_column_count(statement);
    for (int column = 0; column < columns; ++column) row.push_back(Column(statement, column));
  }
  if (result != SQLITE_DONE) Fail(database);
  return rows;
}

}  // namespace

void Database::Closer::operator()(sqlite3* database) const {
  sqlite3_close(database);
}

Database::Database(const std::filesystem::path& file) {
  sqlite3* raw = nullptr;
  const std::string name = data::ToUtf8(file.wstring());
  const int result = sqlite3_open_v2(name.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  database_.reset(raw);
  if (result != SQLITE_OK) Fail(raw);
  sqlite3_busy_timeout(raw, kBusyTimeout);
}

void Database::Run(const std::wstring& statements) {
  const std::string text = data::ToUtf8(statements);
  if (sqlite3_exec(database_.get(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    Fail(database_.get());
  }
}

void Database::Run(const std::wstring& statement, const Row& values) {
  const Statement prepared = Prepare(database_.get(), statement);
  int position = 0;
  for (const auto& value : values) {
    ++position;
    if (!value) continue;  // what is not bound is null
    const std::string text = data::ToUtf8(*value);
    sqlite3_bind_text(prepared.get(), position, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
  }
  Step(database_.get(), prepared.get());
}

std::vector<Database::Row> Database::Rows(const std::wstring& statement) {
  return Step(database_.get(), Prepare(database_.get(), statement).get());
}

std::vector<std::string> Database::Lines(const std::wstring& statement) {
  std::vector<std::string> lines;
  for (const Row& row : Rows(statement)) {
    std::wstring line;
    for (const auto& value : row) line += (line.empty() ? L"" : L"|") + value.value_or(L"(null)");
    lines.push_back(data::ToUtf8(line));
  }
  return lines;
}

std::wstring Database::Text(const std::wstring& statement) {
  const std::vector<Row> rows = Rows(statement);
  if (rows.empty()) throw driver::Failure("no row for " + data::ToUtf8(statement));
  return rows.front().front().value_or(L"");
}

int Database::Number(const std::wstring& statement) {
  return std::stoi(Text(statement));
}

std::wstring Database::Contents() {
  std::wstring contents;
  for (const Row& table : Rows(L"SELECT NAME FROM SQLITE_MASTER WHERE TYPE = 'table' ORDER BY 1")) {
    contents += L"\n" + *table[0] + L"\n";
    for (const Row& row : Rows(L"SELECT * FROM " + *table[0] + L" ORDER BY 1, 2")) {
      for (const auto& value : row) contents += value ? L"|" + *value : L"|(null)";
      contents += L"\n";
    }
  }
  return contents;
}

std::string FileBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace program
