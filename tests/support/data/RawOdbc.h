#pragma once

#include "server/engines/odbc/OdbcConnection.h"
#include "tests/support/data/RawDatabase.h"

namespace test_support {

// A database behind an ODBC driver, on a connection of its own. Names of tables are sent as the
// schema spells them: some servers tell them apart by their case. || joins texts on all of them.
class RawOdbc final : public RawDatabase::Access {
 public:
  explicit RawOdbc(const server::OdbcTarget& target);

  RawDatabase::RowTexts Rows(const std::string& sql) override;

 private:
  RawDatabase::RowTexts Run(const std::string& statement);

  server::OdbcConnection connection_;
};

}  // namespace test_support
