#include "tests/program/JournalFolder.h"

#include <windows.h>

#include <array>

namespace program {
namespace {

constexpr const wchar_t* kKey = L"Software\\Policies\\User Administration";
constexpr const wchar_t* kValue = L"Journal";

std::wstring Policy() {
  std::array<wchar_t, 1024> text = {};
  DWORD size = sizeof text;
  const bool found = RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_SZ, nullptr,
                                  text.data(), &size) == ERROR_SUCCESS;
  return found ? text.data() : std::wstring();
}

void SetPolicy(const std::wstring& folder) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_SZ, folder.c_str(),
                  static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

JournalFolder::JournalFolder(const std::filesystem::path& folder) : before_(Policy()) {
  SetPolicy(folder.wstring());
}

JournalFolder::~JournalFolder() {
  if (before_.empty()) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, kValue);
  } else {
    SetPolicy(before_);
  }
}

}  // namespace program
