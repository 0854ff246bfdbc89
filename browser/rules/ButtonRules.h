#pragma once

#include <string_view>

namespace browser {

// Which command buttons of its tab a node switches on by its type; protection may switch some of
// them off again. "First links" are a user's groups and a group's members, "second links" the
// permissions of either.
struct ButtonRule {
  bool account;  // Edit and Delete; New is always on
  bool assignFirst;
  bool removeFirst;
  bool assignSecond;
  bool removeSecond;
};

// The rule of a node's tag; without a known tag that of a root.
ButtonRule ButtonRuleOf(std::wstring_view tag);

}  // namespace browser
