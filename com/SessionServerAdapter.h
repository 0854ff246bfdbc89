#pragma once

#include <utility>

#include "com/RemoteObject.h"
#include "data/SessionServer.h"

namespace com {

// The session server behind any object that offers its members by name.
class SessionServerAdapter final : public data::SessionServer {
 public:
  explicit SessionServerAdapter(RemoteObject object) : object_(std::move(object)) {}

  void ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                       std::int32_t& sessionId) override;
  void OpenSession(std::wstring_view sessionText, std::int32_t sessionId) override;
  std::int32_t GetRights() override;
  void SetMode(std::int32_t mode) override;
  std::wstring GetSessionUserText() override;
  std::unique_ptr<data::Connection> DatabaseConnection() override;
  std::int32_t NewIdentifier(std::wstring_view counterName) override;
  std::wstring EncryptPassword(std::wstring_view plainText, std::int32_t userId) override;
  std::wstring DecryptPassword(std::wstring_view storedText, std::int32_t userId) override;
  std::wstring GetDisplayName(std::wstring_view text, std::int32_t mappingCode) override;
  void ShowAbout(std::wstring_view executableName, std::int32_t first,
                 std::int32_t second) override;

 private:
  RemoteObject object_;
};

}  // namespace com
