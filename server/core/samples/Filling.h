#pragma once

#include "server/core/accounts/PasswordCipher.h"
#include "server/core/sql/Engine.h"

namespace server {

// Whether a database holds no account, not even a deleted one.
bool IsEmptyDatabase(Engine& engine);

// Fills an empty database with the sample company of SampleData.h.
void FillSample(Engine& engine, const PasswordCipher& passwords);

struct GeneratedSize {
  int users = 1000;  // "Admin" is one of them
  int groups = 200;  // "Administrators" and "Everyone" are two of them; at least these two
  int permissions = 200;
};

// Fills an empty database with made-up accounts, the same ones for the same size: each user in five
// groups, "Everyone" among them, and with five permissions of his own, each group with twenty;
// fewer where there are not as many. "Admin" alone has a password, that of the sample.
void FillGenerated(Engine& engine, const PasswordCipher& passwords, const GeneratedSize& size);

}  // namespace server
