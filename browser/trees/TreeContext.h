#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/mGlobal.h"
#include "browser/rules/ProtectedAccounts.h"
#include "data/ExitStatus.h"

namespace browser {

// The captions of roots and folders. Commands recognise folders by them, so builders and commands
// must use the same ones.
struct TreeCaptions {
  std::wstring usersRoot;
  std::wstring groupsRoot;
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

// Which part of an account a builder is to fill: the whole of it, or one of its folders.
enum Section : int {
  kWholeAccount = 0,
  kFirstFolder = 21,   // groups of a user, members of a group
  kSecondFolder = 22,  // own permissions of a user, permissions of a group
  kThirdFolder = 23,   // all permissions of a user
};

}  // namespace browser
