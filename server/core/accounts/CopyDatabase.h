#pragma once

#include "server/core/accounts/PasswordCipher.h"
#include "server/core/sql/Engine.h"

namespace server {

// Copies all accounts, links, permissions, display texts and counters into a database that holds
// none, as they are at one moment. Passwords are encrypted again under the other key; one that
// cannot be read is copied as it stands and stays unreadable. Sessions are not copied: they belong
// to the data source that they were opened on.
void CopyDatabase(Engine& from, const PasswordCipher& fromPasswords, Engine& to,
                  const PasswordCipher& toPasswords);

}  // namespace server
