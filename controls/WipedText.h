#pragma once

#include <string>
#include <string_view>

namespace controls {

// A text that leaves no copy of itself in memory: what it held is overwritten when it changes,
// grows or ends.
class WipedText {
 public:
  WipedText() = default;
  ~WipedText() { Wipe(); }
  WipedText(const WipedText&) = delete;
  WipedText& operator=(const WipedText&) = delete;

  const std::wstring& Get() const { return text_; }
  // text may be a part of what is held.
  void Assign(std::wstring_view text) { Replace(0, text_.size(), text); }
  void Replace(std::size_t start, std::size_t length, std::wstring_view with);
  // The text, for a function that fills it in; as long as it is, and a closing zero.
  wchar_t* Buffer() { return text_.data(); }
  // Makes it empty.
  void Wipe();

 private:
  std::wstring text_;
};

}  // namespace controls
