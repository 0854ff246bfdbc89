#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace program {

// A database file, reached past the session server: what the program shows is compared with what
// stands there, and what somebody else does meanwhile is done here.
class Database {
 public:
  // nullopt stands for null.
  using Row = std::vector<std::optional<std::wstring>>;

  explicit Database(const std::filesystem::path& file);

  // Runs statements; throws a driver::Failure with the database's message when one fails.
  void Run(const std::wstring& statements);
  // Runs one statement with its question marks replaced by texts.
  void Run(const std::wstring& statement, const Row& values);
  std::vector<Row> Rows(const std::wstring& statement);
  // The rows as lines of UTF-8, their columns joined by a bar, to be compared and printed.
  std::vector<std::string> Lines(const std::wstring& statement);
  // The first column of the first row.
  std::wstring Text(const std::wstring& statement);
  int Number(const std::wstring& statement);

  // Everything in all tables, to see whether something was written.
  std::wstring Contents();

 private:
  struct Closer {
    void operator()(sqlite3* database) const;
  };

  std::unique_ptr<sqlite3, Closer> database_;
};

// The bytes of a file.
std::string FileBytes(const std::filesystem::path& file);

}  // namespace program
