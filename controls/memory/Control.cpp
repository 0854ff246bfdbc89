#include "controls/Control.h"

#include <utility>

#include "controls/Frame.h"
#include "controls/memory/ControlPeer.h"
#include "controls/memory/FormPeer.h"

namespace controls {

Control::Control(Form& form, int id, std::unique_ptr<Peer> peer)
    : form_(form), id_(id), peer_(std::move(peer)) {
  peer_->control = this;
  form_.BackEnd().order.Add(*peer_);
}

Control::~Control() {
  form_.BackEnd().order.Remove(*peer_);
}

bool Control::Enabled() const {
  return peer_->state.enabled;
}

void Control::SetEnabled(bool enabled) {
  peer_->state.enabled = enabled;
  form_.BackEnd().LeaveUnfit();
}

bool Control::Visible() const {
  return peer_->state.visible;
}

void Control::SetVisible(bool visible) {
  peer_->state.visible = visible;
  form_.BackEnd().LeaveUnfit();
}

void Control::SetContainer(const Frame& container) {
  peer_->state.container = &container.BackEnd().state;
  form_.BackEnd().LeaveUnfit();
}

bool Control::HasFocus() const {
  return form_.BackEnd().order.Holder() == peer_.get();
}

void Control::SetFocus() {
  form_.BackEnd().GiveFocus(*peer_);
}

int Control::TabIndex() const {
  return form_.BackEnd().order.IndexOf(*peer_);
}

void Control::SetTabIndex(int index) {
  form_.BackEnd().order.SetIndex(*peer_, index);
}

void Control::SetFont(const Font& font) {
  peer_->state.font = font;
}

void Control::SetAnchors(unsigned anchors) {
  peer_->state.anchors = anchors;
}

}  // namespace controls
