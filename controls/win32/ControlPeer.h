#pragma once

#include <optional>
#include <string>

#include "controls/Control.h"
#include "controls/Form.h"
#include "controls/win32/Handles.h"
#include "controls/win32/Thunk.h"

namespace controls {

// A control's own part of its native window. The window is there while the form is loaded; without
// it every call is harmless and every answer empty.
struct Control::Peer {
  Peer(Form& owner, int controlId) : form(owner), id(controlId) {}
  virtual ~Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  // --- What a kind of control may differ in ---

  // The window is there, in its first state, or is about to go.
  virtual void Attached() {}
  virtual void Detached() {}
  // The form has been loaded and laid out, and is about to be seen.
  virtual void Showing() {}
  virtual void FocusGained() {}
  virtual bool TakesFocus() const { return true; }
  // A button is what Enter presses while it has the focus.
  virtual bool IsButton() const { return false; }
  // WM_COMMAND and WM_NOTIFY of the control; the latter's answer goes back to it.
  virtual void Command(int /*code*/) {}
  virtual LRESULT Notify(NMHDR& /*header*/) { return 0; }
  // Every message on its way to the control.
  virtual LRESULT Handle(const Message& message);
  // The form is now shown in another resolution.
  virtual void DpiChanged() {}

  // --- The window ---

  void Attach(HWND native);
  void Detach();
  // The native control has been given the focus.
  LRESULT FocusArrived();
  LRESULT Send(UINT number, WPARAM wParam = 0, LPARAM lParam = 0) const;
  // Hands a message to the native control itself.
  LRESULT Native(const Message& message) const;
  std::wstring WindowText() const;
  void ShowText(const std::wstring& text) const;
  void ChangeStyle(LONG_PTR remove, LONG_PTR add) const;
  const Desktop& Surroundings() const { return form.OwnerDesktop(); }
  // Raises an event, unless nobody listens or the form is unloaded.
  template <typename Event, typename... Arguments>
  void Raise(const Event& event, Arguments&&... arguments) const {
    if (event && window) Guarded(Surroundings(), [&] { event(arguments...); });
  }

  // --- State that a form asks for ---

  // Enabled and visible as far as the control itself and its containers say.
  bool IsEnabled() const { return enabled && (!container || container->IsEnabled()); }
  bool IsVisible() const { return visible && (!container || container->IsVisible()); }
  bool IsUsable() const { return window && IsEnabled() && IsVisible(); }
  bool MayHaveFocus() const { return TakesFocus() && IsUsable(); }
  // Whether a user can reach it: not while a modal form stands over its own.
  bool TakesInput() const;
  // Brings the native window to that state. True when that has shown or hidden it.
  bool ShowState() const;
  void SetNativeFont(HFONT handle) const;
  // Makes the font asked for anew, in the form's resolution.
  void RenewFont();

  Form& form;
  int id;
  Control* control = nullptr;
  HWND window = nullptr;
  bool enabled = true;
  bool visible = true;
  const Peer* container = nullptr;
  unsigned anchors = kAnchorLeft | kAnchorTop;
  std::optional<Font> font;
  FontHandle fontHandle;

 private:
  WNDPROC procedure_ = nullptr;  // the native control's own
};

}  // namespace controls
