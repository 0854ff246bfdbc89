#pragma once

#include <initializer_list>
#include <set>
#include <string>

#include "tests/support/walk/Command.h"
#include "tests/support/walk/Expected.h"
#include "tests/support/walk/Walk.h"

namespace test_support {

// One command, from what was there before it to what it has to leave behind in the database and in
// the expected state.
class CommandRun {
 public:
  CommandRun(Walk& walk, Expected& expected, const DialogActor& actor)
      : walk_(walk), expected_(expected), actor_(actor) {}

  // Before the gesture that gives the command.
  void Begin();
  // After it. Compares the database with what the dialog held, and brings the expected state
  // forward.
  void Finish(const Command& command);
  // Somebody else has changed the database, maybe while the command's dialog is open.
  void ReadDatabase() { before_ = ReadTables(walk_.raw); }

  // What happens in between.
  void DialogShown() { dialog_ = true; }
  void Answered(bool yes) { confirmed_ = yes; }
  void ToldOfAnother() { told_ = true; }
  // Asked whether the session's user is to lose his own right to the program.
  void AnsweredOwnAccess(bool yes);
  // Only a name that breaks the statement may fail.
  void Reported(const std::wstring& report);

  const Target& At() const { return target_; }
  bool HasDialog() const { return dialog_; }
  // Neither a dialog was shown nor a question answered by Yes.
  bool DidNothing() const { return !dialog_ && !confirmed_; }

  // A command leaves open what is open, closed what is closed, and selected what is selected, as
  // far as it is still there.
  void CheckKept() const;
  // The commands that have changed the database, by name.
  const std::set<std::string>& Written() const { return written_; }

 private:
  bool HasHandedBack() const;
  void CheckOwnAccess(const Tables& now) const;
  void ExpectToBeTold(const Command& command);
  void CheckWritten(const Command& command, const Tables& now) const;
  void FinishAccount(const Command& command, const Tables& now);
  void FinishNew(const Tables& now);
  void FinishEdit(const Tables& now);
  void FinishEditOfAdmin(const Tables& now);
  void FinishLink(const Command& command, const Tables& now);
  void FinishRemoval(int folder, const Tables& now);
  void RemoveAccount(const Tables& now);
  void ReadFolders(std::initializer_list<int> folders, const Tables& now);
  bool Existed(int folder) const;

  Walk& walk_;
  Expected& expected_;
  const DialogActor& actor_;
  std::set<std::string> written_;

  Target target_;
  Tables before_;
  Walk::KeySet open_[2];
  Walk::KeySet closed_[2];
  std::wstring selected_[2];
  bool confirmed_ = false;  // the command's own question was answered with Yes
  bool reported_ = false;   // an error was reported
  bool told_ = false;       // that somebody else was faster
  bool warned_ = false;     // of the loss of one's own right, and went on
  bool dialog_ = false;     // a dialog was shown
};

}  // namespace test_support
