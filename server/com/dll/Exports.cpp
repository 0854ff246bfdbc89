#include <windows.h>

#include <olectl.h>

#include <memory>
#include <new>

#include "MakeServer.h"
#include "automation/Adopt.h"
#include "server/com/ClassFactory.h"
#include "server/com/Identity.h"
#include "server/com/LiveObject.h"
#include "server/com/Registration.h"
#include "server/com/TypeLibrary.h"

using server::com::Scope;

namespace {

// The word after regsvr32's /i that asks for a registration for the current user alone.
constexpr const wchar_t* kForTheUser = L"user";

HRESULT RegisterFor(Scope scope) try {
  return server::com::Register(scope, server::com::ModuleFile());
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

HRESULT UnregisterFor(Scope scope) try {
  return server::com::Unregister(scope);
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) try {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (classId != server::com::kClassId) return CLASS_E_CLASSNOTAVAILABLE;
  const auto factory =
      automation::Adopt<IClassFactory>(std::make_unique<server::com::ClassFactory>(MakeServer));
  return factory.CopyTo(id, object);
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() {
  return server::com::LiveObject::Count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return RegisterFor(Scope::kMachine);
}

STDAPI DllUnregisterServer() {
  return UnregisterFor(Scope::kMachine);
}

STDAPI DllInstall(BOOL install, PCWSTR words) {
  const bool forTheUser = words != nullptr && lstrcmpiW(words, kForTheUser) == 0;
  if (!forTheUser && words != nullptr && *words != L'\0') return E_INVALIDARG;
  const Scope scope = forTheUser ? Scope::kUser : Scope::kMachine;
  return install ? RegisterFor(scope) : UnregisterFor(scope);
}
