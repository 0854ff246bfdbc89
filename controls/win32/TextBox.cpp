#include "controls/TextBox.h"

#include <algorithm>

#include "controls/win32/ControlPeer.h"

namespace controls {
namespace {

constexpr WPARAM kMostText = 0x7FFFFFFE;
constexpr wchar_t kMask = L'*';
constexpr wchar_t kBackspace = 8;
constexpr wchar_t kControlBackspace = 127;

struct TextBoxPeer : Control::Peer {
  TextBoxPeer(Form& owner, int controlId, TextBox::Masking masks)
      : Peer(owner, controlId), masking(masks) {}

  void Attached() override {
    Send(EM_SETLIMITTEXT, kMostText);
    if (masking == TextBox::Masking::kMasked) Send(EM_SETPASSWORDCHAR, kMask);
    text = WindowText();
  }
  void Detached() override { text.clear(); }
  void FocusGained() override { Send(EM_SETSEL, 0, -1); }

  void Command(int code) override {
    if (code == EN_CHANGE) Changed();
  }

  // The control tells of every change that it is asked for, also of one that makes no difference.
  void Changed() {
    std::wstring now = WindowText();
    if (now == text) return;
    text = std::move(now);
    Raise(Box().Change);
  }

  LRESULT Handle(const Message& message) override {
    if (message.number != WM_CHAR) return Peer::Handle(message);
    auto character = static_cast<wchar_t>(message.wParam);
    const bool command = character < L' ' && character != kBackspace;
    if (command || character == kControlBackspace) return Peer::Handle(message);
    Raise(Box().KeyPress, character);
    if (character == 0) return 0;
    return Peer::Handle({message.number, character, message.lParam});
  }

  // Both ends of the selection.
  std::pair<int, int> Selection() const {
    DWORD start = 0;
    DWORD end = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
  }

  TextBox& Box() const { return static_cast<TextBox&>(*control); }

  const TextBox::Masking masking;
  std::wstring text;
};

TextBoxPeer& PeerOfBox(const TextBox& box) {
  return static_cast<TextBoxPeer&>(box.BackEnd());
}

}  // namespace

TextBox::TextBox(Form& form, int id, Masking masking)
    : Control(form, id, std::make_unique<TextBoxPeer>(form, id, masking)) {}

bool TextBox::IsMasked() const {
  return PeerOfBox(*this).masking == Masking::kMasked;
}

std::wstring TextBox::Text() const {
  return PeerOfBox(*this).text;
}

void TextBox::SetText(const std::wstring& text) {
  TextBoxPeer& peer = PeerOfBox(*this);
  if (!peer.window || peer.text == text) return;
  peer.ShowText(text);
}

int TextBox::SelStart() const {
  return PeerOfBox(*this).Selection().first;
}

int TextBox::SelLength() const {
  const auto [start, end] = PeerOfBox(*this).Selection();
  return end - start;
}

void TextBox::SetSelStart(int start) {
  TextBoxPeer& peer = PeerOfBox(*this);
  const int place = std::clamp(start, 0, static_cast<int>(peer.text.size()));
  peer.Send(EM_SETSEL, static_cast<WPARAM>(place), place);
  peer.Send(EM_SCROLLCARET);
}

void TextBox::SetSelLength(int length) {
  TextBoxPeer& peer = PeerOfBox(*this);
  const int start = SelStart();
  const int end = start + std::clamp(length, 0, static_cast<int>(peer.text.size()) - start);
  peer.Send(EM_SETSEL, static_cast<WPARAM>(start), end);
}

}  // namespace controls
