#pragma once

#include <functional>
#include <vector>

#include "tests/support/walk/Checks.h"
#include "tests/support/walk/CommandRun.h"
#include "tests/support/walk/Expected.h"
#include "tests/support/walk/ListActor.h"
#include "tests/support/walk/Walk.h"

namespace test_support {

// What a person does in the main window, and what somebody else does to the database meanwhile. An
// action makes its gesture, brings the expected state forward, and has everything checked.
class Actions {
 public:
  Actions(Walk& walk, Expected& expected, CommandRun& run, ListActor& lists, Checks& checks)
      : walk_(walk), expected_(expected), run_(run), lists_(lists), checks_(checks) {}

  // One of them by chance.
  void DoOne();

 private:
  // A new action is a function here and a line in the table of Actions.cpp.
  struct Action {
    int chance;  // how often, compared with the others
    void (Actions::*Do)();
  };
  static const std::vector<Action>& All();

  void ChooseTab();
  void SelectNode();
  void OpenOrCloseNode();
  void ClickButton();
  std::wstring WhyOff(const Command& command) const;
  void ExpectToBeTold(const std::wstring& why);
  void PressKey();
  void UseMenu();
  void FollowLeaf();
  void Duplicate();
  void Search();
  void Export();
  void ShowList();
  void RefreshByButton();
  void RefreshByKey();
  void ChangeFromOutside();

  controls::NodeId SomeNode();
  bool IsReachedFrom(const Target& leaf, int tree, const std::wstring& key) const;
  void FinishCommand(const Command& command);
  void FinishRefresh();
  void FinishExport();
  void FinishList();

  Walk& walk_;
  Expected& expected_;
  CommandRun& run_;
  ListActor& lists_;
  Checks& checks_;
};

}  // namespace test_support
