#include "controls/CommandButton.h"

#include "controls/win32/Annotation.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

struct CommandButtonPeer : Control::Peer {
  using Peer::Peer;

  bool IsButton() const override { return true; }

  // Programs that drive the window may send a click to a button that no user could press.
  void Command(int code) override {
    if (code == BN_CLICKED && TakesInput())
      Raise(form, static_cast<CommandButton&>(*control).Click);
  }

  void Detached() override {
    name_.Reset();
    description_.Reset();
  }

  void ShowName() {
    if (window) name_.Set(window, CHILDID_SELF, state.accessibleName);
  }

  void ShowWhyDisabled() {
    if (!window) return;
    description_.Set(window, CHILDID_SELF, state.whyDisabled);
    form.BackEnd().tips.Changed();
  }

 private:
  Annotation name_{Annotation::Kind::kName};
  Annotation description_;
};

}  // namespace

CommandButton::CommandButton(Form& form, int id)
    : Control(form, id, std::make_unique<CommandButtonPeer>(form, id)) {}

std::wstring CommandButton::Caption() const {
  return BackEnd().WindowText();
}

void CommandButton::SetCaption(const std::wstring& caption) {
  BackEnd().SetNativeText(caption);
}

const std::wstring& CommandButton::AccessibleName() const {
  return BackEnd().state.accessibleName;
}

void CommandButton::SetAccessibleName(const std::wstring& name) {
  BackEnd().state.accessibleName = name;
  static_cast<CommandButtonPeer&>(BackEnd()).ShowName();
}

const std::wstring& CommandButton::WhyDisabled() const {
  return BackEnd().state.whyDisabled;
}

// A selection that moves from line to line leaves most reasons as they are.
void CommandButton::SetWhyDisabled(const std::wstring& why) {
  if (why == WhyDisabled()) return;
  BackEnd().state.whyDisabled = why;
  static_cast<CommandButtonPeer&>(BackEnd()).ShowWhyDisabled();
}

}  // namespace controls
