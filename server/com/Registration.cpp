#include "server/com/Registration.h"

#include <objbase.h>
#include <olectl.h>

#include <array>

#include "automation/RegistryKey.h"
#include "server/com/Identity.h"

using automation::ReadText;
using automation::RegistryError;
using automation::RegistryKey;

namespace server::com {
namespace {

constexpr std::array<const wchar_t*, 2> kProgIds = {kProgId, kVersionIndependentProgId};

std::wstring ClassIdText() {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(kClassId, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// The root of the class entries that a scope writes to.
RegistryKey Root(Scope scope) {
  if (scope == Scope::kMachine) return RegistryKey::Create(HKEY_CLASSES_ROOT, L"");
  return RegistryKey::Create(HKEY_CURRENT_USER, L"Software\\Classes");
}

bool IsOurs(const std::wstring& classId) {
  return lstrcmpiW(classId.c_str(), ClassIdText().c_str()) == 0;
}

bool IsForeign(HKEY root, const wchar_t* progId) {
  const std::wstring classId = ReadText(root, std::wstring(progId) + L"\\CLSID");
  return !classId.empty() && !IsOurs(classId);
}

// A user's entries hide the machine's, so both are looked at.
bool WouldDisplace(const RegistryKey& root) {
  for (const wchar_t* progId : kProgIds) {
    if (IsForeign(root.Get(), progId) || IsForeign(HKEY_CLASSES_ROOT, progId)) return true;
  }
  return false;
}

void WriteProgId(const RegistryKey& root, const wchar_t* progId) {
  const RegistryKey key = RegistryKey::Create(root.Get(), progId);
  key.Write(L"", kDescription);
  RegistryKey::Create(key.Get(), L"CLSID").Write(L"", ClassIdText());
}

void WriteClass(const RegistryKey& root, const std::wstring& file) {
  const RegistryKey key = RegistryKey::Create(root.Get(), L"CLSID\\" + ClassIdText());
  key.Write(L"", kDescription);
  RegistryKey::Create(key.Get(), L"ProgID").Write(L"", kProgId);
  RegistryKey::Create(key.Get(), L"VersionIndependentProgID").Write(L"", kVersionIndependentProgId);
  RegistryKey::Create(key.Get(), L"Programmable");
  const RegistryKey library = RegistryKey::Create(key.Get(), L"InprocServer32");
  library.Write(L"", file);
  library.Write(L"ThreadingModel", L"Apartment");
}

}  // namespace

HRESULT Register(Scope scope, const std::wstring& file) try {
  const RegistryKey root = Root(scope);
  if (WouldDisplace(root)) return SELFREG_E_CLASS;
  WriteClass(root, file);
  for (const wchar_t* progId : kProgIds) WriteProgId(root, progId);
  const RegistryKey key = RegistryKey::Create(root.Get(), kVersionIndependentProgId);
  RegistryKey::Create(key.Get(), L"CurVer").Write(L"", kProgId);
  return S_OK;
} catch (const RegistryError& error) {
  return HRESULT_FROM_WIN32(error.status);
}

HRESULT Unregister(Scope scope) try {
  const RegistryKey root = Root(scope);
  for (const wchar_t* progId : kProgIds) {
    if (IsOurs(ReadText(root.Get(), std::wstring(progId) + L"\\CLSID"))) root.Remove(progId);
  }
  root.Remove(L"CLSID\\" + ClassIdText());
  return S_OK;
} catch (const RegistryError& error) {
  return HRESULT_FROM_WIN32(error.status);
}

}  // namespace server::com
