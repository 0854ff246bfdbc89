#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

namespace automation {

// An owned OLE text.
class Bstr {
 public:
  Bstr() = default;
  // Throws bad_alloc when there is no memory for the copy.
  explicit Bstr(std::wstring_view text);
  // Arguments and values by the million have none to free.
  ~Bstr() {
    if (text_ != nullptr) SysFreeString(text_);
  }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }

  BSTR Get() const { return text_; }
  std::wstring_view View() const { return {text_, SysStringLen(text_)}; }
  // Where a callee puts a text. What was there before must have been empty.
  BSTR* Out() { return &text_; }
  // Gives the text to the caller, who frees it.
  BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

// What a text holds; a null one has no characters.
inline std::wstring_view View(BSTR text) {
  return {text, SysStringLen(text)};
}

// Overwrites a text that was a secret, in a way that no compiler leaves out.
void Wipe(BSTR text);

// A text that may be a secret: it is overwritten before its memory goes back.
class SecretBstr {
 public:
  SecretBstr() = default;
  explicit SecretBstr(std::wstring_view text) : text_(text) {}
  ~SecretBstr() {
    if (text_.Get() != nullptr) Wipe(text_.Get());
  }
  SecretBstr(const SecretBstr&) = delete;
  SecretBstr& operator=(const SecretBstr&) = delete;

  // Takes over a text of the caller in place of the one before.
  void Take(BSTR text) {
    Wipe(text_.Get());
    text_ = Bstr();
    *text_.Out() = text;
  }

  const Bstr& Get() const { return text_; }
  std::wstring_view View() const { return text_.View(); }

 private:
  Bstr text_;
};

}  // namespace automation
