// What the whole test program needs around it: the session server registered, and evidence kept
// when a test fails.

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "tests/program/Paths.h"
#include "tests/program/Registration.h"
#include "tests/program/driver/Screenshot.h"
#include "tests/program/driver/WindowDump.h"

namespace program {
namespace {

// Keeps what is on the screen at the moment of a test's first failure, while its programs still
// run.
class EvidenceKeeper : public ::testing::EmptyTestEventListener {
 public:
  void OnTestStart(const ::testing::TestInfo&) override { kept_ = false; }

  void OnTestPartResult(const ::testing::TestPartResult& result) override {
    const ::testing::TestInfo* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (!result.failed() || kept_ || test == nullptr) return;
    kept_ = true;
    std::filesystem::create_directories(FailuresFolder());
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    std::ofstream out(FailuresFolder() / (name + ".txt"), std::ios::binary);
    out << (result.message() == nullptr ? "" : result.message()) << "\n\n" << driver::DumpWindows();
    driver::SaveScreenshot(FailuresFolder() / (name + ".bmp"));
  }

 private:
  bool kept_ = false;
};

class Surroundings : public ::testing::Environment {
 public:
  void SetUp() override {
    ::testing::UnitTest::GetInstance()->listeners().Append(new EvidenceKeeper);
    registration_ = std::make_unique<Registration>();
    registration_->Remove();
    registration_->Enter();
  }

  void TearDown() override { registration_.reset(); }

 private:
  std::unique_ptr<Registration> registration_;
};

const ::testing::Environment* const kSurroundings =
    ::testing::AddGlobalTestEnvironment(new Surroundings);

}  // namespace
}  // namespace program
