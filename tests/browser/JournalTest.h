#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/browser/CommandTest.h"
#include "tests/support/journal/JournalReader.h"

namespace browser {

// The program with a folder for the files that it keeps of its user, in which its journal is.
class JournalTest : public CommandTest {
 protected:
  JournalTest() {
    std::filesystem::create_directories(Local());
    user.System().answers.LocalDataFolder = [this] { return Local().wstring(); };
  }

  std::filesystem::path Local() { return Database().Home() / "local"; }
  std::filesystem::path JournalFolder() { return Local() / "User Administration"; }
  std::vector<test_support::JsonValue> Lines() { return test_support::JournalLines(Local()); }
  // The only line there is.
  test_support::JsonValue Line() {
    const auto lines = Lines();
    EXPECT_EQ(lines.size(), 1u);
    return lines.empty() ? test_support::JsonValue() : lines.front();
  }
};

}  // namespace browser
