#include "automation/RegistryKey.h"

namespace automation {
namespace {

void Check(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw RegistryError{status};
}

}  // namespace

RegistryKey RegistryKey::Create(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  Check(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE | DELETE, nullptr, &key, nullptr));
  return RegistryKey(key);
}

RegistryKey::~RegistryKey() {
  if (key_ != nullptr) RegCloseKey(key_);
}

void RegistryKey::Write(const wchar_t* name, const std::wstring& text) const {
  const auto bytes = reinterpret_cast<const BYTE*>(text.c_str());
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Check(RegSetValueExW(key_, name, 0, REG_SZ, bytes, size));
}

void RegistryKey::Remove(const std::wstring& path) const {
  const LSTATUS status = RegDeleteTreeW(key_, path.c_str());
  if (status != ERROR_FILE_NOT_FOUND) Check(status);
}

std::wstring ReadText(HKEY parent, const std::wstring& path) {
  wchar_t text[512] = {};
  DWORD bytes = sizeof text;
  const LSTATUS status =
      RegGetValueW(parent, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == ERROR_SUCCESS ? std::wstring(text) : std::wstring();
}

}  // namespace automation
