#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "server/core/sessions/DataSource.h"

namespace test_support {

// A database as its bare library or driver sees it: any SQL goes, nothing of the server is in
// between. Failures are std::runtime_errors. Where the database is behind a driver, a statement
// that begins with "pragma" is left out: such statements set up SQLite alone.
class RawDatabase {
 public:
  using RowTexts = std::vector<std::vector<std::string>>;

  // A database file.
  explicit RawDatabase(const std::filesystem::path& file);
  // The database of a data source.
  explicit RawDatabase(const server::DataSource& source);
  ~RawDatabase();
  RawDatabase(RawDatabase&&) noexcept;

  // Statements are separated by semicolons.
  void Execute(const std::string& sql);
  // All rows, each column as text; a null reads "NULL".
  RowTexts Rows(const std::string& sql);
  // The first column of the first row.
  std::string Text(const std::string& sql);
  std::int64_t Number(const std::string& sql);

  // One of the two kinds of database.
  class Access {
   public:
    virtual ~Access() = default;
    virtual RowTexts Rows(const std::string& sql) = 0;
  };

 private:
  std::unique_ptr<Access> access_;
};

}  // namespace test_support
