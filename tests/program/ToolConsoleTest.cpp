// The server's tool in a console.

#include <gtest/gtest.h>

#include "tests/program/Paths.h"
#include "tests/program/driver/Process.h"

namespace program {
namespace {

// A console of this process's own, which its children share.
class Console {
 public:
  Console() {
    FreeConsole();
    made_ = AllocConsole() != FALSE;
  }
  ~Console() { FreeConsole(); }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  bool IsThere() const { return made_; }

 private:
  bool made_ = false;
};

TEST(ToolConsole, KeepsTheCodePageThatItHad) {
  constexpr UINT kWesternEurope = 1252;
  const Console console;
  ASSERT_TRUE(console.IsThere());
  ASSERT_TRUE(SetConsoleOutputCP(kWesternEurope));
  const driver::Process tool({BinFolder() / L"vardexctl.exe", L"--help", {}, {}, {}});
  EXPECT_EQ(0U, tool.WaitForExit());
  EXPECT_EQ(kWesternEurope, GetConsoleOutputCP());
}

}  // namespace
}  // namespace program
