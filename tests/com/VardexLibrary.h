#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include "BuiltLibrary.h"

namespace com_test {

// The reference server's library, asked for objects as the system asks it.
class VardexLibrary {
 public:
  VardexLibrary() : library_(L"vardex.dll") {}

  // A new session server; null when there is none.
  Microsoft::WRL::ComPtr<IDispatch> MakeServer() const;
  HRESULT GetClass(const CLSID& classId, const IID& id, void** object) const;
  bool MayUnload() const;

 private:
  BuiltLibrary library_;
};

}  // namespace com_test
