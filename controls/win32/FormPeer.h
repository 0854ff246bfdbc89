#pragma once

#include <optional>
#include <vector>

#include "controls/Form.h"
#include "controls/win32/DisabledTips.h"
#include "controls/win32/FormBackground.h"
#include "controls/win32/FormFocus.h"
#include "controls/win32/FormKeys.h"
#include "controls/win32/FormLayout.h"
#include "controls/win32/FormMemory.h"
#include "controls/win32/Handles.h"

namespace controls {

// The form's own part of its native window, a modeless dialog made from the template.
struct Form::Peer {
  // All that ends when the form is unloaded; a new one takes its place.
  struct Life {
    HWND window = nullptr;
    unsigned dpi = USER_DEFAULT_SCREEN_DPI;
    bool shown = false;
    bool unloading = false;
    HWND ownerWindow = nullptr;  // of the form that this one stands over
    FormMemory memory;
    FormLayout layout;
    FormBackground background;
    RECT changed = {};  // where controls have been shown or hidden, and not painted since
    bool resizable = false;
    int icon = 0;
    IconHandle bigIcon;
    IconHandle smallIcon;
    std::optional<Font> font;
    FontHandle fontHandle;
    HFONT templateFont = nullptr;
    unsigned templateDpi = USER_DEFAULT_SCREEN_DPI;
  };

  Peer(Form& owner, Desktop& surroundings);
  ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  void Add(Control::Peer& control);
  void Remove(Control::Peer& control);

  // --- Life (FormPeer.cpp) ---
  // Over the window of the form that this one is to stand over; null for none. Does nothing when
  // the form is loaded.
  void Load(HWND below);
  void Show();
  // The form stands over another, which takes no input until this one is unloaded.
  void StandOver(Peer& below);
  // Takes the window away; it ends when no message of it is being handled any more.
  void Close();

  // --- State ---
  // Whether a user can reach the form: it is shown, nothing modal stands over it and the program
  // does not merely paint in the middle of long work.
  bool TakesInput() const;
  // Brings every control to the state asked for, and the focus to where it may be.
  void ApplyStates();
  // Has what was shown or hidden painted. While a message is being handled that waits for its end,
  // so that what changes together is painted once; whoever runs a message loop meanwhile calls it
  // first.
  void RepaintChanged();
  // A tab strip looks different from now on.
  void LookChanged();
  void SetFont(const Font& wanted);
  void SetIcon(int iconResource);
  void SetResizable(bool wanted);

  // --- Messages (FormMessages.cpp) ---
  INT_PTR Handle(const Message& message);

  // Stands on the stack while a message of the form or of one of its controls is handled.
  class MessageScope {
   public:
    explicit MessageScope(Peer& form) : form_(form) { ++form_.scopes_; }
    ~MessageScope();
    MessageScope(const MessageScope&) = delete;
    MessageScope& operator=(const MessageScope&) = delete;

   private:
    Peer& form_;
  };

  Form& form;
  Desktop& desktop;
  Life life;
  std::vector<Control::Peer*> controls;
  TabOrder order;
  FormFocus focus;
  FormKeys keys;
  DisabledTips tips{*this};

 private:
  void Create(HWND below);
  // Puts the window where it is to be shown first. True when it is to be maximised.
  bool TakePlace() const;
  void AttachControls();
  void ApplyFont();
  void DropWindows();
  void RepaintLater(const RECT* area) const;

  // Null where the window is not one of the form's controls.
  Control::Peer* ControlOf(HWND native) const;
  INT_PTR Answer(LRESULT result) const;
  INT_PTR Command(const Message& message);
  INT_PTR Notify(const Message& message);
  INT_PTR Activate(bool active);
  INT_PTR SetPointer(const Message& message);
  INT_PTR MayEndSession();
  void SessionEnds(bool ends);
  void EndLife();
  void LimitSize(MINMAXINFO& limits) const;
  void Resized(WPARAM kind);
  void ColoursChanged(const Message& message);
  void SessionMoved(WPARAM event);
  void DpiChanged(unsigned newDpi, const RECT& place);

  int scopes_ = 0;
  bool answers_ = false;      // a window that is over still has to hand over an answer
  std::vector<Life> closed_;  // lives that are over, whose windows end with the last scope
};

}  // namespace controls
