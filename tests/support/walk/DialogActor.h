#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>

#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "tests/support/controls/User.h"
#include "tests/support/walk/Dice.h"

namespace dialogs {
class frmAddUserInGroup;
class frmListItem;
class GroupDialog;
class UserDialog;
}  // namespace dialogs

namespace test_support {

// What stood in a dialog before the last gesture in it, the one that closed it at the latest.
struct DialogState {
  std::wstring name;
  std::wstring addition;          // full name or description
  std::set<std::int32_t> first;   // groups of a user, members of a group, items ticked
  std::set<std::int32_t> second;  // permissions
};

// Somebody who does anything in a dialog that its controls allow, and ends with it closed.
class DialogActor {
 public:
  // note is told of every gesture before it is made.
  DialogActor(User& user, Dice& dice, std::function<void(const std::string& step)> note)
      : user_(user), dice_(dice), note_(std::move(note)) {}

  void Act(controls::Form& form);
  // Of the dialog that was opened last from the main window.
  const DialogState& Last() const { return last_; }
  // While a dialog is to be left by all means: questions are answered with Yes then.
  bool Insists() const { return insists_; }

 private:
  void Gesture(controls::Form& form);
  bool PressSomeKey(controls::Form& form);
  void InUserDialog(dialogs::UserDialog& dialog);
  void InGroupDialog(dialogs::GroupDialog& dialog);
  void InAddUsers(dialogs::frmAddUserInGroup& dialog);
  void InListItem(dialogs::frmListItem& dialog);
  void Leave(controls::Form& form);
  void PressOk(controls::Form& form);
  void Remember(controls::Form& form);

  void Enter(controls::TextBox& box, const char* which, const std::wstring& text);
  void ToggleSome(controls::ListBox& list, const char* which);
  void ChooseSome(controls::ListBox& list, const char* which);
  void ClickSome(controls::CommandButton& button, const char* which);
  const wchar_t* SomeName();

  User& user_;
  Dice& dice_;
  std::function<void(const std::string& step)> note_;
  DialogState last_;
  int depth_ = 0;
  bool insists_ = false;
};

}  // namespace test_support
