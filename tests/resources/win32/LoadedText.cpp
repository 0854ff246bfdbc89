#include <windows.h>

#include "StringTable.h"
#include "data/Text.h"

namespace resources_test {

std::string LoadedText(int id) {
  const wchar_t* text = nullptr;
  // With no room given, the answer is a pointer into the resource itself and the length there.
  const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                 reinterpret_cast<wchar_t*>(&text), 0);
  return length > 0 ? data::ToUtf8({text, static_cast<std::size_t>(length)}) : std::string();
}

}  // namespace resources_test
