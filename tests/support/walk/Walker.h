#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "browser/frmUserGroupPerm.h"
#include "tests/support/controls/User.h"
#include "tests/support/data/RawDatabase.h"
#include "tests/support/recording/CallLog.h"
#include "tests/support/walk/DialogActor.h"
#include "tests/support/walk/Dice.h"
#include "tests/support/walk/Outcome.h"
#include "tests/support/walk/Tables.h"
#include "tests/support/walk/WantedTrees.h"

namespace test_support {

// An administrator who does at random whatever the main window and its dialogs allow, and now and
// then somebody else who changes the database meanwhile. After every step it is checked what stands
// in the trees, the buttons, the database and the statements sent. The window is started.
class Walker {
 public:
  Walker(browser::frmUserGroupPerm& window, User& user, CallLog& log,
         test_support::RawDatabase& raw, std::uint32_t seed);
  ~Walker();
  Walker(const Walker&) = delete;
  Walker& operator=(const Walker&) = delete;

  // One step with its checks.
  void Step();
  // What was done so far, a line each.
  const std::vector<std::string>& Steps() const { return steps_; }
  // The commands that have changed the database, each as "tree section index".
  const std::set<std::string>& Written() const { return written_; }

 private:
  using Nodes = controls::TreeNodes;

  // What a person does (WalkerSteps.cpp).
  void ChooseTab();
  void SelectSome();
  void ToggleSome();
  void ClickSome();
  void PressSomeKey();
  void AskForMenu();
  void Refresh(bool byKey);
  void SomebodyElse();
  int SomeNode();
  std::vector<controls::CommandButton*> Buttons(int tree);
  static Command CommandOf(int place);
  static std::optional<Command> CommandOfDelete(const Target& target);
  static std::optional<Command> CommandOfMenuLine(std::size_t line);

  // What follows from it (WalkerOutcome.cpp).
  void StartCommand();
  void Follow(const Command& command);
  bool HandedBack() const;
  void FollowAccount(const Command& command, const Tables& now);
  void FollowLink(const Command& command, const Tables& now);
  void FollowEdit(const Tables& now);
  void FollowRemoval(int folder, const Tables& now);
  void ReadFolders(std::initializer_list<int> folders, const Tables& now);
  bool Existed(int folder) const;
  void CheckWritten(const Command& command, const Tables& now);

  // The checks (WalkerChecks.cpp).
  void Check(bool command);
  void CheckTrees() const;
  void CheckWantedDifferences(const Tables& now);
  void CheckOrder(int tree) const;
  void CheckButtons(int tree);
  void CheckSelection() const;
  void CheckProtected(const Tables& now) const;
  void CheckStatements();
  void CheckStatus(const Tables& now) const;
  void CheckKept() const;
  std::string WantedButtons(int tree) const;

  void Note(const std::string& step) { steps_.push_back(step); }
  void DeleteBehind(const controls::Form& form);
  int AnswerBox(const std::wstring& prompt, int style);
  int Tab() const { return window_.TabStrip1.SelectedTab(); }
  const Nodes& NodesOf(int tree) const { return window_.TreeView1[tree].Nodes(); }
  std::wstring SelectedKey(int tree) const;
  // The keys of the nodes that are open and have children.
  std::set<std::wstring> OpenKeys(int tree) const;
  std::set<std::wstring> ClosedKeys(int tree) const;

  browser::frmUserGroupPerm& window_;
  User& user_;
  CallLog& log_;
  test_support::RawDatabase& raw_;
  Dice dice_;
  DialogActor actor_;
  WantedTrees wanted_;
  std::vector<std::string> steps_;
  std::set<std::string> written_;

  // The differences from a refresh that are meant to be, by the keys of their nodes.
  std::set<std::wstring> meant_;
  bool foreign_ = false;  // somebody else has changed something since the last refresh

  // Of the command at hand.
  Target target_;
  Tables before_;
  std::set<std::wstring> open_[2];
  std::set<std::wstring> closed_[2];
  std::wstring selected_[2];
  bool confirmed_ = false;  // the command's own question was answered with Yes
  bool reported_ = false;   // an error was reported
  bool told_ = false;       // that somebody else was faster
  bool dialog_ = false;     // a dialog was shown
};

}  // namespace test_support
