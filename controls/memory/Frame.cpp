#include "controls/Frame.h"

#include "controls/memory/ControlPeer.h"

namespace controls {
namespace {

struct FramePeer : Control::Peer {
  bool TakesFocus() const override { return false; }
  std::wstring MarkedCaption() const override { return caption; }

  std::wstring caption;

 protected:
  void RestartKind() override { caption.clear(); }
};

}  // namespace

Frame::Frame(Form& form, int id) : Control(form, id, std::make_unique<FramePeer>()) {}

std::wstring Frame::Caption() const {
  return PeerOf<FramePeer>(*this).caption;
}

void Frame::SetCaption(const std::wstring& caption) {
  PeerOf<FramePeer>(*this).caption = caption;
}

}  // namespace controls
