#pragma once

#include <memory>

#include "data/SessionServer.h"
#include "server/com/DispatchObject.h"

namespace server::com {

class SessionServerObject;

// The session's database as clients see it. It keeps the session server that it came from, which
// in turn knows it only while it lives.
class ConnectionObject final : public DispatchObject {
 public:
  ConnectionObject(SessionServerObject& server, std::unique_ptr<data::Connection> connection);
  ~ConnectionObject() override;

 protected:
  void Run(DISPID id, Arguments& arguments, VARIANT& answer) override;

 private:
  void OpenResultSet(Arguments& arguments, VARIANT& answer);

  SessionServerObject& server_;  // holds a reference
  std::unique_ptr<data::Connection> connection_;
};

}  // namespace server::com
