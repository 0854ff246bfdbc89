#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/walk/Command.h"
#include "tests/support/walk/WantedTrees.h"

namespace test_support {

// The commands that answer with a list, by the letters of their keys.
enum class ListCommand : char { kHolders = 'Q', kMembers = 'M', kCompare = 'K', kJournal = 'J' };

// A row that a list has to show. Of a user the identifier, -1 for any other row.
struct WantedRow {
  std::vector<std::wstring> texts;
  std::int32_t user = -1;
};
using WantedRows = std::vector<WantedRow>;

// What the lists have to show, worked out from the state that the trees have to be in. It knows
// nothing of the program's own reading of its trees.
class WantedLists {
 public:
  explicit WantedLists(const WantedTrees& trees) : trees_(trees) {}

  // Whether the command means something at a node.
  bool Answers(ListCommand command, const Target& at) const;

  // Each list in an order of its own; of the members the names of permissions are left out.
  WantedRows Holders(std::int32_t permission) const;
  WantedRows Members(std::int32_t group) const;
  WantedRows UsersBut(std::int32_t user) const;
  WantedRows Comparison(std::int32_t one, std::int32_t other) const;

  // The group or the user that a node stands for or belongs to, where it still has a node.
  std::optional<std::int32_t> GroupOf(const Target& at) const;
  std::optional<std::int32_t> UserOf(const Target& at) const;

 private:
  WantedRow UserRow(std::int32_t user) const;
  std::wstring NameOf(int tree, std::int32_t account) const;
  std::wstring SourceOf(std::int32_t user, std::int32_t permission) const;
  bool Lists(int tree, std::int32_t account, int folder, std::int32_t leaf) const {
    return trees_.Leaves(tree, account, folder).contains(leaf);
  }

  const WantedTrees& trees_;
};

}  // namespace test_support
