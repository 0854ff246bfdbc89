#include "com/CallGuard.h"

#include <gtest/gtest.h>

#include "ForeignCode.h"
#include "LateServer.h"

namespace com_test {
namespace {

EXCEPTION_RECORD FaultAt(DWORD code, void* address) {
  EXCEPTION_RECORD record{};
  record.ExceptionCode = code;
  record.ExceptionAddress = address;
  return record;
}

void* SystemCode() {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "Sleep"));
}

void* OwnCode() {
  return reinterpret_cast<void*>(&FaultInForeignCode);
}

TEST(CallGuard, TakesWhatEndsAServer) {
  for (const DWORD code : {static_cast<DWORD>(STATUS_ACCESS_VIOLATION),
                           static_cast<DWORD>(STATUS_INTEGER_DIVIDE_BY_ZERO),
                           static_cast<DWORD>(STATUS_ILLEGAL_INSTRUCTION), DWORD{0xE06D7363}}) {
    EXPECT_TRUE(::com::IsServerFault(FaultAt(code, SystemCode()))) << code;
    EXPECT_TRUE(::com::IsServerFault(FaultAt(code, nullptr))) << code;
  }
}

TEST(CallGuard, LeavesAFaultOfTheProgramsOwnCodeAlone) {
  EXPECT_FALSE(::com::IsServerFault(FaultAt(STATUS_ACCESS_VIOLATION, OwnCode())));
}

TEST(CallGuard, LeavesWarningsAndAnOverflownStackAlone) {
  EXPECT_FALSE(::com::IsServerFault(FaultAt(STATUS_BREAKPOINT, SystemCode())));
  EXPECT_FALSE(::com::IsServerFault(FaultAt(STATUS_GUARD_PAGE_VIOLATION, SystemCode())));
  EXPECT_FALSE(::com::IsServerFault(FaultAt(STATUS_STACK_OVERFLOW, SystemCode())));
}

// What a C++ or CLR server handles below the guard is its own affair.
TEST(CallGuard, IsAskedAfterWhoeverHandlesAnExceptionInside) {
  for (const DWORD code : {DWORD{0xE06D7363}, DWORD{0xE0434352}}) {
    DWORD inside = 0;
    const auto raise = [code]() noexcept { RaiseException(code, 0, 0, nullptr); };
    const auto handle = [&]() noexcept { inside = ::com::FaultOf(raise); };
    EXPECT_EQ(0U, ::com::FaultOf(handle));
    EXPECT_EQ(code, inside);
  }
}

// A server calls this program, which calls the server again: what escapes from there must not pass
// over the program's own frames to whoever might handle it in the server further out.
TEST(CallGuard, LetsNoForeignExceptionPassOverThisProgramsFrames) {
  for (const DWORD code : {DWORD{0xE06D7363}, DWORD{0xE0434352}}) {
    DWORD innermost = 0;
    bool returned = false;
    const auto raise = [code]() noexcept { RaiseException(code, 0, 0, nullptr); };
    const auto program = [&]() noexcept {
      innermost = ::com::FaultOf(raise);
      returned = true;
    };
    EXPECT_EQ(0U, ::com::FaultOf(program));
    EXPECT_EQ(code, innermost);
    EXPECT_TRUE(returned);
  }
}

}  // namespace
}  // namespace com_test
