#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/mGlobal.h"
#include "controls/TreeView.h"

namespace dialogs {

// What the main window and its dialogs tell each other: the window owns it, a dialog borrows it and
// so needs to know nothing of the window.
struct Exchange {
  app::mGlobal& global;
  // The trees on screen, against which names are checked for being taken.
  const controls::TreeView& usersTree;
  const controls::TreeView& groupsTree;
  // The user "Admin"; 0 when there is none, and then nobody is protected.
  std::int32_t adminUserId = 0;

  // Asked before an edited account is saved, with all that it will have, and before a group loses
  // all its members: whoever is asked may put a question to the user. False keeps the dialog open
  // and everything as it was. Where nobody is to be asked they are not set.
  using Ids = std::vector<std::int32_t>;
  std::function<bool(std::int32_t user, const Ids& groups, const Ids& permissions)> MaySaveUser =
      {};
  std::function<bool(std::int32_t group, const Ids& members, const Ids& permissions)> MaySaveGroup =
      {};
  std::function<bool(std::int32_t group)> MayRemoveMembers = {};

  // True only after a dialog has written all that it had to write.
  bool AddNode = false;
  // Set when the account being edited had no row any more at the moment of writing, because
  // somebody else was faster.
  bool accountGone = false;
  // How many links a dialog that assigns them has added.
  int linksAdded = 0;
  // All members of the group were taken out of it.
  bool membersRemoved = false;
  // The account concerned, -1 for none, and the text of its node.
  std::int32_t UserID = -1;
  std::wstring UserName = {};
  std::int32_t GroupID = -1;
  std::wstring GroupName = {};
  // The account's name as an edit dialog has written it, without full name or description.
  std::wstring StoredName = {};
};

}  // namespace dialogs
