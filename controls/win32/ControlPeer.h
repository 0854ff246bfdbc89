#pragma once

#include <string>

#include "controls/ControlState.h"
#include "controls/Events.h"
#include "controls/win32/Handles.h"
#include "controls/win32/WindowProcedure.h"

namespace controls {

// A control's own part of its native window. The window is there while the form is loaded; without
// it every call is harmless and every answer empty.
struct Control::Peer : ControlModel {
  Peer(Form& owner, int controlId) : form(owner), id(controlId) {}
  virtual ~Peer() = default;

  // --- What a kind of control may differ in ---

  // The window is there, in its first state, or is about to go.
  virtual void Attached() {}
  virtual void Detached() {}
  // The form has been loaded and laid out, and is about to be seen.
  virtual void Showing() {}
  // WM_COMMAND and WM_NOTIFY of the control; the latter's answer goes back to it.
  virtual void Command(int /*code*/) {}
  virtual LRESULT Notify(NMHDR& /*header*/) { return 0; }
  // Every message on its way to the control.
  virtual LRESULT Handle(const Message& message);
  // The form is now shown in another resolution.
  virtual void DpiChanged() {}
  // Buffers() answers otherwise.
  virtual void BufferingChanged() {}

  // --- The window ---

  void Attach(HWND native);
  void Detach();
  // The native control has been given the focus.
  LRESULT FocusArrived();
  LRESULT Send(UINT number, WPARAM wParam = 0, LPARAM lParam = 0) const;
  // Hands a message to the native control itself.
  LRESULT Native(const Message& message) const;
  std::wstring WindowText() const;
  void SetNativeText(const std::wstring& text) const;
  void ChangeStyle(LONG_PTR remove, LONG_PTR add) const;
  // Whether to paint into memory first: not where what is painted goes to another machine.
  bool Buffers() const;
  const Desktop& Surroundings() const { return form.OwnerDesktop(); }

  // --- State that a form asks for ---

  bool IsUsable() const { return window && state.IsEnabled() && state.IsVisible(); }
  // Whether a user can reach it: not while a modal form stands over its own.
  bool TakesInput() const;
  // Brings the native window to that state. True when that has shown or hidden it.
  bool ApplyState() const;
  void SetNativeFont(HFONT handle) const;
  // Makes the font asked for, in the form's present resolution.
  void RenewFont();

  Form& form;
  int id;
  HWND window = nullptr;
  FontHandle fontHandle;  // of the control's own font

 private:
  WNDPROC procedure_ = nullptr;  // the native control's own
};

// The native control of a form's control.
inline Control::Peer& PeerOf(const ControlModel& model) {
  return model.control->BackEnd();
}

}  // namespace controls
