#include "controls/TextBox.h"

#include <algorithm>

#include "controls/memory/Events.h"
#include "controls/memory/TextBoxPeer.h"

namespace controls {
namespace {

constexpr wchar_t kBackspace = 8;

}  // namespace

void TextBoxPeer::StartKind() {
  text.clear();
  selStart = 0;
  selLength = 0;
}

void TextBoxPeer::FocusGained() {
  selStart = 0;
  selLength = static_cast<int>(text.size());
}

void TextBoxPeer::TypeCharacter(TextBox& box, wchar_t character) {
  Raise(box.Owner(), box.KeyPress, character);
  if (character == 0 || !box.Owner().IsLoaded()) return;
  if (character == kBackspace) {
    Backspace(box);
  } else {
    ReplaceSelection(box, std::wstring(1, character));
  }
}

void TextBoxPeer::Backspace(TextBox& box) {
  if (selLength == 0) {
    if (selStart == 0) return;
    --selStart;
    selLength = 1;
  }
  ReplaceSelection(box, {});
}

void TextBoxPeer::ReplaceSelection(TextBox& box, const std::wstring& with) {
  std::wstring changed = text;
  changed.replace(selStart, selLength, with);
  selStart += static_cast<int>(with.size());
  selLength = 0;
  if (changed == text) return;
  text = changed;
  Raise(box.Owner(), box.Change);
}

TextBox::TextBox(Form& form, int id, Masking masking)
    : Control(form, id, std::make_unique<TextBoxPeer>(masking)) {}

bool TextBox::IsMasked() const {
  return PeerOf<TextBoxPeer>(*this).masking == Masking::kMasked;
}

std::wstring TextBox::Text() const {
  return PeerOf<TextBoxPeer>(*this).text;
}

void TextBox::SetText(const std::wstring& text) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  if (peer.text == text) return;
  peer.text = text;
  peer.selStart = 0;
  peer.selLength = 0;
  Raise(Owner(), Change);
}

int TextBox::SelStart() const {
  return PeerOf<TextBoxPeer>(*this).selStart;
}

int TextBox::SelLength() const {
  return PeerOf<TextBoxPeer>(*this).selLength;
}

void TextBox::SetSelStart(int start) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  peer.selStart = std::clamp(start, 0, static_cast<int>(peer.text.size()));
  peer.selLength = 0;
}

void TextBox::SetSelLength(int length) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  peer.selLength = std::clamp(length, 0, static_cast<int>(peer.text.size()) - peer.selStart);
}

}  // namespace controls
