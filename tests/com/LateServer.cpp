#include "LateServer.h"

#include "com/SessionServerAdapter.h"

using Microsoft::WRL::ComPtr;

namespace com_test {

std::unique_ptr<data::SessionServer> Adapt(IDispatch* server, ::com::CallObserver* observer) {
  const ::com::ServerTexts texts{L"not registered",
                                 L"file missing",
                                 L"wrong bitness",
                                 kLost,
                                 kNoMember,
                                 L"for the user only",
                                 kBusy};
  auto state = std::make_shared<::com::ServerState>(texts, observer);
  if (server != nullptr) server->AddRef();
  return std::make_unique<::com::SessionServerAdapter>(
      ::com::RemoteObject(server, std::move(state)));
}

std::unique_ptr<data::Connection> AdaptConnection(IDispatch* connection) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"DatabaseConnection", ObjectValue(connection));
  return Adapt(server.Get())->DatabaseConnection();
}

std::unique_ptr<data::ResultSet> AdaptResultSet(IDispatch* resultSet) {
  const ComPtr<FakeObject> connection = FakeObject::Make();
  connection->Gives(L"OpenResultSet", ObjectValue(resultSet));
  return AdaptConnection(connection.Get())->OpenResultSet(L"SELECT");
}

data::RunTimeError ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const data::RunTimeError& error) {
    return error;
  }
  return data::RunTimeError(0);
}

}  // namespace com_test
