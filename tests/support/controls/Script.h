#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <source_location>
#include <string>
#include <vector>

#include "controls/PopupMenu.h"

namespace controls {
class Form;
}

namespace test_support {

using Where = std::source_location;

// A message box that a test expects. What is left empty is not compared.
struct ExpectedBox {
  int answer = 0;
  std::optional<std::wstring> prompt = {};
  std::optional<int> style = {};
  std::optional<std::wstring> title = {};
};

// Sees the lines of a popup menu and gives the command that is chosen, 0 for none.
using MenuAnswer = std::function<int(const std::vector<controls::MenuItem>& items)>;

// A message box that has appeared, with the answer it was given.
struct SeenBox {
  std::wstring prompt;
  int style = 0;
  std::wstring title;
  int answer = 0;
};

// The answers that a test has prepared for message boxes, menus and modal forms, each kind in its
// own order. What appears unannounced and what does not appear fails the test.
class Script {
 public:
  using FormScript = std::function<void(controls::Form&)>;

  // discard takes a form away without asking it.
  explicit Script(std::function<void(controls::Form&)> discard);

  void ExpectBox(ExpectedBox box, Where where);
  void ExpectMenu(MenuAnswer answer, Where where);
  void ExpectModal(FormScript script, Where where);

  // The answer to a box that has appeared.
  int AnswerBox(const std::wstring& prompt, int style, const std::wstring& title);
  // The command chosen from a menu that has appeared.
  int AnswerMenu(const std::vector<controls::MenuItem>& items);
  // Runs the next form script on a form that has become modal, and sees to it that the form is
  // unloaded afterwards.
  void RunModal(controls::Form& form);

  const std::vector<SeenBox>& SeenBoxes() const { return seen_; }
  // Fails the test for everything that is still expected, and forgets it.
  void FailLeftovers();

 private:
  struct WaitingBox {
    ExpectedBox box;
    Where where;
  };
  struct WaitingMenu {
    MenuAnswer answer;
    Where where;
  };
  struct WaitingForm {
    FormScript script;
    Where where;
  };

  void Compare(const WaitingBox& expected, const SeenBox& seen);

  std::function<void(controls::Form&)> discard_;
  std::deque<WaitingBox> boxes_;
  std::deque<WaitingMenu> menus_;
  std::deque<WaitingForm> forms_;
  std::vector<SeenBox> seen_;
};

}  // namespace test_support
