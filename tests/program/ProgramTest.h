#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/program/MainWindow.h"
#include "tests/program/Sandbox.h"
#include "tests/program/driver/Process.h"
#include "tests/program/driver/PromptBox.h"

namespace program {

// The test of the program from outside: a throw-away database, and the programs started on it. A
// program that still runs at the end of a test is ended; a message box that nobody asked for fails
// the test.
class ProgramTest : public ::testing::Test {
 protected:
  // Nothing is remembered of the windows of an earlier test.
  ProgramTest();
  void TearDown() override;

  Sandbox& Box() { return sandbox_; }
  // The sample in the sandbox, and a session on it for Admin.
  std::wstring SampleSession();

  // Starts the program with this command line, from the folder under test or another one.
  driver::Process& Start(const std::wstring& commandLine);
  driver::Process& Start(const std::wstring& commandLine, const std::filesystem::path& folder);
  // Starts it and waits until it has read both trees.
  MainWindow Open(const std::wstring& commandLine);
  // The program started last.
  driver::Process& Program() { return *programs_.back(); }

  // Waits for a message with OK alone, as the standard error report is, compares all of it, and
  // closes it.
  void ExpectReport(const driver::Process& process, const std::wstring& text);
  void ExpectReport(const std::wstring& text) { ExpectReport(Program(), text); }
  // Waits for a question that Enter answers by No, compares all of it, and answers it.
  void ExpectQuestion(const std::wstring& text, int answer);

  // What the tree shows below the account of this text is what stands in the database.
  void ExpectAccountAsStored(const MainWindow& window, Tab tab, const std::wstring& account);
  // The accounts that the tree shows are those of the database.
  void ExpectAccountsAsStored(const MainWindow& window, Tab tab);

  // The program ends with this exit code, and has shown nothing more.
  void ExpectExit(const driver::Process& process, DWORD code);
  void ExpectExit(DWORD code) { ExpectExit(Program(), code); }

 private:
  Sandbox sandbox_;
  std::vector<std::unique_ptr<driver::Process>> programs_;
};

}  // namespace program
