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
  return peer_->enabled;
}

void Control::SetEnabled(bool enabled) {
  if (peer_->enabled == enabled) return;
  peer_->enabled = enabled;
  form_.BackEnd().ShowStates();
}

bool Control::Visible() const {
  return peer_->visible;
}

void Control::SetVisible(bool visible) {
  if (peer_->visible == visible) return;
  peer_->visible = visible;
  form_.BackEnd().ShowStates();
}

void Control::SetContainer(const Frame& container) {
  peer_->container = &container.BackEnd();
  form_.BackEnd().ShowStates();
}

bool Control::HasFocus() const {
  return form_.BackEnd().focus.Holder() == peer_.get();
}

void Control::SetFocus() {
  if (peer_->MayHaveFocus()) form_.BackEnd().focus.Give(*peer_);
}

int Control::TabIndex() const {
  return form_.BackEnd().focus.IndexOf(*peer_);
}

void Control::SetTabIndex(int index) {
  form_.BackEnd().focus.SetIndex(*peer_, index);
}

void Control::SetFont(const Font& font) {
  peer_->font = font;
  peer_->RenewFont();
}

void Control::SetAnchors(unsigned anchors) {
  peer_->anchors = anchors;
}

}  // namespace controls
