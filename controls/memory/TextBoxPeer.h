#pragma once

#include <string>
#include <string_view>

#include "controls/TextBox.h"
#include "controls/WipedText.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct TextBoxPeer : Control::Peer {
  explicit TextBoxPeer(TextBox::Masking masks) : masking(masks) {}

  void FocusGained() override;
  void PressSpace() override { TypeCharacter(static_cast<TextBox&>(*control), L' '); }

  // What the keyboard does: a character, or 8 for backspace, passes KeyPress and goes in.
  void TypeCharacter(TextBox& box, wchar_t character);
  // Puts a text in the place of the selection, and the caret at its end.
  void ReplaceSelection(TextBox& box, std::wstring_view with);

  const TextBox::Masking masking;
  WipedText text;
  int selStart = 0;
  int selLength = 0;
  std::wstring cue;

 protected:
  void RestartKind() override;

 private:
  void Backspace(TextBox& box);
};

}  // namespace controls
