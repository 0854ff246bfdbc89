#include "tests/program/Texts.h"

#include "data/Text.h"

namespace program {
namespace {

struct Entry {
  int id;
  const char* text;
};

constexpr Entry kEntries[] = {
#define UADMIN_STRING(id, text) {id, text},
#include "resources/strings_fr.h"
#undef UADMIN_STRING
};

}  // namespace

std::wstring String(int id) {
  for (const Entry& entry : kEntries) {
    if (entry.id == id) return data::FromUtf8(entry.text);
  }
  return {};
}

std::wstring String(int id, std::initializer_list<std::wstring> values) {
  std::wstring text = String(id);
  int number = 0;
  for (const std::wstring& value : values) {
    const std::wstring mark = L"%" + std::to_wstring(++number);
    const std::size_t place = text.find(mark);
    if (place != std::wstring::npos) text.replace(place, mark.size(), value);
  }
  return text;
}

std::wstring Report(const std::wstring& procedure, long number, const std::wstring& text) {
  return procedure + L" Error [" + std::to_wstring(number) + L"]\r\n" + text;
}

}  // namespace program
