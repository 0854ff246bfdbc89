#pragma once

#include <optional>
#include <string>
#include <vector>

#include "browser/lists/frmList.h"
#include "tests/support/walk/Expected.h"
#include "tests/support/walk/Walk.h"
#include "tests/support/walk/WantedLists.h"

namespace test_support {

// Somebody who reads the lists that commands answer with: each has to show what the expected state
// says. He searches in it, sorts and saves it, and chooses a row or closes it.
class ListActor {
 public:
  ListActor(Walk& walk, const Expected& expected) : walk_(walk), lists_(expected.trees) {}

  // The next window that is shown is the list of this command, given at a node.
  void Expect(ListCommand command, const Target& at);
  void Use(browser::frmList& list);
  // After the command: the user who was gone to, nothing where nobody was. All lists have been
  // shown.
  std::optional<std::int32_t> Finish();
  bool Answers(ListCommand command, const Target& at) const { return lists_.Answers(command, at); }

 private:
  // What comes: the list of the command, or the comparison that follows it.
  struct Coming {
    ListCommand command;
    Target at;
    std::optional<std::int32_t> other;
  };

  WantedRows Wanted() const;
  WantedRows JournalRows() const;
  void CheckRows(browser::frmList& list, WantedRows wanted) const;
  void Search(browser::frmList& list, const WantedRows& wanted);
  void Sort(browser::frmList& list);
  void Save(browser::frmList& list);
  void Choose(browser::frmList& list, const WantedRows& wanted);
  static std::vector<std::vector<std::wstring>> RowsOf(const browser::frmList& list,
                                                       std::size_t columns);

  Walk& walk_;
  WantedLists lists_;
  std::optional<Coming> coming_;
  std::optional<std::int32_t> goneTo_;
};

}  // namespace test_support
