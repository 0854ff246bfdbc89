#pragma once

#include <string>

#include "controls/TextBox.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct TextBoxPeer : Control::Peer {
  explicit TextBoxPeer(TextBox::Masking masks) : masking(masks) {}

  bool TakesFocus() const override { return true; }
  void FocusGained() override;
  void PressSpace(Control& control) override {
    TypeCharacter(static_cast<TextBox&>(control), L' ');
  }

  // What the keyboard does: a character, or 8 for backspace, passes KeyPress and goes in.
  void TypeCharacter(TextBox& box, wchar_t character);
  // Puts a text in the place of the selection, the caret behind it.
  void ReplaceSelection(TextBox& box, const std::wstring& with);

  const TextBox::Masking masking;
  std::wstring text;
  int selStart = 0;
  int selLength = 0;

 protected:
  void StartKind() override;

 private:
  void Backspace(TextBox& box);
};

}  // namespace controls
