#include "controls/Label.h"

#include "controls/memory/ControlPeer.h"

namespace controls {
namespace {

struct LabelPeer : Control::Peer {
  bool TakesFocus() const override { return false; }
  std::wstring MarkedCaption() const override { return plain ? std::wstring() : caption; }

  std::wstring caption;
  bool plain = false;

 protected:
  void RestartKind() override {
    caption.clear();
    plain = false;
  }
};

}  // namespace

Label::Label(Form& form, int id) : Control(form, id, std::make_unique<LabelPeer>()) {}

std::wstring Label::Caption() const {
  return PeerOf<LabelPeer>(*this).caption;
}

void Label::SetCaption(const std::wstring& caption) {
  auto& peer = PeerOf<LabelPeer>(*this);
  peer.caption = caption;
  peer.plain = false;
}

void Label::SetPlainCaption(const std::wstring& caption) {
  auto& peer = PeerOf<LabelPeer>(*this);
  peer.caption = caption;
  peer.plain = true;
}

void Label::Announce() {}

}  // namespace controls
