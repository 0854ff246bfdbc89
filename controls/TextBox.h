#pragma once

#include <functional>
#include <string>

#include "controls/Control.h"

namespace controls {

// One line of text. Positions and lengths count UTF-16 units.
class TextBox : public Control {
 public:
  enum class Masking { kPlain, kMasked };

  TextBox(Form& form, int id, Masking masking = Masking::kPlain);

  bool IsMasked() const;
  std::wstring Text() const;
  void SetText(const std::wstring& text);

  int SelStart() const;
  int SelLength() const;
  // Both are cut to what the text holds. Setting the start empties the selection.
  void SetSelStart(int start);
  void SetSelLength(int length);

  // On every change of the text, also one made by the program.
  std::function<void()> Change;
  // Before a typed character enters the text; setting it to 0 discards it. Pasted text does not
  // pass here.
  std::function<void(wchar_t& character)> KeyPress;
};

}  // namespace controls
