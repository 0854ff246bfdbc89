#include "com/SessionServerAdapter.h"

#include "automation/Bstr.h"
#include "automation/Variant.h"
#include "com/ComConnection.h"
#include "com/CommandLineReading.h"
#include "com/Conversion.h"

using automation::Argument;
using automation::Bstr;
using automation::SecretBstr;
using automation::SecretVariant;
using automation::Variant;

namespace com {

void SessionServerAdapter::ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                                           std::int32_t& sessionId) {
  com::ReadCommandLine(object_, commandLine, sessionText, sessionId);
}

void SessionServerAdapter::OpenSession(std::wstring_view sessionText, std::int32_t sessionId) {
  const Bstr text(sessionText);
  object_.Call(Member::kOpenSession, Argument(text), Argument(sessionId));
}

std::int32_t SessionServerAdapter::GetRights() {
  Variant rights;
  object_.Read(Member::kGetRights, rights);
  return ToInteger(rights);
}

void SessionServerAdapter::SetMode(std::int32_t mode) {
  object_.Call(Member::kSetMode, Argument(mode));
}

std::wstring SessionServerAdapter::GetSessionUserText() {
  Variant text;
  object_.Read(Member::kGetSessionUserText, text);
  return ToText(text);
}

std::unique_ptr<data::Connection> SessionServerAdapter::DatabaseConnection() {
  return std::make_unique<ComConnection>(object_.Open(Member::kDatabaseConnection));
}

std::int32_t SessionServerAdapter::NewIdentifier(std::wstring_view counterName) {
  const Bstr counter(counterName);
  Variant identifier;
  object_.Read(Member::kNewIdentifier, identifier, Argument(counter));
  return ToInteger(identifier);
}

std::wstring SessionServerAdapter::EncryptPassword(std::wstring_view plainText,
                                                   std::int32_t userId) {
  const SecretBstr plain(plainText);
  Variant stored;
  object_.Read(Member::kEncryptPassword, stored, Argument(plain.Get()), Argument(userId));
  return ToText(stored);
}

std::wstring SessionServerAdapter::DecryptPassword(std::wstring_view storedText,
                                                   std::int32_t userId) {
  const Bstr stored(storedText);
  SecretVariant plain;
  object_.Read(Member::kDecryptPassword, plain, Argument(stored), Argument(userId));
  return ToText(plain);
}

std::wstring SessionServerAdapter::GetDisplayName(std::wstring_view text,
                                                  std::int32_t mappingCode) {
  const Bstr name(text);
  Variant shown;
  object_.Read(Member::kGetDisplayName, shown, Argument(name), Argument(mappingCode));
  return ToText(shown);
}

void SessionServerAdapter::ShowAbout(std::wstring_view executableName, std::int32_t first,
                                     std::int32_t second) {
  const Bstr name(executableName);
  object_.Call(Member::kShowAbout, Argument(name), Argument(first), Argument(second));
}

}  // namespace com
