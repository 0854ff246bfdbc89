#include <gtest/gtest.h>

#include "LateServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

// The error raised when the server's GetRights answers with a handler.
data::RunTimeError ErrorBehind(const FakeObject::Handler& handler, bool supportsErrorInfo = false) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->supportsErrorInfo = supportsErrorInfo;
  server->On(L"GetRights", handler);
  return ErrorOf([&] { Adapt(server.Get())->GetRights(); });
}

data::RunTimeError ErrorBehind(HRESULT result) {
  return ErrorBehind([result](const FakeCall&) { return result; });
}

FakeObject::Handler Throws(WORD code, SCODE scode, const wchar_t* text) {
  return [=](const FakeCall& call) {
    *call.exception = {};
    call.exception->wCode = code;
    call.exception->scode = scode;
    call.exception->bstrSource = SysAllocString(L"a server");
    if (text != nullptr) call.exception->bstrDescription = SysAllocString(text);
    return DISP_E_EXCEPTION;
  };
}

void LeaveErrorObject(const wchar_t* text) {
  ComPtr<ICreateErrorInfo> creation;
  ASSERT_EQ(S_OK, CreateErrorInfo(creation.GetAddressOf()));
  creation->SetDescription(const_cast<wchar_t*>(text));
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(S_OK, creation.As(&info));
  SetErrorInfo(0, info.Get());
}

TEST(DescribedFailures, ComeWithNumberAndText) {
  const data::RunTimeError error = ErrorBehind(Throws(0, E_ACCESSDENIED, L"Accès refusé"));
  EXPECT_EQ(E_ACCESSDENIED, error.Number());
  EXPECT_EQ(L"Accès refusé", error.Text());
}

TEST(DescribedFailures, MayHaveASmallCode) {
  const data::RunTimeError error = ErrorBehind(Throws(1234, 0, L"text"));
  EXPECT_EQ(1234, error.Number());
  EXPECT_EQ(L"text", error.Text());
}

TEST(DescribedFailures, MayHaveAStandardNumber) {
  EXPECT_EQ(13, ErrorBehind(Throws(0, static_cast<SCODE>(0x800A000D), nullptr)).Number());
}

TEST(DescribedFailures, MayHaveNoText) {
  const data::RunTimeError error = ErrorBehind(Throws(0, E_FAIL, nullptr));
  EXPECT_EQ(E_FAIL, error.Number());
  EXPECT_EQ(L"", error.Text());
}

TEST(DescribedFailures, WithoutAnyNumberAreAutomationErrors) {
  EXPECT_EQ(data::kAutomationError, ErrorBehind(Throws(0, 0, L"text")).Number());
}

TEST(DescribedFailures, MayBeFilledInLate) {
  const data::RunTimeError error = ErrorBehind([](const FakeCall& call) {
    *call.exception = {};
    call.exception->pfnDeferredFillIn = [](EXCEPINFO* exception) WINAPI -> HRESULT {
      exception->scode = E_OUTOFMEMORY;
      exception->bstrDescription = SysAllocString(L"late");
      return S_OK;
    };
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(E_OUTOFMEMORY, error.Number());
  EXPECT_EQ(L"late", error.Text());
}

TEST(BareResults, AreTheNumberThemselves) {
  const data::RunTimeError error = ErrorBehind(E_ACCESSDENIED);
  EXPECT_EQ(-2147024891, error.Number());
  EXPECT_EQ(L"", error.Text());
}

TEST(BareResults, OfAutomationHaveStandardNumbers) {
  EXPECT_EQ(data::kTypeMismatch, ErrorBehind(DISP_E_TYPEMISMATCH).Number());
  EXPECT_EQ(data::kOverflow, ErrorBehind(DISP_E_OVERFLOW).Number());
  EXPECT_EQ(data::kSubscriptOutOfRange, ErrorBehind(DISP_E_BADINDEX).Number());
  EXPECT_EQ(data::kNoSuchMember, ErrorBehind(DISP_E_UNKNOWNNAME).Number());
  EXPECT_EQ(94, ErrorBehind(static_cast<HRESULT>(0x800A005E)).Number());
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, ErrorBehind(DISP_E_BADPARAMCOUNT).Number());
}

TEST(BareResults, TakeTheirTextFromTheErrorObject) {
  const auto fail = [](const FakeCall&) {
    LeaveErrorObject(L"left behind");
    return E_FAIL;
  };
  EXPECT_EQ(L"left behind", ErrorBehind(fail, true).Text());
  EXPECT_EQ(L"", ErrorBehind(fail, false).Text()) << "the object does not say that it is its own";
}

TEST(BareResults, DoNotTakeAnOldText) {
  ErrorBehind([](const FakeCall&) {
    LeaveErrorObject(L"old");
    return E_FAIL;
  });
  EXPECT_EQ(L"", ErrorBehind([](const FakeCall&) { return E_FAIL; }, true).Text());
}

TEST(DescribedFailures, TakeAMissingTextFromTheErrorObject) {
  const auto fail = [](const FakeCall& call) {
    LeaveErrorObject(L"left behind");
    return Throws(0, E_FAIL, nullptr)(call);
  };
  EXPECT_EQ(L"left behind", ErrorBehind(fail, true).Text());
}

TEST(LostObjects, AreReportedWithTheirNumberAndText) {
  for (const HRESULT result :
       {RPC_E_DISCONNECTED, CO_E_OBJNOTCONNECTED, RPC_E_SERVERFAULT, RPC_E_SERVER_DIED,
        HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED)}) {
    const data::RunTimeError error = ErrorBehind(result);
    EXPECT_EQ(result, error.Number());
    EXPECT_EQ(kLost, error.Text());
  }
}

data::RunTimeError ErrorOfOpening(const VARIANT& given) {
  const ComPtr<FakeObject> connection = FakeObject::Make();
  connection->Gives(L"OpenResultSet", given);
  return ErrorOf([&] { AdaptConnection(connection.Get())->OpenResultSet(L"SELECT"); });
}

TEST(ObjectsGivenBack, MustBeThere) {
  EXPECT_EQ(data::kObjectNotSet, ErrorOfOpening(ObjectValue(nullptr)).Number());
  EXPECT_EQ(data::kObjectRequired, ErrorOfOpening(Value(3)).Number());
  EXPECT_EQ(data::kObjectRequired, ErrorOfOpening(NullValue()).Number());
}

VARIANT ReferenceTo(IDispatch** object) {
  VARIANT value{};
  value.vt = VT_BYREF | VT_DISPATCH;
  value.ppdispVal = object;
  return value;
}

TEST(ObjectsGivenBack, MayComeByReference) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  IDispatch* object = rows.Get();
  EXPECT_EQ(0, ErrorOfOpening(ReferenceTo(&object)).Number());
  VARIANT variable = ObjectValue(object);
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = &variable;
  EXPECT_EQ(0, ErrorOfOpening(reference).Number());
  EXPECT_EQ(1U, rows->References());
  object = nullptr;
  EXPECT_EQ(data::kObjectNotSet, ErrorOfOpening(ReferenceTo(&object)).Number());
}

TEST(ObjectsGivenBack, MustBeCallableLateBound) {
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->isDispatch = false;
  VARIANT unknown{};
  unknown.vt = VT_UNKNOWN;
  unknown.punkVal = static_cast<IDispatch*>(object.Get());
  EXPECT_EQ(data::kNoAutomation, ErrorOfOpening(unknown).Number());
  object->isDispatch = true;
  EXPECT_EQ(0, ErrorOfOpening(unknown).Number());
}

}  // namespace
}  // namespace com_test
