#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/mGlobal.h"
#include "browser/rules/ProtectedAccounts.h"

namespace browser {

// The captions of the folders. Commands recognise folders by them, so builders and commands
// must use the same ones.
struct TreeCaptions {
  std::wstring memberOfCaption;
  std::wstring userPermissionsCaption;
  std::wstring allPermissionsCaption;
  std::wstring membersCaption;
  std::wstring groupPermissionsCaption;

  static TreeCaptions Load(const app::mGlobal& global);
};

// What the builders of the trees work with. All of it is the main window's and outlives them.
struct TreeContext {
  app::mGlobal& global;
  const TreeCaptions& captions;
  const ProtectedAccounts& accounts;
  // Told now and then while all accounts are read: how many are done, and of how many.
  std::function<void(int done, int total)> Progress;
};

}  // namespace browser
