#include "tests/program/driver/TextBox.h"

namespace driver {

bool TextBox::IsMasked() const {
  return window_.Send(EM_GETPASSWORDCHAR) != 0;
}

std::pair<int, int> TextBox::Selection() const {
  const LRESULT both = window_.Send(EM_GETSEL);
  return {LOWORD(both), HIWORD(both)};
}

void TextBox::Select(int start, int end) const {
  window_.Send(EM_SETSEL, static_cast<WPARAM>(start), end);
}

void TextBox::SetText(const std::wstring& text) const {
  window_.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

// Sent, not posted: each character has been dealt with when the call returns.
void TextBox::Type(const std::wstring& text) const {
  for (const wchar_t unit : text) window_.Send(WM_CHAR, unit, 1);
}

}  // namespace driver
