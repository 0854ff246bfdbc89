#include "server/tool/Tool.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

// What the tool makes of its arguments for a database server, none of which is asked.
namespace server_test {
namespace {

TEST(OdbcTool, IsToldInOneLineHowItIsMisused) {
  const std::vector<std::vector<std::string>> calls = {
      {"create-database", "--source", "demo"},
      {"create-database", "--source", "demo", "--file", "x", "--odbc", "DSN=x"},
      {"create-database", "--source", "demo", "--file", "x", "--user", "u"},
      {"create-database", "--source", "demo", "--odbc", ""},
      {"create-database", "--source", "demo", "--odbc", "DSN=x\nkey = y"},
      {"create-database", "--source", "demo", "--odbc", "DSN=x;pwd=secret"},
      {"create-database", "--source", "demo", "--odbc", "DSN=x;Password=secret"},
  };
  for (const auto& words : calls) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(tool::RunTool(words, {"nowhere", in, out, errors}), 2) << errors.str();
    EXPECT_EQ(errors.str().find("secret"), std::string::npos) << errors.str();
    EXPECT_EQ(out.str(), "");
  }
}

TEST(OdbcTool, TellsOfADriverThatIsNotThere) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream errors;
  const std::vector<std::string> words{"create-database", "--source", "demo", "--odbc",
                                       "Driver={No such driver}"};
  EXPECT_EQ(tool::RunTool(words, {"nowhere", in, out, errors}), 1);
  EXPECT_TRUE(errors.str().starts_with("vardexctl: IM00") ||
              errors.str().starts_with("vardexctl: 01000: "))
      << errors.str();
}

}  // namespace
}  // namespace server_test
