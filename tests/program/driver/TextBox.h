#pragma once

#include <string>
#include <utility>

#include "tests/program/driver/Window.h"

namespace driver {

// A text box.
class TextBox {
 public:
  explicit TextBox(const Window& window) : window_(window) {}

  const Window& Control() const { return window_; }
  std::wstring Text() const { return window_.Text(); }
  bool IsMasked() const;
  // The selection's start and end.
  std::pair<int, int> Selection() const;
  void Select(int start, int end) const;

  // Replaces the text at once, as pasting over all of it does.
  void SetText(const std::wstring& text) const;
  // Types character by character at the selection, and waits until the last one has arrived.
  void Type(const std::wstring& text) const;

 private:
  Window window_;
};

}  // namespace driver
