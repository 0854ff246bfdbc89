#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace test_support {

// A database file as the bare library sees it: any SQL goes, nothing of the server is in between.
// Failures are std::runtime_errors.
class RawDatabase {
 public:
  explicit RawDatabase(const std::filesystem::path& file);

  void Execute(const std::string& sql);
  // All rows, each column as text; a null reads "NULL".
  std::vector<std::vector<std::string>> Rows(const std::string& sql);
  // The first column of the first row.
  std::string Text(const std::string& sql);
  std::int64_t Number(const std::string& sql);

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };

  std::unique_ptr<sqlite3, Closer> database_;
};

}  // namespace test_support
