#include "browser/rules/ButtonRules.h"

namespace browser {

ButtonRule ButtonRuleOf(std::wstring_view tag) {
  const auto is = [tag](std::wstring_view first, std::wstring_view second) {
    return tag == first || tag == second;
  };
  if (is(L"US", L"GR")) return {true, true, false, true, false};
  if (is(L"MO", L"MS")) return {true, true, false, false, false};
  if (is(L"GU", L"UG")) return {true, true, true, false, false};
  if (is(L"UP", L"GP")) return {true, false, false, true, false};
  if (is(L"PU", L"PG")) return {true, false, false, true, true};
  if (is(L"AP", L"PA")) return {true, false, false, false, false};
  return {};
}

}  // namespace browser
