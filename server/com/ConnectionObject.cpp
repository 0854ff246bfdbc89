#include "server/com/ConnectionObject.h"

#include <utility>

#include "server/com/Answer.h"
#include "server/com/Identity.h"
#include "server/com/ResultSetObject.h"
#include "server/com/SessionServerObject.h"

using Microsoft::WRL::ComPtr;

namespace server::com {
namespace {

enum ConnectionDispId : DISPID { kOpenResultSet = 1, kExecute, kBeginRead, kEndRead };

constexpr Member kMembers[] = {
    {L"OpenResultSet", 1},
    {L"Execute", 1},
    {L"BeginRead", 0},
    {L"EndRead", 0},
};

}  // namespace

ConnectionObject::ConnectionObject(SessionServerObject& server,
                                   std::unique_ptr<data::Connection> connection)
    : DispatchObject(kConnectionId, kMembers), server_(server), connection_(std::move(connection)) {
  server_.AddRef();
}

// The connection must be gone before the last reference to its server may go.
ConnectionObject::~ConnectionObject() {
  server_.Forget(*this);
  connection_.reset();
  server_.Release();
}

void ConnectionObject::Run(DISPID id, Arguments& arguments, VARIANT& answer) {
  switch (id) {
    case kOpenResultSet:
      return OpenResultSet(arguments, answer);
    case kExecute:
      return Put(answer, connection_->Execute(arguments.Text(0)));
    case kBeginRead:
      return connection_->BeginRead();
    case kEndRead:
      return connection_->EndRead();
  }
}

void ConnectionObject::OpenResultSet(Arguments& arguments, VARIANT& answer) {
  auto rows = std::make_unique<ResultSetObject>(ComPtr<IDispatch>(this),
                                                connection_->OpenResultSet(arguments.Text(0)));
  Put(answer, rows.release());
}

}  // namespace server::com
