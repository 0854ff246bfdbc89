#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "server/core/samples/Filling.h"
#include "server/core/sessions/DataSource.h"
#include "server/core/sessions/ReferenceServer.h"
#include "tests/support/data/RawDatabase.h"
#include "tests/support/data/TestServer.h"

namespace test_support {

// A data source in a folder of its own that goes when the test ends: a real database on the engine
// under test with its key, sessions opened on it, and the database itself read behind the server's
// back.
class SampleDatabase {
 public:
  // The sample company.
  SampleDatabase();
  // Made-up accounts.
  explicit SampleDatabase(const server::GeneratedSize& size);
  ~SampleDatabase();
  SampleDatabase(const SampleDatabase&) = delete;
  SampleDatabase& operator=(const SampleDatabase&) = delete;

  // Opens a session for a user and returns the command line that names it.
  std::wstring CommandLine(std::wstring_view userName = L"Admin");

  // A server that knows the data source and has no session yet.
  std::unique_ptr<server::ReferenceServer> MakeServer() const;
  // A server with a session open for a user.
  std::unique_ptr<server::ReferenceServer> OpenServer(std::wstring_view userName = L"Admin");

  // How long the servers made from here on wait for a lock.
  void SetLockWait(std::chrono::milliseconds wait) { lockWait_ = wait; }
  // What the servers made from here on show their about box with.
  void SetShowAbout(std::function<void(const std::wstring&, const std::wstring&)> show) {
    showAbout_ = std::move(show);
  }

  // The database itself, on a connection of its own.
  RawDatabase Raw() const { return RawDatabase(source_); }
  // The engine on the database, as the tool opens it.
  std::unique_ptr<server::Engine> Engine() const;
  const std::filesystem::path& Home() const { return home_; }
  // The database's file; SQLite only.
  const std::filesystem::path& File() const { return source_.database; }
  const server::DataSource& Source() const { return source_; }

 private:
  std::filesystem::path home_;
  std::unique_ptr<ServerDatabase> server_;  // null on SQLite
  server::DataSource source_;
  std::chrono::milliseconds lockWait_{5000};
  std::function<void(const std::wstring&, const std::wstring&)> showAbout_;
};

// A new, empty folder for a test's files.
std::filesystem::path MakeTestFolder();

}  // namespace test_support
