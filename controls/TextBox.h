#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/Control.h"

namespace controls {

// One line of text. Positions and lengths count UTF-16 units. Getting the focus selects the whole
// text, before GotFocus is raised. What it held is overwritten in memory when it changes and when
// the form is unloaded.
class TextBox : public Control {
 public:
  enum class Masking { kPlain, kMasked };

  TextBox(Form& form, int id, Masking masking = Masking::kPlain);

  bool IsMasked() const;
  std::wstring Text() const;
  // Shows the text to a reader that makes a copy of its own or none; for secrets, of which Text
  // would leave a copy in memory. What the reader is given ends with the call.
  void ReadText(const std::function<void(std::wstring_view text)>& reader) const;
  // Does nothing when that is the text already; otherwise the selection is empty at the start.
  void SetText(const std::wstring& text);

  // What an empty box shows of what belongs into it, also while it has the focus. Screen readers
  // take it for the box's name; a box with a cue needs no label.
  std::wstring Cue() const;
  void SetCue(const std::wstring& cue);

  int SelStart() const;
  int SelLength() const;
  // Both are cut to what the text holds. Setting the start empties the selection.
  void SetSelStart(int start);
  void SetSelLength(int length);

  // On every change of the text, also one made by the program.
  std::function<void()> Change;
  // Before a typed character enters the text, 8 for the backspace key; setting it to 0 discards it.
  // Pasted text does not pass here.
  std::function<void(wchar_t& character)> KeyPress;
};

}  // namespace controls
