#include "tests/support/data/SampleDatabase.h"

#include <stdexcept>

#include "data/Text.h"
#include "server/core/Accounts.h"
#include "server/core/CommandLine.h"
#include "server/core/Crypto.h"
#include "server/core/Encoding.h"
#include "server/core/NewDatabase.h"
#include "server/core/Sessions.h"
#include "server/core/SqliteEngine.h"

namespace test_support {
namespace {

server::SqliteEngine OpenEngine(const server::DataSource& source) {
  return {source.database, server::SqliteEngine::Mode::kExisting, std::chrono::seconds(5)};
}

server::DataSource Create(const std::filesystem::path& home) {
  return server::CreateDatabase(server::DataSources(home), "test", home / "test.db");
}

}  // namespace

std::filesystem::path MakeTestFolder() {
  const std::string name = "uadmin-test-" + server::ToHex(server::RandomBytes(8));
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::filesystem::create_directories(folder);
  return folder;
}

SampleDatabase::SampleDatabase() : home_(MakeTestFolder()), source_(Create(home_)) {
  server::SqliteEngine engine = OpenEngine(source_);
  server::FillSample(engine, server::PasswordCipher(server::ReadKey(source_)));
}

SampleDatabase::SampleDatabase(const server::GeneratedSize& size)
    : home_(MakeTestFolder()), source_(Create(home_)) {
  server::SqliteEngine engine = OpenEngine(source_);
  server::FillGenerated(engine, server::PasswordCipher(server::ReadKey(source_)), size);
}

SampleDatabase::~SampleDatabase() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

std::wstring SampleDatabase::CommandLine(std::wstring_view userName) {
  server::SqliteEngine engine = OpenEngine(source_);
  const auto user = server::FindUser(engine, userName);
  if (!user) throw std::invalid_argument("no such user in the sample");
  const server::OpenedSession session = server::OpenUserSession(engine, *user);
  return data::FromUtf8(
      server::FormatCommandLine({source_.name, session.token, session.sessionId}));
}

std::unique_ptr<server::ReferenceServer> SampleDatabase::MakeServer() const {
  return std::make_unique<server::ReferenceServer>(
      server::ReferenceServer::Options{home_, lockWait_, showAbout_});
}

std::unique_ptr<server::ReferenceServer> SampleDatabase::OpenServer(std::wstring_view userName) {
  std::unique_ptr<server::ReferenceServer> session = MakeServer();
  std::wstring sessionText;
  std::int32_t sessionId = 0;
  session->ReadCommandLine(CommandLine(userName), sessionText, sessionId);
  session->OpenSession(sessionText, sessionId);
  return session;
}

}  // namespace test_support
