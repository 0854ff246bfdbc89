#include "controls/Control.h"

#include "controls/Frame.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {

Control::Control(Form& form, int id, std::unique_ptr<Peer> peer)
    : form_(form), id_(id), peer_(std::move(peer)) {
  peer_->control = this;
  form_.BackEnd().Add(*peer_);
}

Control::~Control() {
  peer_->Detach();
  form_.BackEnd().Remove(*peer_);
}

bool Control::Enabled() const {
  return peer_->state.enabled;
}

void Control::SetEnabled(bool enabled) {
  if (peer_->state.enabled == enabled) return;
  peer_->state.enabled = enabled;
  form_.BackEnd().ApplyStates();
}

bool Control::Visible() const {
  return peer_->state.visible;
}

void Control::SetVisible(bool visible) {
  if (peer_->state.visible == visible) return;
  peer_->state.visible = visible;
  form_.BackEnd().ApplyStates();
}

void Control::SetContainer(const Frame& container) {
  peer_->state.container = &container.BackEnd().state;
  form_.BackEnd().ApplyStates();
}

bool Control::HasFocus() const {
  return form_.BackEnd().order.Holder() == peer_.get();
}

void Control::SetFocus() {
  if (peer_->window && peer_->MayHaveFocus()) form_.BackEnd().focus.Give(*peer_);
}

int Control::TabIndex() const {
  return form_.BackEnd().order.IndexOf(*peer_);
}

void Control::SetTabIndex(int index) {
  form_.BackEnd().order.SetIndex(*peer_, index);
}

void Control::SetFont(const Font& font) {
  peer_->state.font = font;
  peer_->RenewFont();
}

void Control::SetAnchors(unsigned anchors) {
  peer_->state.anchors = anchors;
}

}  // namespace controls
