#include "com/SessionServerAdapter.h"

#include <cstddef>
#include <utility>

#include "com/ComConnection.h"
#include "com/CommandLineReading.h"
#include "com/Conversion.h"
#include "com/SessionServerMembers.h"

using Microsoft::WRL::ComPtr;

namespace com {
namespace {

// Overwrites a password on its way through an OLE text when the call is over, however it ends.
class Wiper {
 public:
  explicit Wiper(BSTR text) : text_(text) {}
  ~Wiper() { Wipe(text_); }
  Wiper(const Wiper&) = delete;
  Wiper& operator=(const Wiper&) = delete;

 private:
  BSTR text_;
};

}  // namespace

SessionServerAdapter::SessionServerAdapter(ComPtr<IDispatch> object, const ServerTexts& texts)
    : object_(std::move(object), std::make_shared<MemberIds>(kSessionServerNames),
              std::make_shared<ServerFate>(ServerFate{texts})) {}

void SessionServerAdapter::ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                                           std::int32_t& sessionId) {
  com::ReadCommandLine(object_, commandLine, sessionText, sessionId);
}

void SessionServerAdapter::OpenSession(std::wstring_view sessionText, std::int32_t sessionId) {
  const Bstr text(sessionText);
  object_.Call(kOpenSession, nullptr, Argument(text), Argument(sessionId));
}

std::int32_t SessionServerAdapter::GetRights() {
  Variant rights;
  object_.Read(kGetRights, rights);
  return ToInteger(rights);
}

void SessionServerAdapter::SetMode(std::int32_t mode) {
  object_.Call(kSetMode, nullptr, Argument(mode));
}

std::wstring SessionServerAdapter::GetSessionUserText() {
  Variant text;
  object_.Read(kGetSessionUserText, text);
  return ToText(text);
}

std::unique_ptr<data::Connection> SessionServerAdapter::DatabaseConnection() {
  Variant connection;
  object_.Call(kDatabaseConnection, &connection);
  return std::make_unique<ComConnection>(object_.ObjectIn(connection), object_.Fate());
}

std::int32_t SessionServerAdapter::NewIdentifier(std::wstring_view counterName) {
  const Bstr counter(counterName);
  Variant identifier;
  object_.Read(kNewIdentifier, identifier, Argument(counter));
  return ToInteger(identifier);
}

std::wstring SessionServerAdapter::EncryptPassword(std::wstring_view plainText,
                                                   std::int32_t userId) {
  const Bstr plain(plainText);
  const Wiper wiper(plain.Get());
  Variant stored;
  object_.Read(kEncryptPassword, stored, Argument(plain), Argument(userId));
  return ToText(stored);
}

std::wstring SessionServerAdapter::DecryptPassword(std::wstring_view storedText,
                                                   std::int32_t userId) {
  const Bstr stored(storedText);
  Variant plain;
  object_.Read(kDecryptPassword, plain, Argument(stored), Argument(userId));
  std::wstring text = ToText(plain);
  if (plain.vt == VT_BSTR) Wipe(plain.bstrVal);
  return text;
}

std::wstring SessionServerAdapter::GetDisplayName(std::wstring_view text,
                                                  std::int32_t mappingCode) {
  const Bstr name(text);
  Variant shown;
  object_.Read(kGetDisplayName, shown, Argument(name), Argument(mappingCode));
  return ToText(shown);
}

void SessionServerAdapter::ShowAbout(std::wstring_view executableName, std::int32_t first,
                                     std::int32_t second) {
  const Bstr name(executableName);
  object_.Call(kShowAbout, nullptr, Argument(name), Argument(first), Argument(second));
}

}  // namespace com
