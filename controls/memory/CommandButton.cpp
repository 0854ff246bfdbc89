#include "controls/CommandButton.h"

#include "controls/Events.h"
#include "controls/memory/ControlPeer.h"

namespace controls {
namespace {

struct CommandButtonPeer : Control::Peer {
  bool IsButton() const override { return true; }
  void PressEnter() override {
    Raise(control->Owner(), static_cast<CommandButton&>(*control).Click);
  }
  void PressSpace() override { PressEnter(); }
  std::wstring MarkedCaption() const override { return caption; }

  std::wstring caption;

 protected:
  void RestartKind() override { caption.clear(); }
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

const std::wstring& CommandButton::AccessibleName() const {
  return BackEnd().state.accessibleName;
}

void CommandButton::SetAccessibleName(const std::wstring& name) {
  BackEnd().state.accessibleName = name;
}

const std::wstring& CommandButton::WhyDisabled() const {
  return BackEnd().state.whyDisabled;
}

void CommandButton::SetWhyDisabled(const std::wstring& why) {
  BackEnd().state.whyDisabled = why;
}

}  // namespace controls
