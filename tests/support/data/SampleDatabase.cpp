#include "tests/support/data/SampleDatabase.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "data/Text.h"
#include "server/core/accounts/Accounts.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sessions/PrivateFile.h"
#include "server/core/sessions/Sessions.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"
#include "server/engines/sqlite/SqliteEngine.h"

namespace test_support {
namespace {

constexpr std::string_view kSource = "test";

std::filesystem::path FileIn(const std::filesystem::path& home) {
  return home / "test.db";
}

// For what a test sets up, which need not survive a power cut.
server::SqliteEngine OpenEngine(const server::DataSource& source) {
  server::SqliteEngine engine(source.database, server::SqliteEngine::Mode::kExisting,
                              std::chrono::seconds(5));
  server::Run(engine, "PRAGMA synchronous = OFF");
  return engine;
}

server::DataSource Create(const std::filesystem::path& home) {
  return server::CreateDatabase(server::DataSources(home), kSource, FileIn(home));
}

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The sample as it is made once for a whole test program; each test has a copy of its own.
struct Original {
  std::string database;
  std::string key;
};

Original MakeOriginal() {
  const std::filesystem::path home = MakeTestFolder();
  const server::DataSource source = Create(home);
  {
    server::SqliteEngine engine = OpenEngine(source);
    server::FillSample(engine, server::PasswordCipher(server::ReadKey(source)));
  }
  Original original{ReadBytes(source.database), server::ReadKey(source)};
  std::filesystem::remove_all(home);
  return original;
}

server::DataSource CopySample(const std::filesystem::path& home) {
  static const Original original = MakeOriginal();
  const server::DataSource source = server::DataSources(home).Create(kSource, FileIn(home));
  std::filesystem::remove(source.keyFile);
  std::ofstream(source.database, std::ios::binary) << original.database;
  if (!server::WritePrivateFile(source.keyFile, original.key) ||
      std::filesystem::file_size(source.database) != original.database.size()) {
    throw std::runtime_error("the sample cannot be copied");
  }
  return source;
}

}  // namespace

std::filesystem::path MakeTestFolder() {
  const std::string name = "uadmin-test-" + server::ToHex(server::RandomBytes(8));
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::filesystem::create_directories(folder);
  return folder;
}

SampleDatabase::SampleDatabase() : home_(MakeTestFolder()), source_(CopySample(home_)) {}

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
      server::ReferenceServer::Options{server::OpenEngine, home_, lockWait_, showAbout_});
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
