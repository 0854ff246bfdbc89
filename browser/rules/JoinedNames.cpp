#include "browser/rules/JoinedNames.h"

#include <cstddef>

#include "app/StringIds.h"

namespace browser {

std::wstring JoinedNames(const app::mGlobal& global, const std::vector<std::wstring>& names) {
  std::wstring text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) {
      text += global.LoadResString(i + 1 < names.size() ? app::kNameSeparator : app::kLastNameAnd);
    }
    text += names[i];
  }
  return text;
}

}  // namespace browser
