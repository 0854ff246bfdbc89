#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/SessionServer.h"
#include "server/core/accounts/DisplayNames.h"
#include "server/core/accounts/PasswordCipher.h"
#include "server/core/sessions/DataSource.h"
#include "server/core/sessions/EngineFactory.h"
#include "server/core/sql/Database.h"

namespace server {

// The session server for evaluation, tests and sites without the product. Numbers and texts of its
// failures stand in Errors.h.
class ReferenceServer final : public data::SessionServer {
 public:
  struct Options {
    // Opens the databases of the data sources.
    EngineFactory openEngine;
    // Where the data sources are described.
    std::filesystem::path home = DataSources::DefaultHome();
    // How long a lock held by somebody else is waited for.
    std::chrono::milliseconds lockWait{5000};
    // Shows the about box; without one, ShowAbout does nothing.
    std::function<void(const std::wstring& title, const std::wstring& text)> showAbout = nullptr;
  };

  explicit ReferenceServer(Options options);

  void ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                       std::int32_t& sessionId) override;
  void OpenSession(std::wstring_view sessionText, std::int32_t sessionId) override;
  std::int32_t GetRights() override;
  // Modes mean nothing to this server: any is accepted once a session is open.
  void SetMode(std::int32_t mode) override;
  // The user's name, followed by the full name in parentheses where there is one.
  std::wstring GetSessionUserText() override;
  // Connections of one session share one database: a reading transaction begun on one holds for
  // all.
  std::unique_ptr<data::Connection> DatabaseConnection() override;
  std::int32_t NewIdentifier(std::wstring_view counterName) override;
  std::wstring EncryptPassword(std::wstring_view plainText, std::int32_t userId) override;
  std::wstring DecryptPassword(std::wstring_view storedText, std::int32_t userId) override;
  std::wstring GetDisplayName(std::wstring_view text, std::int32_t mappingCode) override;
  // Needs no session.
  void ShowAbout(std::wstring_view executableName, std::int32_t first,
                 std::int32_t second) override;

 private:
  struct Session {
    std::int32_t userId;
    std::shared_ptr<Database> database;
    DisplayNames displayNames;
    PasswordCipher passwords;
  };

  Session& Current();

  Options options_;
  std::optional<Session> session_;
};

}  // namespace server
