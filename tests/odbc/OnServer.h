#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "server/tool/Tool.h"
#include "tests/support/data/SampleDatabase.h"

namespace odbc_test {

// The tool with a folder of its own, and an empty database on the server under test.
class OnServer : public ::testing::Test {
 protected:
  ~OnServer() override {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }

  static bool OnPostgresql() {
    return test_support::EngineUnderTest() == test_support::TestEngine::kPostgresql;
  }
  // Runs the tool; output and errors of the last call are kept.
  int Run(const std::vector<std::string>& words, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream errors;
    const int code = tool::RunTool(words, {home_, in, out, errors});
    out_ = out.str();
    errors_ = errors.str();
    return code;
  }
  int Create(const std::string& source = "demo") {
    return Run({"create-database", "--source", source, "--odbc",
                database_.Description().connectionString, "--password-stdin"},
               test_support::ServerDatabase::Password() + "\n");
  }
  int OpenSession(const std::string& source = "demo") {
    return Run({"open-session", "--source", source, "--user", "Admin", "--password-stdin"},
               "Vardex-2026\n");
  }
  test_support::RawDatabase Raw(const std::string& source = "demo") const {
    return test_support::RawDatabase(server::DataSources(home_).Find(source));
  }

  test_support::ServerDatabase database_;
  std::filesystem::path home_ = test_support::MakeTestFolder();
  std::string out_;
  std::string errors_;
};

}  // namespace odbc_test
