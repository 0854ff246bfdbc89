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

// Both are named in full. HKEY_CLASSES_ROOT shows the two as one: what is written there may land in
// the user's part, and an elevated process does not see that part at all.
constexpr const wchar_t* kClasses = L"Software\\Classes";

HKEY HiveOf(Scope scope) {
  return scope == Scope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

// The root of the class entries that a scope writes to.
RegistryKey Root(Scope scope) {
  return RegistryKey::Create(HiveOf(scope), kClasses);
}

bool IsOurs(const std::wstring& classId) {
  return lstrcmpiW(classId.c_str(), ClassIdText().c_str()) == 0;
}

bool IsForeign(Scope scope, const wchar_t* progId) {
  const std::wstring path = std::wstring(kClasses) + L"\\" + progId + L"\\CLSID";
  const std::wstring classId = ReadText(HiveOf(scope), path);
  return !classId.empty() && !IsOurs(classId);
}

// A user's entries hide the machine's, so both are looked at.
bool WouldDisplace() {
  for (const wchar_t* progId : kProgIds) {
    if (IsForeign(Scope::kMachine, progId) || IsForeign(Scope::kUser, progId)) return true;
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
  if (WouldDisplace()) return SELFREG_E_CLASS;
  const RegistryKey root = Root(scope);
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
