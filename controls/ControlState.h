#pragma once

#include <optional>
#include <string>

#include "controls/Control.h"

namespace controls {

// What a form has asked of one of its controls; replaced by a new one when the form is unloaded.
struct ControlState {
  // As far as the control itself and its containers say.
  bool IsEnabled() const { return enabled && (!container || container->IsEnabled()); }
  bool IsVisible() const { return visible && (!container || container->IsVisible()); }

  bool enabled = true;
  bool visible = true;
  const ControlState* container = nullptr;
  unsigned anchors = kAnchorLeft | kAnchorTop;
  std::optional<Font> font;  // one of its own
  std::wstring accessibleName;
  std::wstring whyDisabled;
};

// What both back ends know of a control; a back end's Control::Peer derives from it.
struct ControlModel {
  virtual bool TakesFocus() const { return true; }
  // A button is what Enter presses while it has the focus.
  virtual bool IsButton() const { return false; }
  // Control and Tab, or Page Down and Page Up: a row of tabs turns to the next one, or the one
  // before. False where the control has no tabs.
  virtual bool TurnTabs(bool /*backwards*/) { return false; }
  // Enter while the control has the focus. False where the form's default button is meant.
  virtual bool TakeEnter() { return false; }
  // The focus has come to the control, before GotFocus is raised.
  virtual void FocusGained() {}

  bool MayHaveFocus() const { return TakesFocus() && state.IsEnabled() && state.IsVisible(); }

  Control* control = nullptr;
  ControlState state;

 protected:
  ControlModel() = default;
  ~ControlModel() = default;
  ControlModel(const ControlModel&) = delete;
  ControlModel& operator=(const ControlModel&) = delete;
};

}  // namespace controls
