#include "automation/Bstr.h"

#include <new>

namespace automation {

Bstr::Bstr(std::wstring_view text)
    : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
  if (text_ == nullptr) throw std::bad_alloc();
}

void Wipe(BSTR text) {
  if (text != nullptr) SecureZeroMemory(text, SysStringByteLen(text));
}

}  // namespace automation
