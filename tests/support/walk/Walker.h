#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/walk/Actions.h"
#include "tests/support/walk/Checks.h"
#include "tests/support/walk/CommandRun.h"
#include "tests/support/walk/DialogActor.h"
#include "tests/support/walk/Expected.h"
#include "tests/support/walk/ListActor.h"
#include "tests/support/walk/Walk.h"

namespace test_support {

// An administrator who does at random whatever the main window and its dialogs allow, and now and
// then somebody else who changes the database meanwhile. What he can do is in Actions, what has to
// come of it in CommandRun and Expected, and what is looked at after every step in Checks. The
// window is started.
class Walker {
 public:
  Walker(browser::frmUserGroupPerm& window, User& user, CallLog& log, RawDatabase& raw,
         std::uint32_t seed);
  ~Walker();
  Walker(const Walker&) = delete;
  Walker& operator=(const Walker&) = delete;

  // One action with its checks.
  void Step() { actions_.DoOne(); }
  // What was done so far, a line each.
  const std::vector<std::string>& Steps() const { return walk_.steps; }
  // Has somebody told of what somebody else does to the database.
  void WatchOutside(std::function<void(const std::string& statement)> watcher) {
    walk_.ChangedFromOutside = std::move(watcher);
  }
  // The commands that have changed the database, by name.
  const std::set<std::string>& Written() const { return run_.Written(); }

 private:
  int AnswerBox(const std::wstring& prompt, int style);
  void UseDialog(controls::Form& form);
  void DeleteMeanwhile(const controls::Form& form);

  Walk walk_;
  DialogActor actor_;
  Expected expected_;
  CommandRun run_;
  ListActor lists_;
  Checks checks_;
  Actions actions_;
};

}  // namespace test_support
