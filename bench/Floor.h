#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// What the database alone costs: the same statements in the same order through the bare SQLite
// library, with one prepared statement for each statement shape, reading every column of every row.
class Floor {
 public:
  // statements as the program sends them; their identifiers become parameters. BEGIN, COMMIT and
  // whatever writes a text is run as it stands.
  Floor(const std::string& databaseFile, const std::vector<std::wstring>& statements);
  ~Floor();
  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

  // Runs them all once and returns the seconds that took.
  double Run();
  // Runs SQL that is not part of the measurement.
  void Execute(const std::string& sql);

  // Those of them that are the program's own.
  std::size_t Statements() const { return statements_; }
  std::size_t Shapes() const { return shapes_.size(); }
  // Of the last run.
  std::uint64_t Rows() const { return rows_; }
  std::uint64_t TextBytes() const { return textBytes_; }

 private:
  struct Step {
    sqlite3_stmt* shape;  // null for plain
    std::vector<std::int64_t> identifiers;
    std::string plain;
  };

  sqlite3_stmt* ShapeOf(const std::string& text);
  void RunStep(const Step& step);

  sqlite3* database_ = nullptr;
  std::unordered_map<std::string, sqlite3_stmt*> shapes_;
  std::vector<Step> steps_;
  std::size_t statements_ = 0;
  std::uint64_t rows_ = 0;
  std::uint64_t textBytes_ = 0;
};

}  // namespace bench
