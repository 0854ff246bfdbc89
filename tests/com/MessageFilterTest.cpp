#include "com/MessageFilter.h"

#include <gtest/gtest.h>

#include "LateServer.h"
#include "automation/Adopt.h"
#include "com/Apartment.h"
#include "com/ComSessionServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

constexpr DWORD kGiveUp = static_cast<DWORD>(-1);

// A filter whose question is answered so many times by yes and then by no.
class BusyServer : public testing::Test {
 protected:
  DWORD After(DWORD elapsed, DWORD reason = SERVERCALL_RETRYLATER) {
    return filter_->RetryRejectedCall(nullptr, elapsed, reason);
  }

  int yes_ = 0;
  int questions_ = 0;
  const ComPtr<IMessageFilter> filter_ = automation::Adopt<IMessageFilter>(
      std::make_unique<::com::MessageFilter>([this] { return ++questions_ <= yes_; }));
};

TEST_F(BusyServer, IsCalledAgainForAWhileWithoutAQuestion) {
  for (DWORD elapsed = 0; elapsed < 10000; elapsed += 250) EXPECT_EQ(250U, After(elapsed));
  EXPECT_EQ(0, questions_);
}

TEST_F(BusyServer, WhetherItSaysLaterOrRejected) {
  EXPECT_EQ(250U, After(0, SERVERCALL_REJECTED));
  EXPECT_EQ(250U, After(5000, SERVERCALL_REJECTED));
}

TEST_F(BusyServer, ThenTheUserIsAskedAndMayGiveUp) {
  After(0);
  EXPECT_EQ(kGiveUp, After(10000));
  EXPECT_EQ(1, questions_);
}

TEST_F(BusyServer, WhoWaitsOnIsAskedAgainOnlyAfterAnotherWhile) {
  yes_ = 1;
  After(0);
  EXPECT_EQ(250U, After(10000));
  // The answer took a minute, which counts for nothing.
  EXPECT_EQ(250U, After(70000));
  EXPECT_EQ(250U, After(79000));
  EXPECT_EQ(1, questions_);
  EXPECT_EQ(kGiveUp, After(80000));
  EXPECT_EQ(2, questions_);
}

TEST_F(BusyServer, EachCallHasItsOwnWhile) {
  After(0);
  After(9000);
  EXPECT_EQ(250U, After(0));
  EXPECT_EQ(250U, After(9900));
  EXPECT_EQ(kGiveUp, After(10000));
  EXPECT_EQ(250U, After(20));
  EXPECT_EQ(1, questions_);
}

TEST_F(BusyServer, WithoutAnybodyToAskIsGivenUp) {
  const auto filter =
      automation::Adopt<IMessageFilter>(std::make_unique<::com::MessageFilter>(nullptr));
  EXPECT_EQ(kGiveUp, filter->RetryRejectedCall(nullptr, 10000, SERVERCALL_RETRYLATER));
}

TEST_F(BusyServer, CallsThatComeInAreTakenAndInputWaits) {
  EXPECT_EQ(static_cast<DWORD>(SERVERCALL_ISHANDLED),
            filter_->HandleInComingCall(CALLTYPE_NESTED, nullptr, 0, nullptr));
  EXPECT_EQ(static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS),
            filter_->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL));
}

TEST_F(BusyServer, TheApartmentHasTheFilterForItsLife) {
  ComPtr<IMessageFilter> entered;
  {
    const ::com::Apartment apartment([this] { return ++questions_ <= yes_; });
    CoRegisterMessageFilter(nullptr, entered.GetAddressOf());
    ASSERT_NE(nullptr, entered.Get());
    EXPECT_EQ(250U, entered->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER));
    EXPECT_EQ(kGiveUp, entered->RetryRejectedCall(nullptr, 10000, SERVERCALL_RETRYLATER));
    EXPECT_EQ(1, questions_);
    CoRegisterMessageFilter(entered.Get(), nullptr);
  }
  const ::com::Apartment next;
  ComPtr<IMessageFilter> left;
  CoRegisterMessageFilter(nullptr, left.GetAddressOf());
  EXPECT_NE(entered.Get(), left.Get());
}

TEST_F(BusyServer, ThatTakesNoCallIsReportedInItsOwnWords) {
  for (const HRESULT result :
       {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER, RPC_E_SERVERCALL_REJECTED}) {
    const ComPtr<FakeObject> server = FakeObject::Make();
    server->On(L"GetRights", [result](const FakeCall&) { return result; });
    const data::RunTimeError error = ErrorOf([&] { Adapt(server.Get())->GetRights(); });
    EXPECT_EQ(result, error.Number());
    EXPECT_EQ(kBusy, error.Text());
  }
}

class ReadWatcher final : public ::com::CallObserver {
 public:
  void CallBegins() noexcept override {}
  void CallEnds() noexcept override {}
  void ReadBegins() noexcept override { seen += 'b'; }
  void ReadEnds() noexcept override { seen += 'e'; }

  std::string seen;
};

TEST_F(BusyServer, WhoAnswersForTheUserKnowsOfReadingTransactions) {
  ReadWatcher watcher;
  const ComPtr<FakeObject> connection = FakeObject::Make();
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"DatabaseConnection", ObjectValue(connection.Get()));
  const auto adapter = Adapt(server.Get(), &watcher);
  const auto adapted = adapter->DatabaseConnection();
  adapted->BeginRead();
  EXPECT_EQ("b", watcher.seen);
  adapted->EndRead();
  EXPECT_EQ("be", watcher.seen);
}

}  // namespace
}  // namespace com_test
