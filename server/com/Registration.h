#pragma once

#include <windows.h>

#include <string>

namespace server::com {

// Whom a registration is for. Writing for the machine takes an administrator.
enum class Scope { kMachine, kUser };

// Enters the class, its file and both ProgIDs. When either ProgID stands for another class, nothing
// is written and the answer is SELFREG_E_CLASS: the product itself is installed here.
HRESULT Register(Scope scope, const std::wstring& file);

// Removes what Register entered, and no ProgID that stands for another class.
HRESULT Unregister(Scope scope);

}  // namespace server::com
