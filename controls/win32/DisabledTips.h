#pragma once

#include <string>

#include "controls/win32/ControlPeer.h"

namespace controls {

// The tips that say why a form's buttons are disabled. The mouse passes through a disabled window
// to what lies below, so none of them has a tip of its own: one on the form follows the mouse from
// button to button.
class DisabledTips {
 public:
  explicit DisabledTips(Form::Peer& form) : form_(form) {}
  ~DisabledTips() { Forget(); }
  DisabledTips(const DisabledTips&) = delete;
  DisabledTips& operator=(const DisabledTips&) = delete;

  // A message on its way to the form or to one of its controls.
  void Preview(const MSG& message);
  // A button may be on now, or off for another reason.
  void Changed();
  // The form's window goes.
  void Forget();

 private:
  static LRESULT CALLBACK TooltipProcedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR tips);
  // The disabled control with something to say at a place on the screen; null for none.
  const Control::Peer* ControlAt(POINT place) const;
  void Hover(const Control::Peer* control);
  bool MakeTooltip();
  void SetTool(UINT message, const RECT& place, std::wstring text) const;

  Form::Peer& form_;
  WindowHandle tooltip_;
  const Control::Peer* hovered_ = nullptr;
  std::wstring shown_;
};

}  // namespace controls
