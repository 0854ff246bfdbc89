#include "browser/trees/DisplayNames.h"

#include "data/Text.h"

namespace browser {

const std::wstring& DisplayNames::Get(std::wstring_view text, data::DisplayCode code) {
  std::unordered_map<std::wstring, std::wstring>& known = known_[code];
  const auto [entry, added] = known.try_emplace(std::wstring(text));
  if (added) {
    try {
      entry->second = server_.GetDisplayName(text, code);
    } catch (...) {
      known.erase(entry);
      throw;
    }
  }
  return entry->second;
}

std::wstring AccountText(std::wstring_view name, std::wstring_view addition) {
  std::wstring text(name);
  if (!data::Trim(addition).empty()) {
    text += L" (";
    text += addition;
    text += L")";
  }
  return text;
}

}  // namespace browser
