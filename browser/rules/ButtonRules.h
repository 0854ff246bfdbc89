#pragma once

#include <string_view>

#include "browser/rules/Account.h"
#include "browser/rules/WhyOff.h"

namespace browser {

// Which command buttons of its tab a node switches off by its type, and why; protection may switch
// off more of them. "First links" are a user's groups and a group's members, "second links" the
// permissions of either. In the text of a link's button, %1 stands for the caption of its section.
struct ButtonRule {
  WhyOff edit;
  WhyOff remove;
  WhyOff create;
  WhyOff assignFirst;
  WhyOff removeFirst;
  WhyOff assignSecond;
  WhyOff removeSecond;
};

// The rule of a node's tag; without a known tag that of a root. As long as nobody can say which
// names are taken (namesKnown is false) accounts are neither edited nor made.
ButtonRule ButtonRuleOf(Tab tab, std::wstring_view tag, bool namesKnown);

// Commands that have no button and are on for accounts, or permissions, alone.
WhyOff WhyNoUser(bool isUser);
WhyOff WhyNoGroup(bool isGroup);
WhyOff WhyNoPermission(bool isPermission);

}  // namespace browser
