#include <gtest/gtest.h>

#include "LateServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

struct Reading {
  std::wstring sessionText;
  std::int32_t sessionId = 0;
};

Reading ReadWith(const FakeObject::Handler& handler) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"ReadCommandLine", handler);
  Reading reading;
  Adapt(server.Get())->ReadCommandLine(L"/session:9", reading.sessionText, reading.sessionId);
  return reading;
}

// The way of a server whose arguments hold anything: typed references are refused.
FakeObject::Handler Untyped(const VARIANT& text, const VARIANT& id) {
  return [=](const FakeCall& call) {
    if (call.Argument(1).vt != (VT_BYREF | VT_VARIANT)) return DISP_E_TYPEMISMATCH;
    Give(call.Argument(1).pvarVal, text);
    return Give(call.Argument(2).pvarVal, id);
  };
}

TEST(CommandLine, IsReadThroughTypedReferences) {
  const Reading reading = ReadWith([](const FakeCall& call) {
    EXPECT_STREQ(L"/session:9", call.Argument(0).bstrVal);
    EXPECT_EQ(VT_BYREF | VT_BSTR, call.Argument(1).vt);
    EXPECT_EQ(VT_BYREF | VT_I4, call.Argument(2).vt);
    *call.Argument(1).pbstrVal = SysAllocString(L"text");
    *call.Argument(2).plVal = 9;
    return S_OK;
  });
  EXPECT_EQ(L"text", reading.sessionText);
  EXPECT_EQ(9, reading.sessionId);
}

TEST(CommandLine, IsReadThroughUntypedReferencesWhereTheServerWantsThem) {
  const Reading reading = ReadWith(Untyped(TextValue(L"text"), SmallValue(9)));
  EXPECT_EQ(L"text", reading.sessionText);
  EXPECT_EQ(9, reading.sessionId);
}

TEST(CommandLine, TakesASessionIdOfAnotherType) {
  EXPECT_EQ(12, ReadWith(Untyped(TextValue(L""), TextValue(L"12"))).sessionId);
  EXPECT_EQ(12, ReadWith(Untyped(TextValue(L""), RealValue(12.0))).sessionId);
}

TEST(CommandLine, WithAnImpossibleSessionIdIsAnError) {
  const auto error = [](const VARIANT& id) {
    return ErrorOf([&] { ReadWith(Untyped(TextValue(L""), id)); }).Number();
  };
  EXPECT_EQ(data::kOverflow, error(RealValue(1e15)));
  EXPECT_EQ(data::kTypeMismatch, error(TextValue(L"neuf")));
  EXPECT_EQ(data::kTypeMismatch, error(NullValue()));
}

TEST(CommandLine, ThatTheServerRefusesIsItsError) {
  const data::RunTimeError error = ErrorOf([] {
    ReadWith([](const FakeCall& call) {
      *call.exception = {};
      call.exception->scode = E_INVALIDARG;
      call.exception->bstrDescription = SysAllocString(L"unreadable");
      return DISP_E_EXCEPTION;
    });
  });
  EXPECT_EQ(E_INVALIDARG, error.Number());
  EXPECT_EQ(L"unreadable", error.Text());
}

}  // namespace
}  // namespace com_test
