// A session server that can be made, and goes wrong in the first call it is asked for.

#include <windows.h>

#include <objbase.h>

#include <oaidl.h>

namespace {

class DyingObject : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    return *out != nullptr ? S_OK : E_NOINTERFACE;
  }
  // There is one object, and it lives as long as the library.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) override {
    for (UINT i = 0; i < count; ++i) ids[i] = static_cast<DISPID>(i + 1);
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    RaiseException(static_cast<DWORD>(STATUS_ACCESS_VIOLATION), 0, 0, nullptr);
    return E_UNEXPECTED;
  }
};

class DyingFactory : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *out != nullptr ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    static DyingObject object;
    return outer != nullptr ? CLASS_E_NOAGGREGATION : object.QueryInterface(id, out);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID, REFIID id, void** out) {
  static DyingFactory factory;
  return factory.QueryInterface(id, out);
}

STDAPI DllCanUnloadNow() {
  return S_FALSE;
}
