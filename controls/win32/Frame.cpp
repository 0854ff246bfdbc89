#include "controls/Frame.h"

#include "controls/win32/ControlPeer.h"

namespace controls {
namespace {

struct FramePeer : Control::Peer {
  using Peer::Peer;

  bool TakesFocus() const override { return false; }
};

}  // namespace

Frame::Frame(Form& form, int id) : Control(form, id, std::make_unique<FramePeer>(form, id)) {}

std::wstring Frame::Caption() const {
  return BackEnd().WindowText();
}

void Frame::SetCaption(const std::wstring& caption) {
  BackEnd().SetNativeText(caption);
}

}  // namespace controls
