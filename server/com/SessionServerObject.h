#pragma once

#include <array>
#include <memory>

#include "data/SessionServer.h"
#include "server/com/DispatchObject.h"

namespace server::com {

class ConnectionObject;

// The session server as clients see it.
class SessionServerObject final : public DispatchObject {
 public:
  explicit SessionServerObject(std::unique_ptr<data::SessionServer> server);

  // The connection ends; the next one asked for is a new one.
  void Forget(const ConnectionObject& connection);

 private:
  static const std::array<Member, 11> kMembers;

  void ReadCommandLine(Arguments& arguments, VARIANT& answer);
  void OpenSession(Arguments& arguments, VARIANT& answer);
  void GetRights(Arguments& arguments, VARIANT& answer);
  void SetMode(Arguments& arguments, VARIANT& answer);
  void GetSessionUserText(Arguments& arguments, VARIANT& answer);
  void DatabaseConnection(Arguments& arguments, VARIANT& answer);
  void NewIdentifier(Arguments& arguments, VARIANT& answer);
  void EncryptPassword(Arguments& arguments, VARIANT& answer);
  void DecryptPassword(Arguments& arguments, VARIANT& answer);
  void GetDisplayName(Arguments& arguments, VARIANT& answer);
  void ShowAbout(Arguments& arguments, VARIANT& answer);

  std::unique_ptr<data::SessionServer> server_;
  ConnectionObject* connection_ = nullptr;  // while one lives: all clients share it
};

}  // namespace server::com
