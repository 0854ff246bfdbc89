#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

namespace com {

// An owned OLE text.
class Bstr {
 public:
  Bstr() = default;
  // Raises 7 when there is no memory for the copy.
  explicit Bstr(std::wstring_view text);
  ~Bstr() { SysFreeString(text_); }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }

  BSTR Get() const { return text_; }
  // Where a callee puts a text. What was there before must have been empty.
  BSTR* Out() { return &text_; }
  std::wstring_view View() const { return {text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

// Overwrites a text that was a secret before its memory goes back.
void Wipe(BSTR text);

}  // namespace com
