#pragma once

#include <wrl/client.h>

#include <array>
#include <memory>

#include "data/SessionServer.h"
#include "server/com/DispatchObject.h"

namespace server::com {

// A result set as clients see it. It keeps the connection that it came from.
class ResultSetObject final : public DispatchObject {
 public:
  ResultSetObject(Microsoft::WRL::ComPtr<IDispatch> connection,
                  std::unique_ptr<data::ResultSet> rows);

 private:
  static const std::array<Member, 9> kMembers;

  void EndOfRows(Arguments& arguments, VARIANT& answer);
  void Column(Arguments& arguments, VARIANT& answer);
  void MoveNext(Arguments& arguments, VARIANT& answer);
  void MoveFirst(Arguments& arguments, VARIANT& answer);
  void AddNew(Arguments& arguments, VARIANT& answer);
  void Edit(Arguments& arguments, VARIANT& answer);
  void SetColumn(Arguments& arguments, VARIANT& answer);
  void Update(Arguments& arguments, VARIANT& answer);
  void Close(Arguments& arguments, VARIANT& answer);

  Microsoft::WRL::ComPtr<IDispatch> connection_;
  std::unique_ptr<data::ResultSet> rows_;  // goes before the connection
};

}  // namespace server::com
