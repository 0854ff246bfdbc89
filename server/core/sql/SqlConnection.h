#pragma once

#include <memory>

#include "data/SessionServer.h"
#include "server/core/sql/Database.h"

namespace server {

class SqlConnection final : public data::Connection {
 public:
  explicit SqlConnection(std::shared_ptr<Database> database);
  // Ends the reads that were begun on this connection and not ended.
  ~SqlConnection() override;

  std::unique_ptr<data::ResultSet> OpenResultSet(std::wstring_view statement) override;
  std::int32_t Execute(std::wstring_view statement) override;
  void BeginRead() override;
  void EndRead() override;

 private:
  std::shared_ptr<Database> database_;
  int reads_ = 0;
};

}  // namespace server
