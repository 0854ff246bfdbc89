#include "controls/Form.h"

#include "controls/CommandButton.h"
#include "controls/Desktop.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {

Form::Form(Desktop& desktop, int templateId)
    : desktop_(desktop), templateId_(templateId), peer_(std::make_unique<Peer>(*this, desktop)) {}

Form::~Form() = default;

void Form::Load() {
  peer_->Load(nullptr);
}

void Form::Show() {
  Load();
  if (peer_->life.window) peer_->Show();
}

void Form::ShowModal(Form& owner) {
  peer_->Load(owner.BackEnd().life.window);
  if (!peer_->life.window) return;
  peer_->StandOver(owner.BackEnd());
  peer_->Show();
  desktop_.HandleInput(*this);
}

void Form::Unload() {
  if (!peer_->life.window || peer_->life.unloading) return;
  peer_->life.unloading = true;
  bool cancel = false;
  RunEventProcedure(desktop_, [&] { Form_Unload(cancel); });
  peer_->life.unloading = false;
  if (!cancel && peer_->life.window) peer_->Close();
}

bool Form::IsLoaded() const {
  return peer_->life.window != nullptr;
}

bool Form::IsVisible() const {
  return peer_->life.shown;
}

std::wstring Form::Caption() const {
  if (!peer_->life.window) return {};
  std::wstring caption(static_cast<std::size_t>(GetWindowTextLengthW(peer_->life.window)) + 1,
                       L'\0');
  caption.resize(
      GetWindowTextW(peer_->life.window, caption.data(), static_cast<int>(caption.size())));
  return caption;
}

void Form::SetCaption(const std::wstring& caption) {
  if (peer_->life.window) SetWindowTextW(peer_->life.window, caption.c_str());
}

void Form::SetFont(const Font& font) {
  peer_->SetFont(font);
}

void Form::SetIcon(int iconResource) {
  peer_->SetIcon(iconResource);
}

void Form::SetDefaultButton(CommandButton& button) {
  peer_->order.SetDefaultButton(button.BackEnd());
  peer_->focus.ShowDefaultButton();
}

void Form::SetCancelButton(CommandButton& button) {
  peer_->order.SetCancelButton(button.BackEnd());
}

void Form::SetResizable(bool resizable) {
  peer_->SetResizable(resizable);
}

void Form::KeepPlace(const std::wstring& name, Kept what) {
  if (peer_->life.window) peer_->life.memory = FormMemory(name, what);
}

void Form::Repaint() {
  if (!peer_->life.window) return;
  peer_->RepaintChanged();
  desktop_.BackEnd().PaintOnly(peer_->life.window);
}

void Form::Form_Unload(bool& /*cancel*/) {}
void Form::Form_KeyDown(int /*keyCode*/) {}
void Form::Form_KeyUp(int /*keyCode*/) {}

}  // namespace controls
