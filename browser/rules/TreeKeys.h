#pragma once

#include "controls/TreeNodes.h"

// How the keys of both trees are made. A key names the node's type, the account that owns it and
// what it stands for: "\TGU \U12 \G5" is group 5 in the groups folder of user 12.
namespace browser {

inline constexpr controls::KeyForm kRootKey{L"\\TRT", L" ", false};

// The users tree.
inline constexpr controls::KeyForm kUserKey{L"\\TUS", L"\\U", true};
inline constexpr controls::KeyForm kMemberOfKey{L"\\TMO", L" \\G", false};
inline constexpr controls::KeyForm kUserGroupKey{L"\\TGU", L"", true};
inline constexpr controls::KeyForm kUserPermissionsKey{L"\\TUP", L" \\P", false};
inline constexpr controls::KeyForm kUserPermissionKey{L"\\TPU", L"", true};
inline constexpr controls::KeyForm kAllPermissionsKey{L"\\TAP", L" \\P", false};
inline constexpr controls::KeyForm kAnyPermissionKey{L"\\TPA", L"", true};

// The groups tree.
inline constexpr controls::KeyForm kGroupKey{L"\\TGR", L"\\G", true};
inline constexpr controls::KeyForm kMembersKey{L"\\TMS", L" \\U", false};
inline constexpr controls::KeyForm kGroupUserKey{L"\\TUG", L"", true};
inline constexpr controls::KeyForm kGroupPermissionsKey{L"\\TGP", L" \\P", false};
inline constexpr controls::KeyForm kGroupPermissionKey{L"\\TPG", L"", true};

}  // namespace browser
