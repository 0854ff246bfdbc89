#pragma once

#include "com/RemoteObject.h"
#include "com/ResultSetKinds.h"
#include "data/SessionServer.h"

namespace com {

// The database connection of the session server.
class ComConnection final : public data::Connection {
 public:
  explicit ComConnection(RemoteObject object) : object_(std::move(object)) {}

  std::unique_ptr<data::ResultSet> OpenResultSet(std::wstring_view statement) override;
  std::int32_t Execute(std::wstring_view statement) override;
  void BeginRead() override;
  void EndRead() override;

 private:
  RemoteObject object_;
  ResultSetKinds kinds_;
};

}  // namespace com
