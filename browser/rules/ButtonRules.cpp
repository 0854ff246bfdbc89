#include "browser/rules/ButtonRules.h"

#include <initializer_list>

#include "app/StringIds.h"

namespace browser {
namespace {

// What is said where the wrong thing is selected.
struct Advice {
  WhyOff account;
  WhyOff folder;
  WhyOff firstLink;
  WhyOff secondLink;
};

constexpr Advice kForUsers{{app::kSelectUser},
                           {app::kSelectUserOrFolder},
                           {app::kSelectToRemoveGroup, app::kInMemberOf},
                           {app::kSelectToRemovePermission, app::kInUserPermissions}};
constexpr Advice kForGroups{{app::kSelectGroup},
                            {app::kSelectGroupOrFolder},
                            {app::kSelectMember},
                            {app::kSelectToRemovePermission, app::kInGroupPermissions}};

}  // namespace

ButtonRule ButtonRuleOf(Tab tab, std::wstring_view tag, bool namesKnown) {
  const auto is = [tag](std::initializer_list<std::wstring_view> tags) {
    for (const std::wstring_view each : tags) {
      if (tag == each) return true;
    }
    return false;
  };
  const bool isAccount = is({L"US", L"GR"});
  const bool isFirst = is({L"MO", L"MS"});
  const bool isFirstLeaf = is({L"GU", L"UG"});
  const bool isSecond = is({L"UP", L"GP"});
  const bool isSecondLeaf = is({L"PU", L"PG"});
  const bool isAll = is({L"AP", L"PA"});
  const bool isNone =
      !isAccount && !isFirst && !isFirstLeaf && !isSecond && !isSecondLeaf && !isAll;

  const Advice& advice = tab == kUsersTab ? kForUsers : kForGroups;
  const auto unless = [](bool on, const WhyOff& why) { return on ? WhyOff{} : why; };
  const WhyOff names = unless(namesKnown, {app::kAccountsIncomplete});
  const WhyOff account = unless(!isNone, advice.account);
  const WhyOff folder = isNone ? advice.account : advice.folder;
  return {.edit = account ? account : names,
          .remove = account,
          .create = names,
          .assignFirst = unless(isAccount || isFirst || isFirstLeaf, folder),
          .removeFirst = unless(isFirstLeaf, advice.firstLink),
          .assignSecond = unless(isAccount || isSecond || isSecondLeaf, folder),
          .removeSecond =
              unless(isSecondLeaf, isAll ? WhyOff{app::kDerivedPermissions} : advice.secondLink)};
}

WhyOff WhyNoUser(bool isUser) {
  return isUser ? WhyOff{} : WhyOff{app::kSelectUser};
}

WhyOff WhyNoGroup(bool isGroup) {
  return isGroup ? WhyOff{} : WhyOff{app::kSelectGroup};
}

WhyOff WhyNoPermission(bool isPermission) {
  return isPermission ? WhyOff{} : WhyOff{app::kSelectPermission};
}

}  // namespace browser
