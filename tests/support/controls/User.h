#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/MsgBox.h"
#include "tests/support/controls/Script.h"
#include "tests/support/controls/UserInput.h"
#include "tests/support/system/ScriptedDesktop.h"

namespace test_support {

// Keys by their Windows codes, for PressKey; the function keys stand in controls/Form.h.
enum Key : int {
  kKeyTab = 9,
  kKeyEnter = 13,
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyInsert = 45,
  kKeyA = 65,
  kKeyC = 67,
};

// A call of the help viewer.
struct HelpCall {
  std::wstring file;
  int topic = 0;
  int formTemplateId = 0;
};

// The user in front of a desktop. A test makes one on its Desktop before any form and calls what a
// person would do. Every gesture has run to its end, events and modal forms included, when it
// returns: announce what it will bring up (ExpectMsgBox, ExpectMenu, ExpectModal) before it. A
// gesture that a person could not make, on a disabled or hidden control or behind a modal form,
// fails the test; by way of Try() it answers instead, and leaves everything as it was when it says
// false.
//
// What is the same for both back ends stands in User.cpp and Script.cpp, what differs in UserInput.
class User {
 public:
  explicit User(ScriptedDesktop& desktop);
  // Fails the test when a box or a form that was announced has not appeared.
  ~User();
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // --- Gestures ---

  // The gestures as attempts: user.Try().Click(button) says whether a person could do that.
  UserInput& Try() { return *input_; }

  void Click(controls::CommandButton& button, Where where = Where::current());
  void Focus(controls::Control& control, Where where = Where::current());

  // The characters pass KeyPress one by one and replace the selection: all of the text when the box
  // gets the focus by this. '\b' is the backspace key.
  void Type(controls::TextBox& box, const std::wstring& text, Where where = Where::current());
  // Letters typed in a list, quickly one after the other.
  void Type(controls::ListBox& list, const std::wstring& text, Where where = Where::current());
  // A text at once from the clipboard, past KeyPress.
  void Paste(controls::TextBox& box, const std::wstring& text, Where where = Where::current());

  // A click on an item's text: selects it alone in a plain or multi-select list, and moves the
  // list's focus there in a check list.
  void Choose(controls::ListBox& list, int item, Where where = Where::current());
  // Changes an item's check in a check list, its selection alone in a multi-select list.
  void Toggle(controls::ListBox& list, int item, Where where = Where::current());
  void DoubleClick(controls::ListBox& list, int item, Where where = Where::current());

  // The same on a row of a list view, by its place among those on view; Toggle with the Control
  // key held. A click on a heading sorts.
  void Choose(controls::ListView& list, int place, Where where = Where::current());
  void Toggle(controls::ListView& list, int place, Where where = Where::current());
  void DoubleClick(controls::ListView& list, int place, Where where = Where::current());
  void ClickHeading(controls::ListView& list, int column, Where where = Where::current());

  void ChooseTab(controls::TabStrip& tabs, int tab, Where where = Where::current());

  // Opens the closed nodes above first, as a person has to, and clicks the node.
  void Select(controls::TreeView& tree, controls::NodeId node, Where where = Where::current());
  // Opens the closed nodes above first; fails on a node that is open or has no children.
  void Expand(controls::TreeView& tree, controls::NodeId node, Where where = Where::current());
  void Collapse(controls::TreeView& tree, controls::NodeId node, Where where = Where::current());

  // Twice on the node's text, after the same.
  void DoubleClick(controls::TreeView& tree, controls::NodeId node, Where where = Where::current());
  // The right mouse button on the node's text, after the same.
  void RightClick(controls::TreeView& tree, controls::NodeId node, Where where = Where::current());
  // The keyboard's way to a menu, Shift+F10; the tree has the focus.
  void PressMenuKey(controls::TreeView& tree, Where where = Where::current());

  // Down and up again. Enter presses the focused button, else the default one; Escape the cancel
  // button; Tab moves the focus; Space toggles the item that has a check list's focus, presses the
  // focused button or types a blank. All reach the form's key procedures first.
  void PressKey(controls::Form& form, int keyCode, Where where = Where::current());
  void PressShiftTab(controls::Form& form, Where where = Where::current());
  // A key with the Control key held: kKeyC or kKeyInsert copies in a tree or list view that has the
  // focus, kKeyA selects all in a list view, kKeyTab or a page key turns the tabs.
  void PressCtrl(controls::Form& form, int keyCode, Where where = Where::current());
  // Alt and a letter: presses the button, or focuses the control behind the label or frame, that
  // has the letter as its mnemonic. Hidden and disabled ones do not answer.
  void Mnemonic(controls::Form& form, wchar_t letter, Where where = Where::current());
  // The close box.
  void Close(controls::Form& form, Where where = Where::current());

  // Puts a click into the input queue, as an impatient user does while the program is busy: it
  // happens when the program next handles input, at the latest in Settle.
  void ClickLater(controls::CommandButton& button);
  void Settle();

  // --- What the user sees ---

  // Whether a person could work with the control now: it is enabled and on view, its container
  // included, and its form takes input.
  bool CanUse(const controls::Control& control) const { return input_->CanUse(control); }
  // What the mouse brings up over a node. A tip that only repeats a text that has no room is none.
  std::wstring TipOf(controls::TreeView& tree, controls::NodeId node) const {
    return input_->TipOf(tree, node);
  }
  // The same over a button.
  std::wstring TipOf(const controls::CommandButton& button) const { return input_->TipOf(button); }
  // What the program has put on the clipboard last.
  const std::wstring& Clipboard() const { return clipboard_; }
  // As last set; without that a back end's own default.
  controls::Font FontOf(const controls::Control& control) const { return input_->FontOf(control); }
  controls::Font FontOf(const controls::Form& form) const { return input_->FontOf(form); }
  // One of its own in the caption.
  bool HasIcon(const controls::Form& form) const { return input_->HasIcon(form); }

  // --- What is going to appear, in this order ---

  // The answer is a controls::MsgBoxResult.
  void ExpectMsgBox(int answer, Where where = Where::current());
  // Compares what is given as well: ExpectMsgBox({.answer = kResultYes, .prompt = L"..."}).
  void ExpectMsgBox(ExpectedBox box, Where where = Where::current());
  // The command is chosen from the next menu, 0 for none, which Escape does; or what sees the
  // menu's lines says which. A command that is not there or disabled fails the test.
  void ExpectMenu(int command, Where where = Where::current());
  void ExpectMenu(MenuAnswer answer, Where where = Where::current());
  // The script runs on the next form that is shown modally, or by Desktop::Run, and has to bring it
  // to its end. It may announce more itself.
  void ExpectModal(Script::FormScript script, Where where = Where::current());

  const std::vector<SeenBox>& SeenBoxes() const { return script_.SeenBoxes(); }

  // --- What the program finds around it ---

  // For a test that answers for the system itself.
  ScriptedSystem& System() { return desktop_.system; }

  void SetLcid(int lcid) { lcid_ = lcid; }
  // Without a closing backslash.
  void SetProgramFolder(const std::wstring& folder) { programFolder_ = folder; }
  void SetCommandLine(const std::wstring& commandLine) { commandLine_ = commandLine; }
  void SetHelpOutcome(controls::HelpOutcome outcome) { helpOutcome_ = outcome; }
  // Another program holds the clipboard, or lets go of it.
  void SetClipboardOccupied(bool occupied) { clipboardOccupied_ = occupied; }
  int BeepCount() const { return beepCount_; }
  const std::vector<HelpCall>& HelpCalls() const { return helpCalls_; }

 private:
  void PutAnswers();

  ScriptedDesktop& desktop_;
  Script script_;
  int lcid_ = 1036;
  std::wstring programFolder_ = L"C:\\Program Files\\User Administration";
  std::wstring commandLine_;
  controls::HelpOutcome helpOutcome_ = controls::HelpOutcome::kShown;
  int beepCount_ = 0;
  std::wstring clipboard_;
  bool clipboardOccupied_ = false;
  std::vector<HelpCall> helpCalls_;
  std::unique_ptr<UserInput> input_;
};

}  // namespace test_support
