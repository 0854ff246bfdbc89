#pragma once

#include <memory>
#include <string>

#include "controls/Control.h"
#include "controls/NodeId.h"

namespace controls {
class CommandButton;
class ListBox;
class ListView;
class TabStrip;
class TextBox;
class TreeView;
}  // namespace controls

namespace test_support {

class Script;
class ScriptedDesktop;

// What a user does with mouse and keyboard: one source for each back end, the only part of User
// that differs. A gesture is over, with everything it set off, when its function returns. It
// returns false, and has done nothing, where a user could not make it: the control or its container
// is disabled or hidden, the form is not shown or a modal form stands over it, the item or node is
// not there.
class UserInput {
 public:
  // The script already answers for the desktop's system; a back end may put other answers in its
  // place and have the real thing answered by the script.
  UserInput(ScriptedDesktop& desktop, Script& script);
  ~UserInput();
  UserInput(const UserInput&) = delete;
  UserInput& operator=(const UserInput&) = delete;

  // Each of them gives the focus to the control first, as the mouse does; a text box that had it
  // already keeps its selection.
  bool Click(controls::CommandButton& button);
  bool Focus(controls::Control& control);
  bool Type(controls::TextBox& box, const std::wstring& text);
  // Letters in a list move to the item whose text begins with them.
  bool Type(controls::ListBox& list, const std::wstring& text);
  bool Paste(controls::TextBox& box, const std::wstring& text);
  bool Choose(controls::ListBox& list, int item);
  bool Toggle(controls::ListBox& list, int item);
  bool DoubleClick(controls::ListBox& list, int item);
  // The same on a row of a list view, by its place among those on view.
  bool Choose(controls::ListView& list, int place);
  bool Toggle(controls::ListView& list, int place);
  bool DoubleClick(controls::ListView& list, int place);
  bool ClickHeading(controls::ListView& list, int column);
  bool ChooseTab(controls::TabStrip& tabs, int tab);
  bool Select(controls::TreeView& tree, controls::NodeId node);
  bool DoubleClick(controls::TreeView& tree, controls::NodeId node);
  bool RightClick(controls::TreeView& tree, controls::NodeId node);
  bool Expand(controls::TreeView& tree, controls::NodeId node);
  bool Collapse(controls::TreeView& tree, controls::NodeId node);

  // Shift+F10 in a tree that has the focus.
  bool PressMenuKey(controls::TreeView& tree);
  // A key with the Control key held.
  bool PressCtrl(controls::Form& form, int keyCode);
  // Without a focused control the key goes to the form alone. False where the form takes no input.
  bool PressKey(controls::Form& form, int keyCode, bool shift = false);
  // False also where nothing answers to the letter.
  bool Mnemonic(controls::Form& form, wchar_t letter);
  bool Close(controls::Form& form);

  // A click that waits until the program handles input.
  void ClickLater(controls::CommandButton& button);
  // Handles what waits.
  void Settle();

  // What a user sees of a control, without touching anything.
  bool CanUse(const controls::Control& control) const;
  std::wstring TipOf(controls::TreeView& tree, controls::NodeId node) const;
  std::wstring TipOf(const controls::CommandButton& button) const;
  controls::Font FontOf(const controls::Control& control) const;
  controls::Font FontOf(const controls::Form& form) const;
  bool HasIcon(const controls::Form& form) const;

  // Takes a form away without asking it, so that a failing test comes to its end.
  void Discard(controls::Form& form);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace test_support
