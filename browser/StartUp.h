#pragma once

#include <cstdint>

#include "app/Reported.h"
#include "app/mGlobal.h"
#include "browser/rules/ProtectedAccounts.h"

namespace browser {

// What the start-up of the program does with the session server and the database, in this order:
// the session, its rights, the connection, and then the protected accounts.
class StartUp {
 public:
  // global outlives it; what is found is put there.
  explicit StartUp(app::mGlobal& global) : global_(global) {}

  // Opens the session of the command line and takes its database connection. False when its user
  // may not administer users, which he has been told. Errors are the caller's to report.
  bool AttachToSession();
  // An account that is missing keeps the identifier 0 and is not protected. One that could not be
  // looked up for an error, reported by then, is another matter: the answer is kFailed, and the
  // program does not go on without its protection.
  app::Outcome FindAccounts(ProtectedAccounts& accounts);

 private:
  bool OpenSession();
  void ShowRefusal();
  app::Outcome GetCurrentUser(ProtectedAccounts& accounts);
  app::Outcome GetAdminUser(ProtectedAccounts& accounts);
  app::Outcome GetAdministratorsAndEveryoneGroup(ProtectedAccounts& accounts);

  app::mGlobal& global_;
};

}  // namespace browser
