#include "server/com/SessionServerObject.h"

#include <string>
#include <utility>

#include "server/com/Answer.h"
#include "server/com/ConnectionObject.h"
#include "server/com/Identity.h"

namespace server::com {
namespace {

enum SessionServerDispId : DISPID {
  kReadCommandLine = 1,
  kOpenSession,
  kGetRights,
  kSetMode,
  kGetSessionUserText,
  kDatabaseConnection,
  kNewIdentifier,
  kEncryptPassword,
  kDecryptPassword,
  kGetDisplayName,
  kShowAbout,
};

constexpr Member kMembers[] = {
    {L"ReadCommandLine", 3}, {L"OpenSession", 2},        {L"GetRights", 0},
    {L"SetMode", 1},         {L"GetSessionUserText", 0}, {L"DatabaseConnection", 0},
    {L"NewIdentifier", 1},   {L"EncryptPassword", 2},    {L"DecryptPassword", 2},
    {L"GetDisplayName", 2},  {L"ShowAbout", 3},
};

}  // namespace

SessionServerObject::SessionServerObject(std::unique_ptr<data::SessionServer> server)
    : DispatchObject(kSessionServerId, kMembers), server_(std::move(server)) {}

void SessionServerObject::Run(DISPID id, Arguments& arguments, VARIANT& answer) {
  switch (id) {
    case kReadCommandLine:
      return ReadCommandLine(arguments);
    case kOpenSession:
      return server_->OpenSession(arguments.Text(0), arguments.Integer(1));
    case kGetRights:
      return Put(answer, server_->GetRights());
    case kSetMode:
      return server_->SetMode(arguments.Integer(0));
    case kGetSessionUserText:
      return Put(answer, server_->GetSessionUserText());
    case kDatabaseConnection:
      return DatabaseConnection(answer);
    case kNewIdentifier:
      return Put(answer, server_->NewIdentifier(arguments.Text(0)));
    case kEncryptPassword:
      return Put(answer, server_->EncryptPassword(arguments.Text(0), arguments.Integer(1)));
    case kDecryptPassword:
      return DecryptPassword(arguments, answer);
    case kGetDisplayName:
      return Put(answer, server_->GetDisplayName(arguments.Text(0), arguments.Integer(1)));
    case kShowAbout:
      return server_->ShowAbout(arguments.Text(0), arguments.Integer(1), arguments.Integer(2));
  }
}

void SessionServerObject::ReadCommandLine(Arguments& arguments) {
  std::wstring sessionText;
  std::int32_t sessionId = 0;
  server_->ReadCommandLine(arguments.Text(0), sessionText, sessionId);
  arguments.PutText(1, sessionText);
  arguments.PutInteger(2, sessionId);
}

void SessionServerObject::DatabaseConnection(VARIANT& answer) {
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

void SessionServerObject::DecryptPassword(Arguments& arguments, VARIANT& answer) {
  std::wstring plain = server_->DecryptPassword(arguments.Text(0), arguments.Integer(1));
  Put(answer, plain);
  SecureZeroMemory(plain.data(), plain.size() * sizeof(wchar_t));
}

}  // namespace server::com
