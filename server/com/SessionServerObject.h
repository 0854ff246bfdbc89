#pragma once

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

 protected:
  void Run(DISPID id, Arguments& arguments, VARIANT& answer) override;

 private:
  void ReadCommandLine(Arguments& arguments);
  void DatabaseConnection(VARIANT& answer);
  void DecryptPassword(Arguments& arguments, VARIANT& answer);

  std::unique_ptr<data::SessionServer> server_;
  ConnectionObject* connection_ = nullptr;  // while one lives: all clients share it
};

}  // namespace server::com
