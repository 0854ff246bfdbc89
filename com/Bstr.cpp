#include "com/Bstr.h"

#include "data/RunTimeError.h"

namespace com {

Bstr::Bstr(std::wstring_view text)
    : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
  if (text_ == nullptr) throw data::RunTimeError(data::kOutOfMemory);
}

void Wipe(BSTR text) {
  if (text != nullptr) SecureZeroMemory(text, SysStringByteLen(text));
}

}  // namespace com
