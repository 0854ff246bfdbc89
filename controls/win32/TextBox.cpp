#include "controls/TextBox.h"

#include <algorithm>

#include "controls/WipedText.h"
#include "controls/win32/Annotation.h"
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
    ReadWindow(text);
  }
  void Detached() override {
    text.Wipe();
    WipeWindow();
    cue.clear();
    name_.Reset();
  }
  void FocusGained() override { Send(EM_SETSEL, 0, -1); }

  void Command(int code) override {
    if (code == EN_CHANGE) Changed();
  }

  // The control tells of every change that it is asked for, also of one that makes no difference.
  void Changed() {
    if (wiping_) return;
    WipedText now;
    ReadWindow(now);
    if (now.Get() == text.Get()) return;
    text.Assign(now.Get());
    longest_ = std::max(longest_, text.Get().size());
    Raise(form, Box().Change);
  }

  void ReadWindow(WipedText& into) const {
    into.Assign(std::wstring(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0'));
    wchar_t* const buffer = into.Buffer();
    GetWindowTextW(window, buffer, static_cast<int>(into.Get().size()) + 1);
  }

  // The native control does not overwrite what it held, neither its text nor what it keeps to undo
  // a change: a text as long as the longest comes in the place of both.
  void WipeWindow() {
    if (longest_ == 0) return;
    wiping_ = true;
    const std::wstring blanks(longest_, L' ');
    SetNativeText(blanks);
    Send(EM_SETSEL, 0, -1);
    Send(EM_REPLACESEL, TRUE, AsLParam(blanks.c_str()));
    SetNativeText({});
    longest_ = 0;
    wiping_ = false;
  }

  LRESULT Handle(const Message& message) override {
    if (message.number != WM_CHAR) return Peer::Handle(message);
    auto character = static_cast<wchar_t>(message.wParam);
    const bool command = character < L' ' && character != kBackspace;
    if (command || character == kControlBackspace) return Peer::Handle(message);
    Raise(form, Box().KeyPress, character);
    if (character == 0) return 0;
    return Peer::Handle({message.number, character, message.lParam});
  }

  void ShowCue() {
    Send(EM_SETCUEBANNER, TRUE, AsLParam(cue.c_str()));
    if (window) name_.Set(window, CHILDID_SELF, cue);
  }

  // Both ends of the selection.
  std::pair<int, int> Selection() const {
    DWORD start = 0;
    DWORD end = 0;
    Send(EM_GETSEL, AsWParam(&start), AsLParam(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
  }

  TextBox& Box() const { return static_cast<TextBox&>(*control); }

  const TextBox::Masking masking;
  WipedText text;
  std::wstring cue;

 private:
  Annotation name_{Annotation::Kind::kName};
  std::size_t longest_ = 0;  // that the native control has held
  bool wiping_ = false;
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
  return PeerOfBox(*this).text.Get();
}

void TextBox::ReadText(const std::function<void(std::wstring_view text)>& reader) const {
  reader(PeerOfBox(*this).text.Get());
}

void TextBox::SetText(const std::wstring& text) {
  TextBoxPeer& peer = PeerOfBox(*this);
  if (!peer.window || peer.text.Get() == text) return;
  if (IsMasked()) peer.WipeWindow();
  peer.SetNativeText(text);
}

std::wstring TextBox::Cue() const {
  return PeerOfBox(*this).cue;
}

void TextBox::SetCue(const std::wstring& cue) {
  TextBoxPeer& peer = PeerOfBox(*this);
  peer.cue = cue;
  peer.ShowCue();
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
  const int place = std::clamp(start, 0, static_cast<int>(peer.text.Get().size()));
  peer.Send(EM_SETSEL, static_cast<WPARAM>(place), place);
  peer.Send(EM_SCROLLCARET);
}

void TextBox::SetSelLength(int length) {
  TextBoxPeer& peer = PeerOfBox(*this);
  const int start = SelStart();
  const int end = start + std::clamp(length, 0, static_cast<int>(peer.text.Get().size()) - start);
  peer.Send(EM_SETSEL, static_cast<WPARAM>(start), end);
}

}  // namespace controls
