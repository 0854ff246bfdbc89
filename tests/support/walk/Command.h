#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/support/walk/DialogActor.h"
#include "tests/support/walk/Tables.h"

namespace test_support {

// A command of the main window, the same on both tabs: on accounts, on the links of the first frame
// (groups of a user, members of a group) or on those of the second (permissions).
enum class Section { kAccount, kFirstLinks, kSecondLinks };
enum class Verb { kEdit, kDelete, kNew, kAssign, kRemove };
struct Command {
  Section section = Section::kAccount;
  Verb verb = Verb::kEdit;

  // Asks a question; the others show a dialog.
  bool Removes() const { return verb == Verb::kDelete || verb == Verb::kRemove; }
  bool operator==(const Command&) const = default;
};

// All commands in the order of their buttons.
inline constexpr std::array<Command, 7> kCommands{{{Section::kAccount, Verb::kEdit},
                                                   {Section::kAccount, Verb::kDelete},
                                                   {Section::kAccount, Verb::kNew},
                                                   {Section::kFirstLinks, Verb::kAssign},
                                                   {Section::kFirstLinks, Verb::kRemove},
                                                   {Section::kSecondLinks, Verb::kAssign},
                                                   {Section::kSecondLinks, Verb::kRemove}}};

// For the walk's log: "users account edit".
std::string Name(int tree, const Command& command);

// What the command found selected.
struct Target {
  int tree = 0;
  std::wstring key;
  std::wstring tag;
  std::int32_t account = -1;  // -1: the root
  std::int32_t leaf = -1;     // what a leaf stands for
};

Target ReadTarget(int tree, const std::wstring& key);
// What the Delete key stands for there; nothing on a node that cannot be deleted.
std::optional<Command> CommandOfDelete(const Target& target);

// The database after a dialog has written all that stood in it. id is the account's, the new one's
// for New.
Tables AfterDialog(const Command& command, const Target& target, std::int32_t id,
                   const DialogState& dialog, const Tables& before);

// The identifier of the account of this tree that is in the one state and not in the other.
std::int32_t NewIdentifier(int tree, const Tables& before, const Tables& after);

}  // namespace test_support
