#include "controls/SortKey.h"

#include <array>

#include "controls/win32/Handles.h"

namespace controls {
namespace {

constexpr int kUsualSize = 512;

}  // namespace

std::string SortKey(std::wstring_view text) {
  constexpr DWORD kFlags = LCMAP_SORTKEY | NORM_IGNORECASE | SORT_STRINGSORT;
  const int length = static_cast<int>(text.size());
  if (length == 0) return {};
  const auto map = [&](char* key, int size) {
    // For sort keys the size counts bytes.
    return LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kFlags, text.data(), length,
                         reinterpret_cast<wchar_t*>(key), size, nullptr, nullptr, 0);
  };
  // Asking for the size first costs as much as the key; few are longer than this.
  std::array<char, kUsualSize> usual;
  if (const int size = map(usual.data(), kUsualSize); size > 0) {
    return {usual.data(), static_cast<std::size_t>(size) - 1};  // the closing zero orders nothing
  }
  std::string key(static_cast<std::size_t>(map(nullptr, 0)), '\0');
  map(key.data(), static_cast<int>(key.size()));
  if (!key.empty()) key.pop_back();
  return key;
}

}  // namespace controls
