#include "server/com/TypeLibrary.h"

#include <oleauto.h>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

namespace server::com {

std::wstring ModuleFile() {
  constexpr DWORD kLongestPath = 32768;
  HMODULE module = nullptr;
  const auto here = reinterpret_cast<const wchar_t*>(&ModuleFile);
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, here,
      &module);
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), kLongestPath));
  return path;
}

HRESULT LoadTypeInfo(const GUID& interfaceId, ITypeInfo** info) try {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModuleFile().c_str(), REGKIND_NONE, library.GetAddressOf());
  if (FAILED(loaded)) return loaded;
  return library->GetTypeInfoOfGuid(interfaceId, info);
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

}  // namespace server::com
