#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "tests/program/Database.h"

namespace program {

// A throw-away folder with a database, a data source that names it and the server's keys, for one
// test. Everything in it is made by the server's own tool.
class Sandbox {
 public:
  Sandbox();
  ~Sandbox();
  Sandbox(const Sandbox&) = delete;
  Sandbox& operator=(const Sandbox&) = delete;

  // What processes must have in their environment to find the data source.
  std::map<std::wstring, std::wstring> Environment() const;
  std::filesystem::path Folder() const { return folder_; }
  std::filesystem::path File() const { return folder_ / L"base.db"; }
  program::Database Database() const { return program::Database(File()); }

  void CreateDatabase();
  void FillSample();
  // Opens a session and returns the command line for the program.
  std::wstring OpenSession(const std::wstring& user = L"Admin",
                           const std::wstring& password = L"Vardex-2026");
  // Adds an administrator with the sample's password.
  void AddAdministrator(const std::wstring& user);
  // Closes the session of a command line.
  void CloseSession(const std::wstring& commandLine);

  // Runs the server's tool; throws a driver::Failure with what it says when it fails.
  std::string RunTool(const std::wstring& arguments);

 private:
  std::filesystem::path folder_;
};

// The value of an argument /name:value on a command line.
std::wstring ArgumentOf(const std::wstring& commandLine, const std::wstring& name);

}  // namespace program
