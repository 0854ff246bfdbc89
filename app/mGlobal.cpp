#include "app/mGlobal.h"

#include "controls/Desktop.h"

namespace app {

std::wstring mGlobal::LoadResString(int id) const {
  return desktop.LoadResString(id);
}

std::wstring FillIn(const std::wstring& pattern, std::initializer_list<std::wstring> values) {
  std::wstring filled;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool mark = pattern[i] == L'%' && i + 1 < pattern.size();
    const std::size_t number = mark ? static_cast<std::size_t>(pattern[i + 1] - L'0') : 0;
    if (number >= 1 && number <= values.size()) {
      filled += *(values.begin() + (number - 1));
      ++i;
    } else {
      filled += pattern[i];
    }
  }
  return filled;
}

}  // namespace app
