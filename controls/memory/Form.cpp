#include "controls/Form.h"

#include <algorithm>

#include "controls/memory/ControlPeer.h"
#include "controls/memory/Events.h"
#include "controls/memory/FormPeer.h"

namespace controls {

void Form::Peer::Enter(Control& control) {
  controls_.push_back(&control);
  tabOrder_.push_back(&control);
}

void Form::Peer::Leave(Control& control) {
  std::erase(controls_, &control);
  std::erase(tabOrder_, &control);
  if (focus_ == &control) focus_ = nullptr;
}

bool Form::Peer::TakesInput() const {
  return visible && modalAbove == 0 && form.OwnerDesktop().BackEnd().inputHolds == 0;
}

void Form::Peer::Start() {
  loaded = true;
  visible = false;
  defaultButton = nullptr;
  cancelButton = nullptr;
  caption.clear();
  font = {};
  icon = 0;
  resizable = false;
  focus_ = nullptr;
  tabOrder_ = controls_;
  for (Control* const control : controls_) control->BackEnd().Start();
}

void Form::Peer::ShowNow() {
  if (visible) return;
  visible = true;
  StartFocus();
}

void Form::Peer::Destroy() {
  loaded = false;
  visible = false;
  focus_ = nullptr;
  if (modalOwner != nullptr) --modalOwner->BackEnd().modalAbove;
  modalOwner = nullptr;
  for (Control* const control : controls_) control->BackEnd().Start();
}

Form::Form(Desktop& desktop, int templateId)
    : desktop_(desktop), templateId_(templateId), peer_(std::make_unique<Peer>(*this)) {}

Form::~Form() {
  if (peer_->loaded) peer_->Destroy();
}

void Form::Load() {
  if (peer_->loaded) return;
  peer_->Start();
  RunGuarded(desktop_, [this] { Form_Load(); });
}

void Form::Show() {
  Load();
  if (peer_->loaded) peer_->ShowNow();
}

void Form::ShowModal(Form& owner) {
  Load();
  if (!peer_->loaded) return;
  peer_->modalOwner = &owner;
  ++owner.BackEnd().modalAbove;
  peer_->ShowNow();
  desktop_.HandleInput(*this);
}

void Form::Unload() {
  if (!peer_->loaded || peer_->unloading) return;
  peer_->unloading = true;
  bool cancel = false;
  RunGuarded(desktop_, [this, &cancel] { Form_Unload(cancel); });
  peer_->unloading = false;
  if (!cancel) peer_->Destroy();
}

bool Form::IsLoaded() const {
  return peer_->loaded;
}

bool Form::IsVisible() const {
  return peer_->visible;
}

std::wstring Form::Caption() const {
  return peer_->caption;
}

void Form::SetCaption(const std::wstring& caption) {
  peer_->caption = caption;
}

void Form::SetFont(const Font& font) {
  peer_->font = font;
  for (Control* const control : peer_->TabOrder()) control->SetFont(font);
}

void Form::SetIcon(int iconResource) {
  peer_->icon = iconResource;
}

void Form::SetDefaultButton(CommandButton& button) {
  peer_->defaultButton = &button;
}

void Form::SetCancelButton(CommandButton& button) {
  peer_->cancelButton = &button;
}

void Form::SetResizable(bool resizable) {
  peer_->resizable = resizable;
}

// Nothing is painted in memory, and what waits in the queue goes on waiting.
void Form::Repaint() {}

void Form::Form_Unload(bool&) {}
void Form::Form_KeyDown(int) {}
void Form::Form_KeyUp(int) {}

}  // namespace controls
