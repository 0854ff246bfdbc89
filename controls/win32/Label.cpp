#include "controls/Label.h"

#include "controls/win32/Annotation.h"
#include "controls/win32/ControlPeer.h"

namespace controls {
namespace {

// Not every set of headers knows it.
constexpr DWORD kLiveRegionChanged = 0x8019;

struct LabelPeer : Control::Peer {
  using Peer::Peer;

  bool TakesFocus() const override { return false; }

  void SetText(const std::wstring& text, bool plain) {
    if (!window) return;
    const bool wasPlain = (GetWindowLongPtrW(window, GWL_STYLE) & SS_NOPREFIX) != 0;
    if (plain == wasPlain && text == WindowText()) return;
    ChangeStyle(SS_NOPREFIX, plain ? SS_NOPREFIX : 0);
    SetNativeText(text);
    // The new text may be shorter, or the same with another meaning of its ampersands.
    InvalidateRect(window, nullptr, TRUE);
  }

  void Detached() override {
    live_.Reset();
    isLive_ = false;
  }

  void Announce() {
    if (!window) return;
    if (!std::exchange(isLive_, true)) live_.SetLive(window);
    NotifyWinEvent(kLiveRegionChanged, window, OBJID_CLIENT, CHILDID_SELF);
  }

 private:
  Annotation live_{Annotation::Kind::kLive};
  bool isLive_ = false;
};

}  // namespace

Label::Label(Form& form, int id) : Control(form, id, std::make_unique<LabelPeer>(form, id)) {}

std::wstring Label::Caption() const {
  return BackEnd().WindowText();
}

void Label::SetCaption(const std::wstring& caption) {
  static_cast<LabelPeer&>(BackEnd()).SetText(caption, false);
}

void Label::SetPlainCaption(const std::wstring& caption) {
  static_cast<LabelPeer&>(BackEnd()).SetText(caption, true);
}

void Label::Announce() {
  static_cast<LabelPeer&>(BackEnd()).Announce();
}

}  // namespace controls
