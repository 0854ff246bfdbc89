#include "controls/CommandButton.h"

#include "controls/memory/ControlPeer.h"
#include "controls/memory/Events.h"

namespace controls {
namespace {

struct CommandButtonPeer : Control::Peer {
  bool TakesFocus() const override { return true; }
  bool TakesEnter() const override { return true; }
  void PressEnter(Control& control) override {
    Raise(control.Owner(), static_cast<CommandButton&>(control).Click);
  }
  void PressSpace(Control& control) override { PressEnter(control); }
  std::wstring MarkedCaption() const override { return caption; }

  std::wstring caption;

 protected:
  void StartKind() override { caption.clear(); }
};

}  // namespace

CommandButton::CommandButton(Form& form, int id)
    : Control(form, id, std::make_unique<CommandButtonPeer>()) {}

std::wstring CommandButton::Caption() const {
  return PeerOf<CommandButtonPeer>(*this).caption;
}

void CommandButton::SetCaption(const std::wstring& caption) {
  PeerOf<CommandButtonPeer>(*this).caption = caption;
}

}  // namespace controls
