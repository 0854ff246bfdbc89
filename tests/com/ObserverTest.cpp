#include <gtest/gtest.h>

#include "LateServer.h"
#include "com/CallObserver.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

class Counter final : public ::com::CallObserver {
 public:
  void CallBegins() noexcept override {
    ++open;
    ++all;
  }
  void CallEnds() noexcept override { --open; }

  int open = 0;
  int all = 0;
};

TEST(CallObserver, KnowsOfACallWhileItIsOut) {
  Counter counter;
  int open = 0;
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [&](const FakeCall& call) {
    open = counter.open;
    return Give(call.result, Value(4));
  });
  Adapt(server.Get(), &counter)->GetRights();
  EXPECT_EQ(1, open);
  EXPECT_EQ(0, counter.open);
}

TEST(CallObserver, KnowsOfLookupsAndReleases) {
  Counter counter;
  std::vector<int> open;
  ComPtr<FakeObject> server = FakeObject::Make();
  server->onLookup = [&] { open.push_back(counter.open); };
  server->onLastRelease = [&] { open.push_back(counter.open); };
  auto adapter = Adapt(server.Get(), &counter);
  server.Reset();
  ErrorOf([&] { adapter->GetRights(); });
  adapter.reset();
  EXPECT_EQ((std::vector<int>{1, 1}), open);
  EXPECT_EQ(0, counter.open);
}

TEST(CallObserver, IsToldThatADeadServersCallIsOver) {
  Counter counter;
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [](const FakeCall&) -> HRESULT {
    RaiseException(static_cast<DWORD>(kAccessViolation), 0, 0, nullptr);
    return S_OK;
  });
  const auto adapter = Adapt(server.Get(), &counter);
  ErrorOf([&] { adapter->GetRights(); });
  EXPECT_EQ(0, counter.open);
  const int before = counter.all;
  ErrorOf([&] { adapter->GetRights(); });
  EXPECT_EQ(before, counter.all) << "a dead server is not called";
}

// A server that handles messages in a call may come back into the program, which calls it again.
TEST(CallObserver, CountsCallsWithinCalls) {
  Counter counter;
  int open = 0;
  const ComPtr<FakeObject> server = FakeObject::Make();
  std::unique_ptr<data::SessionServer> adapter;
  server->On(L"SetMode", [&](const FakeCall&) { return open = counter.open, S_OK; });
  server->On(L"GetRights", [&](const FakeCall& call) {
    adapter->SetMode(1);
    return Give(call.result, Value(4));
  });
  adapter = Adapt(server.Get(), &counter);
  EXPECT_EQ(4, adapter->GetRights());
  EXPECT_EQ(2, open);
  EXPECT_EQ(0, counter.open);
}

// The call outside comes back well, but the server has died within it.
TEST(CallObserver, DoesNotHideADeathWithinACall) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  std::unique_ptr<data::SessionServer> adapter;
  server->On(L"SetMode", [](const FakeCall&) -> HRESULT {
    RaiseException(static_cast<DWORD>(kAccessViolation), 0, 0, nullptr);
    return S_OK;
  });
  server->On(L"GetRights", [&](const FakeCall& call) {
    ErrorOf([&] { adapter->SetMode(1); });
    return Give(call.result, Value(4));
  });
  adapter = Adapt(server.Get());
  EXPECT_EQ(kAccessViolation, ErrorOf([&] { adapter->GetRights(); }).Number());
}

}  // namespace
}  // namespace com_test
