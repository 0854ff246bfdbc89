#include "VardexLibrary.h"

#include <unknwn.h>

#include "server/com/Identity.h"

using Microsoft::WRL::ComPtr;

namespace com_test {

HRESULT VardexLibrary::GetClass(const CLSID& classId, const IID& id, void** object) const {
  using Function = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto get = library_.Find<Function>("DllGetClassObject");
  return get == nullptr ? E_NOTIMPL : get(classId, id, object);
}

ComPtr<IDispatch> VardexLibrary::MakeServer() const {
  ComPtr<IClassFactory> factory;
  ComPtr<IDispatch> server;
  if (FAILED(GetClass(server::com::kClassId, IID_PPV_ARGS(factory.GetAddressOf())))) return {};
  factory->CreateInstance(nullptr, IID_PPV_ARGS(server.GetAddressOf()));
  return server;
}

bool VardexLibrary::MayUnload() const {
  const auto ask = library_.Find<HRESULT(WINAPI*)()>("DllCanUnloadNow");
  return ask != nullptr && ask() == S_OK;
}

}  // namespace com_test
