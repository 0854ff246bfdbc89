#include <gtest/gtest.h>

#include <stdexcept>

#include "LateServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

constexpr long kAccessViolation = static_cast<long>(0xC0000005);

HRESULT WriteNowhere(const FakeCall&) {
  volatile int* volatile nowhere = nullptr;
  *nowhere = 1;
  return S_OK;
}

TEST(DyingServer, IsReportedWithTheNumberOfItsException) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", WriteNowhere);
  const data::RunTimeError error = ErrorOf([&] { Adapt(server.Get())->GetRights(); });
  EXPECT_EQ(kAccessViolation, error.Number());
  EXPECT_EQ(kLost, error.Text());
}

TEST(DyingServer, IsNotTouchedAgain) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", WriteNowhere).Gives(L"GetSessionUserText", TextValue(L"Admin"));
  {
    const auto adapter = Adapt(server.Get());
    ErrorOf([&] { adapter->GetRights(); });
    const data::RunTimeError error = ErrorOf([&] { adapter->GetSessionUserText(); });
    EXPECT_EQ(kAccessViolation, error.Number());
    EXPECT_EQ(kLost, error.Text());
  }
  EXPECT_EQ(1, server->calls);
  EXPECT_EQ(2U, server->references) << "not even its references are given back";
  server->Release();
}

TEST(DyingServer, TakesItsConnectionsAndResultSetsAlong) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->On(L"MoveNext", WriteNowhere).Gives(L"Column", Value(1));
  const auto adapter = AdaptResultSet(rows.Get());
  EXPECT_EQ(kAccessViolation, ErrorOf([&] { adapter->MoveNext(); }).Number());
  EXPECT_EQ(kAccessViolation, ErrorOf([&] { adapter->Column(0); }).Number());
  EXPECT_EQ(1, rows->calls);
}

TEST(DyingServer, MayDieOfItsLastReference) {
  ComPtr<FakeObject> server = FakeObject::Make();
  server->onLastRelease = [] { WriteNowhere({}); };
  auto adapter = Adapt(server.Get());
  server.Reset();
  adapter.reset();
  SUCCEED() << "the program goes on";
}

TEST(DyingServer, MayLeaveHalfAnAnswer) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetSessionUserText", [](const FakeCall& call) {
    call.result->vt = VT_DISPATCH;
    call.result->pdispVal = reinterpret_cast<IDispatch*>(8);
    return WriteNowhere(call);
  });
  EXPECT_EQ(kAccessViolation, ErrorOf([&] { Adapt(server.Get())->GetSessionUserText(); }).Number());
}

TEST(DyingServer, MayDieAgainAndAgain) {
  for (int i = 0; i < 100; ++i) {
    const ComPtr<FakeObject> server = FakeObject::Make();
    server->On(L"SetMode", WriteNowhere);
    EXPECT_EQ(kAccessViolation, ErrorOf([&] { Adapt(server.Get())->SetMode(i); }).Number());
  }
}

TEST(LivingServer, MayThrowAndCatchInsideACall) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [](const FakeCall& call) {
    try {
      throw std::runtime_error("inside");
    } catch (const std::exception&) {
      *call.result = Value(4);
    }
    return S_OK;
  });
  EXPECT_EQ(4, Adapt(server.Get())->GetRights());
}

TEST(LivingServer, MayRaiseAWarningThatSomebodyElseHandles) {
  const PVOID handler = AddVectoredExceptionHandler(1, [](EXCEPTION_POINTERS* pointers) WINAPI {
    const bool ours = pointers->ExceptionRecord->ExceptionCode == 0x80001234;
    return static_cast<LONG>(ours ? EXCEPTION_CONTINUE_EXECUTION : EXCEPTION_CONTINUE_SEARCH);
  });
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [](const FakeCall& call) {
    RaiseException(0x80001234, 0, 0, nullptr);
    return *call.result = Value(4), S_OK;
  });
  EXPECT_EQ(4, Adapt(server.Get())->GetRights());
  RemoveVectoredExceptionHandler(handler);
}

}  // namespace
}  // namespace com_test
