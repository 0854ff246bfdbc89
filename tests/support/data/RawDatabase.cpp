#include "tests/support/data/RawDatabase.h"

#include "tests/support/data/RawOdbc.h"
#include "tests/support/data/RawSqlite.h"

namespace test_support {
namespace {

std::unique_ptr<RawDatabase::Access> AccessTo(const server::DataSource& source) {
  if (!source.odbc) return std::make_unique<RawSqlite>(source.database);
  server::OdbcTarget target;
  target.connectionString = source.odbc->connectionString;
  target.user = source.odbc->user;
  target.password = server::ReadDatabasePassword(source);
  return std::make_unique<RawOdbc>(target);
}

}  // namespace

RawDatabase::RawDatabase(const std::filesystem::path& file)
    : access_(std::make_unique<RawSqlite>(file)) {}

RawDatabase::RawDatabase(const server::DataSource& source) : access_(AccessTo(source)) {}

RawDatabase::~RawDatabase() = default;
RawDatabase::RawDatabase(RawDatabase&&) noexcept = default;

void RawDatabase::Execute(const std::string& sql) {
  access_->Rows(sql);
}

RawDatabase::RowTexts RawDatabase::Rows(const std::string& sql) {
  return access_->Rows(sql);
}

std::string RawDatabase::Text(const std::string& sql) {
  return Rows(sql).at(0).at(0);
}

std::int64_t RawDatabase::Number(const std::string& sql) {
  return std::stoll(Text(sql));
}

}  // namespace test_support
