#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace server::com {

// The file of the library that this code is part of.
std::wstring ModuleFile();

// The description of one of the server's interfaces, from the type library inside its own file.
HRESULT LoadTypeInfo(const GUID& interfaceId, ITypeInfo** info);

}  // namespace server::com
