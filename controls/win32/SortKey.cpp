#include "controls/SortKey.h"

#include "controls/win32/Handles.h"

namespace controls {

std::string SortKey(std::wstring_view text) {
  constexpr DWORD kFlags = LCMAP_SORTKEY | NORM_IGNORECASE | SORT_STRINGSORT;
  const int length = static_cast<int>(text.size());
  if (length == 0) return {};
  const auto map = [&](wchar_t* key, int size) {
    // For sort keys the size counts bytes.
    return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kFlags, text.data(), length, key, size, nullptr,
                         nullptr, 0);
  };
  std::string key(static_cast<std::size_t>(map(nullptr, 0)), '\0');
  map(reinterpret_cast<wchar_t*>(key.data()), static_cast<int>(key.size()));
  // The closing zero does not order anything.
  if (!key.empty()) key.pop_back();
  return key;
}

}  // namespace controls
