#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "data/Wipe.h"

namespace data {

// Owns a text that is not to stay in memory, such as a plain password: it is overwritten when the
// owner dies or is given another one. It is moved, never copied.
class SecretText {
 public:
  SecretText() = default;
  // Takes a text over and overwrites what is left in the one it came from: a short text lies within
  // the string object itself and is copied by a move.
  explicit SecretText(std::wstring&& text) noexcept : text_(std::move(text)) { Wipe(text); }
  SecretText(SecretText&& other) noexcept : SecretText(std::move(other.text_)) {}
  SecretText& operator=(SecretText&& other) noexcept {
    if (this != &other) {
      Wipe(text_);
      text_.swap(other.text_);
      Wipe(other.text_);
    }
    return *this;
  }
  ~SecretText() { Wipe(text_); }

  bool IsEmpty() const { return text_.empty(); }
  // Borrowed: copies of it are the caller's to wipe.
  const std::wstring& Text() const { return text_; }
  operator std::wstring_view() const { return text_; }

 private:
  std::wstring text_;
};

}  // namespace data
