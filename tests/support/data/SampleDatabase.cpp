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

namespace test_support {
namespace {

constexpr std::string_view kSource = "test";

std::filesystem::path FileIn(const std::filesystem::path& home) {
  return home / "test.db";
}

// For what a test sets up.
std::unique_ptr<server::Engine> OpenEngine(const server::DataSource& source) {
  auto engine = server::OpenEngine(source, std::chrono::seconds(5));
  // It need not survive a power cut.
  if (!source.odbc) server::Run(*engine, "PRAGMA synchronous = OFF");
  return engine;
}

std::unique_ptr<ServerDatabase> NewServerDatabase() {
  if (EngineUnderTest() == TestEngine::kSqlite) return nullptr;
  return std::make_unique<ServerDatabase>();
}

// Creates the schema in a new file or in the database given.
server::DataSource Create(const std::filesystem::path& home, const ServerDatabase* database) {
  const server::DataSources sources(home);
  if (database == nullptr) return server::CreateDatabase(sources, kSource, FileIn(home));
  return server::CreateDatabase(sources, kSource, database->Description(),
                                ServerDatabase::Password());
}

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The sample as it is made once for a whole test program; each test has a copy of its own.
struct Original {
  std::string file;                          // SQLite: the bytes of the file
  std::unique_ptr<ServerDatabase> database;  // elsewhere
  std::string key;
};

Original MakeOriginal() {
  const std::filesystem::path home = MakeTestFolder();
  Original original{{}, NewServerDatabase(), {}};
  const server::DataSource source = Create(home, original.database.get());
  server::FillSample(*OpenEngine(source), server::PasswordCipher(server::ReadKey(source)));
  if (original.database == nullptr) original.file = ReadBytes(source.database);
  original.key = server::ReadKey(source);
  std::filesystem::remove_all(home);
  return original;
}

const Original& TheOriginal() {
  static const Original original = MakeOriginal();
  return original;
}

std::unique_ptr<ServerDatabase> CopyServerDatabase() {
  if (EngineUnderTest() == TestEngine::kSqlite) return nullptr;
  return std::make_unique<ServerDatabase>(*TheOriginal().database);
}

server::DataSource CopySample(const std::filesystem::path& home, const ServerDatabase* database) {
  const server::DataSources sources(home);
  const server::DataSource source =
      database == nullptr
          ? sources.Create(kSource, FileIn(home))
          : sources.Create(kSource, database->Description(), ServerDatabase::Password());
  std::filesystem::remove(source.keyFile);
  if (!server::WritePrivateFile(source.keyFile, TheOriginal().key)) {
    throw std::runtime_error("the sample's key cannot be copied");
  }
  if (database != nullptr) return source;
  const std::string& bytes = TheOriginal().file;
  std::ofstream(source.database, std::ios::binary) << bytes;
  if (std::filesystem::file_size(source.database) != bytes.size()) {
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

SampleDatabase::SampleDatabase()
    : home_(MakeTestFolder()),
      server_(CopyServerDatabase()),
      source_(CopySample(home_, server_.get())) {}

SampleDatabase::SampleDatabase(const server::GeneratedSize& size)
    : home_(MakeTestFolder()), server_(NewServerDatabase()), source_(Create(home_, server_.get())) {
  server::FillGenerated(*Engine(), server::PasswordCipher(server::ReadKey(source_)), size);
}

std::unique_ptr<server::Engine> SampleDatabase::Engine() const {
  return OpenEngine(source_);
}

SampleDatabase::~SampleDatabase() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

std::wstring SampleDatabase::CommandLine(std::wstring_view userName) {
  const std::unique_ptr<server::Engine> engine = Engine();
  const auto user = server::FindUser(*engine, userName);
  if (!user) throw std::invalid_argument("no such user in the sample");
  const server::OpenedSession session = server::OpenUserSession(*engine, *user);
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
