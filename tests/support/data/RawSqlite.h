#pragma once

#include <sqlite3.h>

#include "tests/support/data/RawDatabase.h"

namespace test_support {

class RawSqlite final : public RawDatabase::Access {
 public:
  explicit RawSqlite(const std::filesystem::path& file);

  RawDatabase::RowTexts Rows(const std::string& sql) override;

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };

  std::unique_ptr<sqlite3, Closer> database_;
};

}  // namespace test_support
