#pragma once

#include <cstdint>
#include <string_view>

#include "browser/rules/ProtectedAccounts.h"
#include "browser/rules/WhyOff.h"

// What the administrator is kept from doing to the four protected accounts: the user "Admin", the
// user he works as, and the groups "Administrators" and "Everyone".
namespace browser {

struct UserProtection {
  WhyOff account;              // the user may not be deleted
  WhyOff membership;           // he may not be taken out of the group
  bool administrator = false;  // nor out of "Administrators", which is for the dialog to see to
};

// groupId is the group of the selected membership, 0 when none is selected.
UserProtection ProtectUser(const ProtectedAccounts& accounts, std::int32_t userId,
                           std::int32_t groupId);

struct GroupProtection {
  WhyOff account;      // the group may not be deleted
  WhyOff member;       // the selected member may not be taken out
  WhyOff permissions;  // permissions are neither granted nor withdrawn
  bool admin = false;  // "Admin" may not be taken out, which is for the dialog to see to
};

// text is that of the selected node.
GroupProtection ProtectGroup(const ProtectedAccounts& accounts, std::int32_t groupId,
                             std::wstring_view text);

// Whether a user may be taken out of a group. By the identifiers: the rule of the button goes by
// the text that a node shows, and so leaves it on where "Admin" is shown with his full name.
enum class MemberRemoval {
  kAllowed,
  kRefused,  // the button is off
  kTold,     // the button is on, and the administrator is told that it cannot be
};
MemberRemoval ProtectMember(const ProtectedAccounts& accounts, std::int32_t groupId,
                            std::int32_t userId);

}  // namespace browser
