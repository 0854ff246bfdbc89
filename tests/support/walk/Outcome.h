#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tests/support/walk/DialogActor.h"
#include "tests/support/walk/Tables.h"

namespace test_support {

enum class Section { kAccount, kFirstLinks, kSecondLinks };

// A command of the main window: on accounts 0 Edit, 1 Delete, 2 New; on links 0 Assign, 1 Remove.
struct Command {
  Section section = Section::kAccount;
  int index = 0;
};

// What the command found selected.
struct Target {
  int tree = 0;
  std::wstring key;
  std::wstring tag;
  std::int32_t account = -1;  // -1: the root
  std::int32_t leaf = -1;     // what a leaf stands for
};

Target ReadTarget(int tree, const std::wstring& key);

// The database after a dialog has written all that stood in it. id is the account's, the new one's
// for New.
Tables AfterDialog(const Command& command, const Target& target, std::int32_t id,
                   const DialogState& dialog, const Tables& before);

// The identifier of the account of this tree that is in the one state and not in the other.
std::int32_t NewIdentifier(int tree, const Tables& before, const Tables& after);

}  // namespace test_support
