#include "server/core/sessions/ReferenceServer.h"

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Counters.h"
#include "server/core/accounts/Rights.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sessions/SessionWatch.h"
#include "server/core/sql/Query.h"
#include "server/core/sql/SqlConnection.h"

namespace server {
namespace {

// How often an identifier is drawn again that somebody on another node of a cluster has drawn too.
constexpr int kMostRepeats = 100;

constexpr std::wstring_view kTitle = L"Serveur de session Vardex";

}  // namespace

ReferenceServer::ReferenceServer(Options options) : options_(std::move(options)) {}

void ReferenceServer::ReadCommandLine(std::wstring_view commandLine, std::wstring& sessionText,
                                      std::int32_t& sessionId) {
  const SessionArguments arguments = ParseCommandLine(commandLine);
  sessionText = FormatSessionText(arguments);
  sessionId = arguments.sessionId;
}

void ReferenceServer::OpenSession(std::wstring_view sessionText, std::int32_t sessionId) {
  if (session_) Fail(kSessionAlreadyOpen);
  const SessionArguments arguments = ParseSessionText(sessionText, sessionId);
  const DataSource source = DataSources(options_.home).Find(arguments.source);
  std::unique_ptr<Engine> engine = options_.openEngine(source, options_.lockWait);
  const SessionUser user = SessionQuery(*engine, true).Check(*engine, sessionId, arguments.token);
  auto database = std::make_shared<Database>(
      std::move(engine),
      std::make_unique<SessionWatch>(sessionId, arguments.token, user.administers));
  session_.emplace(
      Session{user.userId, database, DisplayNames(database), PasswordCipher(ReadKey(source))});
}

ReferenceServer::Session& ReferenceServer::Current() {
  if (!session_) Fail(kNoSessionOpen);
  return *session_;
}

std::int32_t ReferenceServer::GetRights() {
  return RightsOf(Current().database->Get(), Current().userId);
}

void ReferenceServer::SetMode(std::int32_t) {
  Current();
}

std::wstring ReferenceServer::GetSessionUserText() {
  Query query(Current().database->Get(), "SELECT NAME, FULLNAME FROM QRUSER WHERE USERID = ?");
  if (!query.Bind(Current().userId).Next()) return {};
  const std::wstring fullName = query.WideText(1);
  return fullName.empty() ? query.WideText(0) : query.WideText(0) + L" (" + fullName + L")";
}

std::unique_ptr<data::Connection> ReferenceServer::DatabaseConnection() {
  return std::make_unique<SqlConnection>(Current().database);
}

std::int32_t ReferenceServer::NewIdentifier(std::wstring_view counterName) {
  Database& database = *Current().database;
  const std::string name = data::ToUtf8(counterName);
  database.BeginWrite();
  if (database.Reading()) return DrawIdentifier(database.Get(), name);
  for (int repeats = 0;; ++repeats) {
    try {
      WriteTransaction transaction(database.Get());
      const std::int32_t identifier = DrawIdentifier(database.Get(), name);
      transaction.Commit();
      return identifier;
    } catch (const data::RunTimeError& error) {
      if (repeats == kMostRepeats || !database.Get().IsConflict(error)) throw;
    }
  }
}

std::wstring ReferenceServer::EncryptPassword(std::wstring_view plainText, std::int32_t userId) {
  return Current().passwords.Encrypt(plainText, userId);
}

std::wstring ReferenceServer::DecryptPassword(std::wstring_view storedText, std::int32_t userId) {
  return Current().passwords.Decrypt(storedText, userId);
}

std::wstring ReferenceServer::GetDisplayName(std::wstring_view text, std::int32_t mappingCode) {
  return Current().displayNames.Find(text, mappingCode);
}

void ReferenceServer::ShowAbout(std::wstring_view executableName, std::int32_t, std::int32_t) {
  if (!options_.showAbout) return;
  const std::wstring title(kTitle);
  options_.showAbout(title, title + L", version " + data::FromUtf8(SERVER_VERSION) +
                                L"\r\n\r\nAppelé par " + std::wstring(executableName) + L".");
}

}  // namespace server
