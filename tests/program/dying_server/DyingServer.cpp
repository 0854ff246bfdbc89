// A session server that does what the reference one does until it is told to die, from where on it
// goes wrong in every call. Told so from the start, it goes wrong in the first one. It can also be
// told to handle the messages of its client in the middle of a call.

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/program/dying_server/Relay.h"

namespace dying_server {
namespace {

using Microsoft::WRL::ComPtr;
using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

// The reference server lies beside the program that loads this one. It stays loaded.
GetClassObject ReferenceServer() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  const auto file = std::filesystem::path(path).parent_path() / L"vardex.dll";
  const HMODULE library = LoadLibraryW(file.c_str());
  if (library == nullptr) return nullptr;
  return reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
}

HRESULT MakeReferenceObject(REFCLSID classId, ComPtr<IDispatch>& object) {
  const GetClassObject getClassObject = ReferenceServer();
  if (getClassObject == nullptr) return E_FAIL;
  ComPtr<IClassFactory> factory;
  const HRESULT found =
      getClassObject(classId, IID_IClassFactory, reinterpret_cast<void**>(factory.GetAddressOf()));
  if (FAILED(found)) return found;
  return factory->CreateInstance(nullptr, IID_IDispatch,
                                 reinterpret_cast<void**>(object.GetAddressOf()));
}

class DyingFactory : public IClassFactory {
 public:
  explicit DyingFactory(REFCLSID classId) : classId_(classId) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *out != nullptr ? S_OK : E_NOINTERFACE;
  }
  // There is one factory, and it lives as long as the library.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    ComPtr<IDispatch> object;
    const HRESULT made = MakeReferenceObject(classId_, object);
    if (FAILED(made)) return made;
    ComPtr<IDispatch> relay;
    relay.Attach(std::make_unique<Relay>(std::move(object)).release());
    return relay->QueryInterface(id, out);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  CLSID classId_;
};

}  // namespace
}  // namespace dying_server

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** out) {
  static dying_server::DyingFactory factory(classId);
  return factory.QueryInterface(id, out);
}

STDAPI DllCanUnloadNow() {
  return S_FALSE;
}
