#pragma once

#include <optional>
#include <vector>

#include "controls/Form.h"
#include "controls/win32/AnchorLayout.h"
#include "controls/win32/FormBackground.h"
#include "controls/win32/FormFocus.h"
#include "controls/win32/FormKeys.h"
#include "controls/win32/Handles.h"
#include "controls/win32/Thunk.h"

namespace controls {

// The form's own part of its native window, a modeless dialog made from the template.
struct Form::Peer {
  Peer(Form& owner, Desktop& surroundings);
  ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  void Add(Control::Peer& control);
  void Remove(Control::Peer& control);

  // --- Life (FormPeer.cpp) ---
  void Create();
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
  void ShowStates();
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
  class Frame {
   public:
    explicit Frame(Peer& form) : form_(form) { ++form_.frames_; }
    ~Frame();
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

   private:
    Peer& form_;
  };

  Form& form;
  Desktop& desktop;
  HWND window = nullptr;
  unsigned dpi = USER_DEFAULT_SCREEN_DPI;
  bool shown = false;
  bool unloading = false;
  Peer* owner = nullptr;
  std::vector<Control::Peer*> controls;
  FormFocus focus;
  FormKeys keys;

 private:
  void AttachControls();
  void CenterOver(HWND below) const;
  void ShowFont();
  void DropWindows();
  void RepaintLater(const RECT* area) const;

  // Null where the window is not one of the form's controls.
  Control::Peer* ControlOf(HWND native) const;
  INT_PTR Answer(LRESULT result) const;
  INT_PTR Command(const Message& message);
  INT_PTR Notify(const Message& message);
  INT_PTR Activate(bool active);
  INT_PTR SetPointer(const Message& message);
  void LimitSize(MINMAXINFO& limits) const;
  void Resized(WPARAM kind);
  void DpiChanged(unsigned newDpi, const RECT& place);

  AnchorLayout layout_;
  FormBackground background_;
  RECT changed_ = {};  // where controls have been shown or hidden, and not painted since
  bool resizable_ = false;
  int icon_ = 0;
  IconHandle bigIcon_;
  IconHandle smallIcon_;
  std::optional<Font> font_;
  FontHandle fontHandle_;
  HFONT templateFont_ = nullptr;
  unsigned templateDpi_ = USER_DEFAULT_SCREEN_DPI;
  int frames_ = 0;
  std::vector<WindowHandle> closed_;
};

}  // namespace controls
