#include "server/com/SessionServerObject.h"

#include <string>
#include <utility>

#include "data/Wipe.h"
#include "server/com/Answer.h"
#include "server/com/ConnectionObject.h"
#include "server/com/Identity.h"

namespace server::com {

const std::array<Member, 11> SessionServerObject::kMembers = {{
    {L"ReadCommandLine", 1, 3, Handle<SessionServerObject, &SessionServerObject::ReadCommandLine>},
    {L"OpenSession", 2, 2, Handle<SessionServerObject, &SessionServerObject::OpenSession>},
    {L"GetRights", 3, 0, Handle<SessionServerObject, &SessionServerObject::GetRights>},
    {L"SetMode", 4, 1, Handle<SessionServerObject, &SessionServerObject::SetMode>},
    {L"GetSessionUserText", 5, 0,
     Handle<SessionServerObject, &SessionServerObject::GetSessionUserText>},
    {L"DatabaseConnection", 6, 0,
     Handle<SessionServerObject, &SessionServerObject::DatabaseConnection>},
    {L"NewIdentifier", 7, 1, Handle<SessionServerObject, &SessionServerObject::NewIdentifier>},
    {L"EncryptPassword", 8, 2, Handle<SessionServerObject, &SessionServerObject::EncryptPassword>},
    {L"DecryptPassword", 9, 2, Handle<SessionServerObject, &SessionServerObject::DecryptPassword>},
    {L"GetDisplayName", 10, 2, Handle<SessionServerObject, &SessionServerObject::GetDisplayName>},
    {L"ShowAbout", 11, 3, Handle<SessionServerObject, &SessionServerObject::ShowAbout>},
}};

SessionServerObject::SessionServerObject(std::unique_ptr<data::SessionServer> server)
    : DispatchObject(kSessionServerId, kMembers), server_(std::move(server)) {}

void SessionServerObject::ReadCommandLine(Arguments& arguments, VARIANT&) {
  std::wstring sessionText;
  std::int32_t sessionId = 0;
  server_->ReadCommandLine(arguments.Text(0), sessionText, sessionId);
  arguments.PutText(1, sessionText);
  arguments.PutInteger(2, sessionId);
}

void SessionServerObject::OpenSession(Arguments& arguments, VARIANT&) {
  server_->OpenSession(arguments.Text(0), arguments.Integer(1));
}

void SessionServerObject::GetRights(Arguments&, VARIANT& answer) {
  Put(answer, server_->GetRights());
}

void SessionServerObject::SetMode(Arguments& arguments, VARIANT&) {
  server_->SetMode(arguments.Integer(0));
}

void SessionServerObject::GetSessionUserText(Arguments&, VARIANT& answer) {
  Put(answer, server_->GetSessionUserText());
}

void SessionServerObject::DatabaseConnection(Arguments&, VARIANT& answer) {
  if (connection_ == nullptr) {
    auto created = std::make_unique<ConnectionObject>(*this, server_->DatabaseConnection());
    connection_ = created.release();
  } else {
    connection_->AddRef();
  }
  Put(answer, connection_);
}

void SessionServerObject::Forget(const ConnectionObject& connection) {
  if (connection_ == &connection) connection_ = nullptr;
}

void SessionServerObject::NewIdentifier(Arguments& arguments, VARIANT& answer) {
  Put(answer, server_->NewIdentifier(arguments.Text(0)));
}

void SessionServerObject::EncryptPassword(Arguments& arguments, VARIANT& answer) {
  Put(answer, server_->EncryptPassword(arguments.Text(0), arguments.Integer(1)));
}

void SessionServerObject::DecryptPassword(Arguments& arguments, VARIANT& answer) {
  std::wstring plain = server_->DecryptPassword(arguments.Text(0), arguments.Integer(1));
  Put(answer, plain);
  data::Wipe(plain);
}

void SessionServerObject::GetDisplayName(Arguments& arguments, VARIANT& answer) {
  Put(answer, server_->GetDisplayName(arguments.Text(0), arguments.Integer(1)));
}

void SessionServerObject::ShowAbout(Arguments& arguments, VARIANT&) {
  server_->ShowAbout(arguments.Text(0), arguments.Integer(1), arguments.Integer(2));
}

}  // namespace server::com
