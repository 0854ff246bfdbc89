#pragma once

#include "browser/lists/AccountLists.h"

namespace browser {

// A user's name and full name, which lead to him.
ListRow UserRow(const controls::TreeNodes& users, controls::NodeId user);

// A list of users without rows yet, and with the columns for their names alone. The numbers are
// those of texts: its title, and what is said where nobody is listed.
ListSource UserList(const ListContext& context, int title, int nothing);

// What a list says where something could not be read; empty where all was.
std::wstring IncompleteNotice(const ListContext& context);

}  // namespace browser
