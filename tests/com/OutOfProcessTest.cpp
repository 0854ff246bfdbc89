#include <gtest/gtest.h>

#include <fstream>

#include "BuiltLibrary.h"
#include "ClassEntry.h"
#include "LateServer.h"
#include "automation/Handle.h"
#include "com/Apartment.h"
#include "com/ComSessionServer.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/ReadScope.h"
#include "server/core/Errors.h"
#include "tests/support/data/SampleDatabase.h"

namespace com_test {
namespace {

// The reference server in a process of its own, called through the system's proxies.
class OutOfProcess : public testing::Test {
 protected:
  OutOfProcess() {
    entry_.SetProgram(L"\"" + BuiltFile(L"..\\tests\\com_local_server.exe") + L"\" " +
                      entry_.ClassIdText() + L" \"" + Home().wstring() + L"\"");
  }

  std::filesystem::path Home() const { return database_.Home(); }

  std::unique_ptr<data::SessionServer> MakeServer() {
    return ::com::CreateSessionServer(entry_.ProgId(), {L"", L"", L"", kLost, kNoMember});
  }

  std::unique_ptr<data::SessionServer> OpenServer() {
    auto server = MakeServer();
    std::wstring text;
    std::int32_t id = 0;
    server->ReadCommandLine(database_.CommandLine(), text, id);
    server->OpenSession(text, id);
    return server;
  }

  // Ends the server's process as a crash does.
  void KillServer() const {
    DWORD id = 0;
    std::ifstream(Home() / L"process") >> id;
    const automation::Handle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
    ASSERT_NE(nullptr, process.get());
    TerminateProcess(process.get(), 1);
    WaitForSingleObject(process.get(), INFINITE);
  }

  const ::com::Apartment apartment_;
  test_support::SampleDatabase database_;
  ClassEntry entry_;
};

TEST_F(OutOfProcess, AServerAnswersAsOneInTheProcess) {
  const auto direct = database_.OpenServer();
  const auto server = OpenServer();
  EXPECT_EQ(direct->GetRights(), server->GetRights());
  EXPECT_EQ(direct->GetDisplayName(L"Everyone", 104), server->GetDisplayName(L"Everyone", 104));
  const auto directConnection = direct->DatabaseConnection();
  const auto connection = server->DatabaseConnection();
  data::ReadScope scope(*connection);
  EXPECT_EQ(data::CountRows(*directConnection, data::SqlSelectAllUsers()),
            data::CountRows(*connection, data::SqlSelectAllUsers()));
  scope.Finish();
  EXPECT_EQ(0, connection->Execute(data::SqlDeleteUserMemberships(-1)));
  const std::wstring stored = server->EncryptPassword(L"pâté", 12);
  EXPECT_EQ(L"pâté", server->DecryptPassword(stored, 12));
}

TEST_F(OutOfProcess, AServerBringsNumberAndTextOfItsFailures) {
  const auto server = MakeServer();
  const data::RunTimeError error = ErrorOf([&] { server->GetRights(); });
  EXPECT_EQ(server::kNoSessionOpen, error.Number());
  EXPECT_FALSE(error.Text().empty());
}

TEST_F(OutOfProcess, AServerThatEndsIsReportedAsLostInEveryCallAfterwards) {
  const auto server = OpenServer();
  const auto connection = server->DatabaseConnection();
  KillServer();
  EXPECT_EQ(kLost, ErrorOf([&] { server->GetRights(); }).Text());
  EXPECT_EQ(kLost, ErrorOf([&] { connection->Execute(L"DELETE"); }).Text());
}

}  // namespace
}  // namespace com_test
