#include "server/com/ConnectionObject.h"

#include <utility>

#include "server/com/Answer.h"
#include "server/com/Identity.h"
#include "server/com/ResultSetObject.h"
#include "server/com/SessionServerObject.h"

using Microsoft::WRL::ComPtr;

namespace server::com {

const std::array<Member, 4> ConnectionObject::kMembers = {{
    {L"OpenResultSet", 1, 1, Handle<ConnectionObject, &ConnectionObject::OpenResultSet>},
    {L"Execute", 2, 1, Handle<ConnectionObject, &ConnectionObject::Execute>},
    {L"BeginRead", 3, 0, Handle<ConnectionObject, &ConnectionObject::BeginRead>},
    {L"EndRead", 4, 0, Handle<ConnectionObject, &ConnectionObject::EndRead>},
}};

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

void ConnectionObject::OpenResultSet(Arguments& arguments, VARIANT& answer) {
  auto rows = std::make_unique<ResultSetObject>(ComPtr<IDispatch>(this),
                                                connection_->OpenResultSet(arguments.Text(0)));
  Put(answer, rows.release());
}

void ConnectionObject::Execute(Arguments& arguments, VARIANT& answer) {
  Put(answer, connection_->Execute(arguments.Text(0)));
}

void ConnectionObject::BeginRead(Arguments&, VARIANT&) {
  connection_->BeginRead();
}

void ConnectionObject::EndRead(Arguments&, VARIANT&) {
  connection_->EndRead();
}

}  // namespace server::com
