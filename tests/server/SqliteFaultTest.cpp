#include <chrono>
#include <fstream>
#include <future>
#include <thread>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sql/Query.h"
#include "server/core/sql/SqlConnection.h"
#include "server/engines/sqlite/SqliteEngine.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace server_test {
namespace {

using std::chrono::milliseconds;
using test_support::Sample;

class SqliteFault : public ::testing::Test {
 protected:
  // The failure of opening a session on what is left of the database.
  data::RunTimeError OpeningFailure() {
    return FailureOf([&] {
      const auto server = sample_.MakeServer();
      const server::SessionArguments session = server::ParseCommandLine(commandLine_);
      server->OpenSession(server::FormatSessionText(session), session.sessionId);
      const auto connection = server->DatabaseConnection();
      ReadRows(*connection, data::SqlSelectAllUsers(), 3);
    });
  }

  test_support::SampleDatabase sample_;
  std::wstring commandLine_ = sample_.CommandLine();
};

TEST_F(SqliteFault, AMissingFileIsToldByTheDatabaseAndNotMade) {
  std::filesystem::remove(sample_.File());
  const data::RunTimeError failure = OpeningFailure();
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"unable to open database file");
  EXPECT_FALSE(std::filesystem::exists(sample_.File()));
}

TEST_F(SqliteFault, AFileThatIsNoDatabaseIsToldByTheDatabase) {
  std::ofstream(sample_.File(), std::ios::binary) << std::string(8192, 'x');
  const data::RunTimeError failure = OpeningFailure();
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"file is not a database");
}

TEST_F(SqliteFault, AnEmptyFileHasNoSchema) {
  std::filesystem::resize_file(sample_.File(), 0);
  const data::RunTimeError failure = OpeningFailure();
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_NE(failure.Text().find(L"no such table"), std::wstring::npos);
}

TEST_F(SqliteFault, ATruncatedFileIsToldByTheDatabaseWhereverItIsCut) {
  const auto size = std::filesystem::file_size(sample_.File());
  for (std::uintmax_t cut = size - size % 4096 - 4096; cut >= 4096; cut -= 4096) {
    std::filesystem::resize_file(sample_.File(), cut);
    const data::RunTimeError failure = OpeningFailure();
    EXPECT_EQ(failure.Number(), server::kDatabaseError) << cut;
    EXPECT_EQ(failure.Text(), L"database disk image is malformed") << cut;
  }
}

TEST_F(SqliteFault, AFileCutShortUnderAnOpenSessionIsAnErrorAndNoCrash) {
  const auto server = sample_.OpenServer();
  const auto connection = server->DatabaseConnection();
  std::filesystem::resize_file(sample_.File(), 4096);
  EXPECT_EQ(NumberOf([&] { ReadRows(*connection, data::SqlSelectAllUsers(), 3); }),
            server::kDatabaseError);
}

TEST_F(SqliteFault, ALockedDatabaseIsWaitedForAndThenToldByTheDatabase) {
  sample_.SetLockWait(milliseconds(200));
  const auto server = sample_.OpenServer();
  const auto connection = server->DatabaseConnection();
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("begin exclusive");
  const auto start = std::chrono::steady_clock::now();
  const data::RunTimeError failure =
      FailureOf([&] { connection->OpenResultSet(data::SqlSelectAllUsers()); });
  EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(150));
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"database is locked");
  other.Execute("rollback");
  EXPECT_FALSE(connection->OpenResultSet(data::SqlSelectAllUsers())->EndOfRows());
}

TEST_F(SqliteFault, OpeningASessionWaitsForTheLockToo) {
  sample_.SetLockWait(milliseconds(50));
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("begin exclusive");
  EXPECT_EQ(OpeningFailure().Text(), L"database is locked");
}

TEST_F(SqliteFault, ALockedDatabaseIsReadAsSoonAsItIsFree) {
  const auto server = sample_.OpenServer();
  const auto connection = server->DatabaseConnection();
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("begin exclusive");
  std::promise<void> reading;
  std::thread holder([&] {
    reading.get_future().wait();
    other.Execute("update qruser set name = 'Après' where userid = 9");
    other.Execute("commit");
  });
  reading.set_value();
  EXPECT_EQ(ReadRows(*connection, data::SqlSelectUser(Sample::kMartin), 2)[0][1], L"Après");
  holder.join();
}

TEST_F(SqliteFault, AWriterThatIsShutOutChangesNothingAndMayTryAgain) {
  sample_.SetLockWait(milliseconds(20));
  const auto server = sample_.OpenServer();
  const auto connection = server->DatabaseConnection();
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("begin immediate");
  EXPECT_EQ(FailureOf([&] {
              connection->Execute(data::SqlDeleteUserPermissions(Sample::kMartin));
            }).Text(),
            L"database is locked");
  EXPECT_EQ(FailureOf([&] { server->NewIdentifier(L"QRUSRN"); }).Text(), L"database is locked");
  other.Execute("rollback");
  EXPECT_EQ(connection->Execute(data::SqlDeleteUserPermissions(Sample::kMartin)), 2);
  EXPECT_EQ(server->NewIdentifier(L"QRUSRN"), 41);
}

TEST_F(SqliteFault, AFullDiskIsToldByTheDatabaseAndLeavesNoHalfRow) {
  auto engine = std::make_unique<server::SqliteEngine>(
      sample_.File(), server::SqliteEngine::Mode::kExisting, milliseconds(20));
  server::Engine& database = *engine;
  server::Run(database, "PRAGMA max_page_count = 1");  // that is: no more than there are
  server::SqlConnection connection(std::make_shared<server::Database>(std::move(engine)));
  const std::wstring longName(20'000, L'x');
  const auto set = connection.OpenResultSet(data::SqlSelectUser(Sample::kMartin));
  const auto write = [&] {
    set->Edit();
    set->SetColumn(L"FULLNAME", longName);
    set->Update();
  };
  const data::RunTimeError failure = FailureOf(write);
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"database or disk is full");
  EXPECT_EQ(sample_.Raw().Text("select fullname from qruser where userid = 9"), "Jean Martin");
  server::Run(database, "PRAGMA max_page_count = 1000000");
  write();
  EXPECT_EQ(sample_.Raw().Number("select length(fullname) from qruser where userid = 9"), 20'000);
}

TEST(SqliteLockWait, IsFiveSecondsUnlessToldOtherwise) {
  EXPECT_EQ(server::ReferenceServer::Options().lockWait, milliseconds(5000));
}

#ifdef _WIN32

// A file that nobody may open for writing for the length of a test. The attribute alone would not
// do: where the process runs as the host's superuser, nothing comes of it.
class ReadOnlyFile {
 public:
  explicit ReadOnlyFile(const std::filesystem::path& file)
      : handle_(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~ReadOnlyFile() { CloseHandle(handle_); }

 private:
  HANDLE handle_;
};

#else

// A file that the process may only read. The superuser may write everything, so that he is somebody
// else for the length of a test.
class ReadOnlyFile {
 public:
  explicit ReadOnlyFile(const std::filesystem::path& file) {
    std::filesystem::permissions(file, static_cast<std::filesystem::perms>(0444));
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0) changed_ = seteuid(kNobody) == 0;
  }
  ~ReadOnlyFile() {
    if (changed_ && seteuid(0) != 0) std::abort();
  }

 private:
  bool changed_ = false;
};

#endif

TEST_F(SqliteFault, AReadOnlyFileIsReadAndItsWritesAreToldByTheDatabase) {
  const ReadOnlyFile readOnly(sample_.File());
  server::Database database(std::make_unique<server::SqliteEngine>(
      sample_.File(), server::SqliteEngine::Mode::kExisting, milliseconds(20)));
  EXPECT_TRUE(database.Borrow(data::SqlSelectAllUsers(), true)->Get().Step());
  const data::RunTimeError failure =
      FailureOf([&] { database.Execute(data::SqlDeleteUserPermissions(Sample::kMartin)); });
  EXPECT_EQ(failure.Number(), server::kDatabaseError);
  EXPECT_EQ(failure.Text(), L"attempt to write a readonly database");
}

}  // namespace
}  // namespace server_test
