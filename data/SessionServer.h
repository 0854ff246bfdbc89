#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/Connection.h"

namespace data {

// The program's view of the product's session server. Every operation raises RunTimeError when it
// fails.
class SessionServer {
 public:
  virtual ~SessionServer() = default;

  virtual void ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                               std::int32_t& sessionId) = 0;
  virtual void OpenSession(std::wstring_view sessionText, std::int32_t sessionId) = 0;
  // The rights mask of the session's user (see Right).
  virtual std::int32_t GetRights() = 0;
  virtual void SetMode(std::int32_t mode) = 0;
  virtual std::wstring GetSessionUserText() = 0;
  // The caller owns the connection; it must be released before the server.
  virtual std::unique_ptr<Connection> DatabaseConnection() = 0;
  // The next identifier of a counter (see CounterName).
  virtual std::int32_t NewIdentifier(std::wstring_view counterName) = 0;
  virtual std::wstring EncryptPassword(std::wstring_view plainText, std::int32_t userId) = 0;
  virtual std::wstring DecryptPassword(std::wstring_view storedText, std::int32_t userId) = 0;
  // mappingCode: what the text is and which way it goes, a DisplayCode.
  virtual std::wstring GetDisplayName(std::wstring_view text, std::int32_t mappingCode) = 0;
  virtual void ShowAbout(std::wstring_view executableName, std::int32_t first,
                         std::int32_t second) = 0;
};

}  // namespace data
