#pragma once

#include <wrl/client.h>

#include <memory>

#include "data/SessionServer.h"
#include "server/com/DispatchObject.h"

namespace server::com {

// A result set as clients see it. It keeps the connection that it came from.
class ResultSetObject final : public DispatchObject {
 public:
  ResultSetObject(Microsoft::WRL::ComPtr<IDispatch> connection,
                  std::unique_ptr<data::ResultSet> rows);

 protected:
  void Run(DISPID id, Arguments& arguments, VARIANT& answer) override;

 private:
  void SetColumn(Arguments& arguments);

  Microsoft::WRL::ComPtr<IDispatch> connection_;
  std::unique_ptr<data::ResultSet> rows_;  // goes before the connection
};

}  // namespace server::com
