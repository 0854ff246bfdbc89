#include "controls/Control.h"

#include <utility>

#include "controls/Frame.h"
#include "controls/memory/ControlPeer.h"
#include "controls/memory/FormPeer.h"

namespace controls {

void Control::Peer::Start() {
  enabled = true;
  visible = true;
  container = nullptr;
  font = {};
  anchors = kAnchorLeft | kAnchorTop;
  StartKind();
}

bool Control::Peer::Shown() const {
  return visible && (container == nullptr || container->BackEnd().Shown());
}

bool Control::Peer::Usable() const {
  return enabled && visible && (container == nullptr || container->BackEnd().Usable());
}

Control::Control(Form& form, int id, std::unique_ptr<Peer> peer)
    : form_(form), id_(id), peer_(std::move(peer)) {
  form_.BackEnd().Enter(*this);
}

Control::~Control() {
  form_.BackEnd().Leave(*this);
}

bool Control::Enabled() const {
  return peer_->enabled;
}

void Control::SetEnabled(bool enabled) {
  peer_->enabled = enabled;
  form_.BackEnd().KeepFocusUsable();
}

bool Control::Visible() const {
  return peer_->visible;
}

void Control::SetVisible(bool visible) {
  peer_->visible = visible;
  form_.BackEnd().KeepFocusUsable();
}

void Control::SetContainer(const Frame& container) {
  peer_->container = &container;
  form_.BackEnd().KeepFocusUsable();
}

bool Control::HasFocus() const {
  return form_.BackEnd().Focused() == this;
}

void Control::SetFocus() {
  form_.BackEnd().SetFocus(*this);
}

int Control::TabIndex() const {
  return form_.BackEnd().TabIndexOf(*this);
}

void Control::SetTabIndex(int index) {
  form_.BackEnd().MoveInTabOrder(*this, index);
}

void Control::SetFont(const Font& font) {
  peer_->font = font;
}

void Control::SetAnchors(unsigned anchors) {
  peer_->anchors = anchors;
}

}  // namespace controls
