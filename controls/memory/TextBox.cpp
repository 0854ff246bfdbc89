#include "controls/TextBox.h"

#include <algorithm>
#include <utility>

#include "controls/Events.h"
#include "controls/memory/TextBoxPeer.h"

namespace controls {
namespace {

constexpr wchar_t kBackspace = 8;

}  // namespace

void TextBoxPeer::RestartKind() {
  text.Wipe();
  selStart = 0;
  selLength = 0;
  cue.clear();
}

void TextBoxPeer::FocusGained() {
  selStart = 0;
  selLength = static_cast<int>(text.Get().size());
}

void TextBoxPeer::TypeCharacter(TextBox& box, wchar_t character) {
  Raise(box.Owner(), box.KeyPress, character);
  if (character == 0 || !box.Owner().IsLoaded()) return;
  if (character == kBackspace) {
    Backspace(box);
  } else {
    ReplaceSelection(box, {&character, 1});
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

void TextBoxPeer::ReplaceSelection(TextBox& box, std::wstring_view with) {
  const auto start = static_cast<std::size_t>(selStart);
  const auto length = static_cast<std::size_t>(std::exchange(selLength, 0));
  selStart += static_cast<int>(with.size());
  if (std::wstring_view(text.Get()).substr(start, length) == with) return;
  text.Replace(start, length, with);
  Raise(box.Owner(), box.Change);
}

TextBox::TextBox(Form& form, int id, Masking masking)
    : Control(form, id, std::make_unique<TextBoxPeer>(masking)) {}

bool TextBox::IsMasked() const {
  return PeerOf<TextBoxPeer>(*this).masking == Masking::kMasked;
}

std::wstring TextBox::Text() const {
  return PeerOf<TextBoxPeer>(*this).text.Get();
}

void TextBox::ReadText(const std::function<void(std::wstring_view text)>& reader) const {
  reader(PeerOf<TextBoxPeer>(*this).text.Get());
}

void TextBox::SetText(const std::wstring& text) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  if (peer.text.Get() == text) return;
  peer.text.Assign(text);
  peer.selStart = 0;
  peer.selLength = 0;
  Raise(Owner(), Change);
}

std::wstring TextBox::Cue() const {
  return PeerOf<TextBoxPeer>(*this).cue;
}

void TextBox::SetCue(const std::wstring& cue) {
  PeerOf<TextBoxPeer>(*this).cue = cue;
}

int TextBox::SelStart() const {
  return PeerOf<TextBoxPeer>(*this).selStart;
}

int TextBox::SelLength() const {
  return PeerOf<TextBoxPeer>(*this).selLength;
}

void TextBox::SetSelStart(int start) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  peer.selStart = std::clamp(start, 0, static_cast<int>(peer.text.Get().size()));
  peer.selLength = 0;
}

void TextBox::SetSelLength(int length) {
  auto& peer = PeerOf<TextBoxPeer>(*this);
  peer.selLength = std::clamp(length, 0, static_cast<int>(peer.text.Get().size()) - peer.selStart);
}

}  // namespace controls
