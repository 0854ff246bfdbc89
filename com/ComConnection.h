#pragma once

#include "com/LateBound.h"
#include "com/ResultSetKinds.h"
#include "data/SessionServer.h"

namespace com {

// The database connection of the session server.
class ComConnection final : public data::Connection {
 public:
  ComConnection(Microsoft::WRL::ComPtr<IDispatch> object, std::shared_ptr<ServerFate> fate);

  std::unique_ptr<data::ResultSet> OpenResultSet(std::wstring_view statement) override;
  std::int32_t Execute(std::wstring_view statement) override;
  void BeginRead() override;
  void EndRead() override;

 private:
  LateBound object_;
  ResultSetKinds kinds_;
};

}  // namespace com
