#include "controls/WipedText.h"

namespace controls {
namespace {

// By way of volatile: a compiler may leave out what nobody reads again.
void Overwrite(std::wstring& text) {
  volatile wchar_t* const units = text.data();
  for (std::size_t i = 0; i < text.size(); ++i) units[i] = L'\0';
}

}  // namespace

// Put together in a room of its own, so that the old one can be overwritten whole.
void WipedText::Replace(std::size_t start, std::size_t length, std::wstring_view with) {
  std::wstring changed;
  changed.reserve(text_.size() - length + with.size());
  changed.append(text_, 0, start).append(with).append(text_, start + length);
  text_.swap(changed);
  Overwrite(changed);
}

void WipedText::Wipe() {
  Overwrite(text_);
  text_.clear();
}

}  // namespace controls
