#include "controls/Form.h"

#include "controls/CommandButton.h"
#include "controls/Events.h"
#include "controls/memory/DesktopPeer.h"
#include "controls/memory/FormPeer.h"

namespace controls {

bool Form::Peer::TakesInput() const {
  return life.visible && modalAbove == 0 && form.OwnerDesktop().BackEnd().inputHolds == 0;
}

void Form::Peer::Start() {
  Restart();
  life.loaded = true;
}

void Form::Peer::Restart() {
  life = {};
  order.Restart();
  for (ControlModel* const control : order.Order()) control->control->BackEnd().Restart();
}

void Form::Peer::Show() {
  if (life.visible) return;
  life.visible = true;
  order.MoveTo(order.TakeFirst());
}

void Form::Peer::Destroy() {
  if (life.modalOwner) --life.modalOwner->BackEnd().modalAbove;
  Restart();
}

void Form::Peer::GiveFocus(Control::Peer& control) {
  if (!life.loaded || !control.MayHaveFocus()) return;
  if (life.visible) {
    order.MoveTo(&control);
  } else {
    order.Want(control);
  }
}

void Form::Peer::LeaveUnfit() {
  if (order.HolderIsUnfit()) order.MoveTo(order.Next(order.Holder(), false));
}

Form::Form(Desktop& desktop, int templateId)
    : desktop_(desktop), templateId_(templateId), peer_(std::make_unique<Peer>(*this)) {}

Form::~Form() {
  if (peer_->life.loaded) peer_->Destroy();
}

void Form::Load() {
  if (peer_->life.loaded) return;
  peer_->Start();
  RunEventProcedure(desktop_, [this] { Form_Load(); });
}

void Form::Show() {
  Load();
  if (peer_->life.loaded) peer_->Show();
}

void Form::ShowModal(Form& owner) {
  Load();
  if (!peer_->life.loaded) return;
  peer_->life.modalOwner = &owner;
  ++owner.BackEnd().modalAbove;
  peer_->Show();
  desktop_.HandleInput(*this);
}

void Form::Unload() {
  if (!peer_->life.loaded || peer_->life.unloading) return;
  peer_->life.unloading = true;
  bool cancel = false;
  RunEventProcedure(desktop_, [this, &cancel] { Form_Unload(cancel); });
  peer_->life.unloading = false;
  if (!cancel) peer_->Destroy();
}

bool Form::IsLoaded() const {
  return peer_->life.loaded;
}

bool Form::IsVisible() const {
  return peer_->life.visible;
}

std::wstring Form::Caption() const {
  return peer_->life.caption;
}

void Form::SetCaption(const std::wstring& caption) {
  peer_->life.caption = caption;
}

void Form::SetFont(const Font& font) {
  peer_->life.font = font;
  for (ControlModel* const control : peer_->order.Order()) control->state.font.reset();
}

void Form::SetIcon(int iconResource) {
  peer_->life.icon = iconResource;
}

void Form::SetDefaultButton(CommandButton& button) {
  peer_->order.SetDefaultButton(button.BackEnd());
}

void Form::SetCancelButton(CommandButton& button) {
  peer_->order.SetCancelButton(button.BackEnd());
}

void Form::SetResizable(bool resizable) {
  peer_->life.resizable = resizable;
}

// In memory no form has a place.
void Form::KeepPlace(const std::wstring&, Kept) {}

// Nothing is painted in memory, and what waits in the queue goes on waiting.
void Form::Repaint() {}

void Form::Form_Unload(bool&) {}
void Form::Form_KeyDown(int) {}
void Form::Form_KeyUp(int) {}

}  // namespace controls
