#pragma once

#include <memory>
#include <string>

#include "controls/Control.h"

namespace controls {

class CommandButton;
class Desktop;

// Virtual key codes that forms handle; the values are those of Windows.
enum KeyCode : int {
  kKeyBack = 8,
  kKeyReturn = 13,
  kKeyEscape = 27,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyF1 = 112,
  kKeyF2 = 113,
  kKeyF5 = 116,
  // Added to the code of a key that goes down while the Control key is held, and Alt is not: the
  // two of them type characters.
  kKeyControl = 0x100,
};

// A window made from a dialog template. Life: constructed, public properties set by the caller,
// loaded (the window exists, Form_Load has run), shown, unloaded (Form_Unload has run and not
// refused, the window is gone). An object can be loaded again after it was unloaded.
class Form {
 public:
  struct Peer;

  // templateId names the dialog template in the resources.
  Form(Desktop& desktop, int templateId);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Makes the window and runs Form_Load, which may already unload the form. Does nothing when the
  // form is loaded.
  void Load();
  // Loads if need be, and shows the form unless its load unloaded it. The focus goes to the control
  // that asked for it, else to the first in the tab order that takes it.
  void Show();
  // The same, with the owner disabled until this form is unloaded; returns then.
  void ShowModal(Form& owner);
  // Asks Form_Unload first; does nothing when the form is not loaded or refuses. The controls raise
  // no events as they go.
  void Unload();
  bool IsLoaded() const;
  bool IsVisible() const;

  std::wstring Caption() const;
  void SetCaption(const std::wstring& caption);
  // Sets the font of the form and of every control in it.
  void SetFont(const Font& font);
  // The icon of the caption and of the task bar.
  void SetIcon(int iconResource);

  // The buttons that Enter and Escape press, without moving the focus. A focused button takes Enter
  // for itself. Without a cancel button Escape does nothing.
  void SetDefaultButton(CommandButton& button);
  void SetCancelButton(CommandButton& button);

  // Lets the user resize the form, never below the size of its template.
  void SetResizable(bool resizable);

  // Lets the form be as large, or stand where and as large, as it was when it was last closed, in
  // this run or an earlier one; to be called in its load. It is kept under the name (see
  // System::Setting), and only where the user has changed it.
  enum class Kept { kSize, kPlace };
  void KeepPlace(const std::wstring& name, Kept what);

  // Paints what waits to be painted and lets the system see that the program is alive, without
  // letting any input through. For use in the middle of long work.
  void Repaint();

  Desktop& OwnerDesktop() const { return desktop_; }
  int TemplateId() const { return templateId_; }
  Peer& BackEnd() const { return *peer_; }

  // The event procedures of a form. The back ends call them; an exception that escapes one of them,
  // or an event of a control, goes to Desktop::EscapedError and what raised the event goes on.
  virtual void Form_Load() {}
  // Setting cancel keeps the form loaded.
  virtual void Form_Unload(bool& cancel);
  // Keys reach the form before the control that has the focus.
  virtual void Form_KeyDown(int keyCode);
  virtual void Form_KeyUp(int keyCode);

  // Why the user's session should not end now, for him to read: what he has changed would be lost.
  // Empty while there is nothing to lose.
  virtual std::wstring UnsavedChanges() const { return {}; }

 private:
  Desktop& desktop_;
  int templateId_;
  std::unique_ptr<Peer> peer_;
};

}  // namespace controls
