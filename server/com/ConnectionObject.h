#pragma once

#include <array>
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

 private:
  static const std::array<Member, 4> kMembers;

  void OpenResultSet(Arguments& arguments, VARIANT& answer);
  void Execute(Arguments& arguments, VARIANT& answer);
  void BeginRead(Arguments& arguments, VARIANT& answer);
  void EndRead(Arguments& arguments, VARIANT& answer);

  SessionServerObject& server_;  // holds a reference
  std::unique_ptr<data::Connection> connection_;
};

}  // namespace server::com
