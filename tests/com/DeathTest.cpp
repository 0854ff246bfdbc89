#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "ForeignCode.h"
#include "LateServer.h"
#include "automation/Adopt.h"
#include "automation/ComObject.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

HRESULT WriteNowhere(const FakeCall&) {
  FaultInForeignCode();
  return S_OK;
}

void Die() {
  WriteNowhere({});
}

bool IsLoss(const data::RunTimeError& error) {
  return error.Number() == kAccessViolation && error.Text() == kLost;
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
  EXPECT_EQ(2U, server->References()) << "not even its references are given back";
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

// What an object of a test leaves behind when its server has died: the adapter's reference.
void ExpectAbandoned(FakeObject& object) {
  EXPECT_EQ(2U, object.References()) << "a dead server is not asked to count";
  object.Release();
}

TEST(DyingServer, MayDieOfBeingAskedForANumber) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"GetRights", Value(4)).Gives(L"GetSessionUserText", TextValue(L"Admin"));
  server->onLookup = Die;
  {
    const auto adapter = Adapt(server.Get());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetRights(); })));
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetSessionUserText(); })));
  }
  EXPECT_EQ(1, server->lookups);
  EXPECT_EQ(0, server->calls);
  ExpectAbandoned(*server.Get());
}

TEST(DyingServer, MayDieOfBeingAskedForAnInterface) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->onQuery = Die;
  VARIANT unknown{};
  unknown.vt = VT_UNKNOWN;
  unknown.punkVal = static_cast<IDispatch*>(rows.Get());
  const ComPtr<FakeObject> connection = FakeObject::Make();
  connection->On(L"OpenResultSet", [&](const FakeCall& call) {
    rows->AddRef();
    *call.result = unknown;
    return S_OK;
  });
  {
    const auto adapter = AdaptConnection(connection.Get());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->OpenResultSet(L"SELECT"); })));
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->OpenResultSet(L"SELECT"); })));
  }
  EXPECT_EQ(1, rows->queries);
  EXPECT_EQ(1, connection->calls);
  ExpectAbandoned(*rows.Get());
  ExpectAbandoned(*connection.Get());
}

TEST(DyingServer, MayDieOfADefaultValue) {
  const ComPtr<FakeObject> field = FakeObject::Make(DISPID_VALUE);
  field->On(L"Value", WriteNowhere);
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->Gives(L"Column", ObjectValue(field.Get()));
  {
    const auto adapter = AdaptResultSet(rows.Get());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->Column(0); })));
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->Column(0); })));
  }
  EXPECT_EQ(1, rows->calls);
  ExpectAbandoned(*field.Get());
  ExpectAbandoned(*rows.Get());
}

TEST(DyingServer, MayDieOfADescriptionThatItHasPutOff) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->supportsErrorInfo = true;
  server->On(L"GetRights", [](const FakeCall& call) {
    *call.exception = {};
    call.exception->scode = E_FAIL;
    call.exception->pfnDeferredFillIn = [](EXCEPINFO* exception) WINAPI -> HRESULT {
      exception->bstrDescription = reinterpret_cast<BSTR>(8);
      return WriteNowhere({});
    };
    return DISP_E_EXCEPTION;
  });
  {
    const auto adapter = Adapt(server.Get());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetRights(); })));
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetRights(); })));
  }
  EXPECT_EQ(1, server->calls);
  EXPECT_EQ(0, server->queries) << "it is not asked for an error object either";
  ExpectAbandoned(*server.Get());
}

// An error object of the server's own making.
class DyingErrorObject final : public automation::ComObject<IErrorInfo> {
 public:
  HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override {
    *text = reinterpret_cast<BSTR>(8);
    return WriteNowhere({});
  }
  HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

  ULONG References() const { return ComObject::References(); }
};

TEST(DyingServer, MayDieOfItsErrorObject) {
  const auto error = automation::Adopt<DyingErrorObject>(std::make_unique<DyingErrorObject>());
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->supportsErrorInfo = true;
  server->On(L"GetRights", [&](const FakeCall&) {
    SetErrorInfo(0, error.Get());
    return E_FAIL;
  });
  {
    const auto adapter = Adapt(server.Get());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetRights(); })));
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->GetRights(); })));
  }
  EXPECT_EQ(1, server->calls);
  EXPECT_EQ(2U, error->References()) << "the object is the dead server's too";
  error->Release();
  ExpectAbandoned(*server.Get());
}

TEST(DyingServer, MayDieOfARelease) {
  ComPtr<FakeObject> rows = FakeObject::Make();
  rows->onLastRelease = Die;
  FakeObject* const last = rows.Get();
  const ComPtr<FakeObject> connection = FakeObject::Make();
  connection->On(L"OpenResultSet", [&](const FakeCall& call) {
    *call.result = ObjectValue(rows.Detach());
    return S_OK;
  });
  {
    const auto adapter = AdaptConnection(connection.Get());
    adapter->OpenResultSet(L"SELECT").reset();
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->OpenResultSet(L"SELECT"); })));
  }
  EXPECT_EQ(1, connection->calls);
  ExpectAbandoned(*connection.Get());
  last->Release();
}

TEST(DyingServer, MayDieOfTheReleaseOfAValue) {
  ComPtr<FakeObject> field = FakeObject::Make(DISPID_VALUE);
  field->Gives(L"Value", TextValue(L"Martin"));
  field->onLastRelease = Die;
  FakeObject* const last = field.Get();
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->On(L"Column", [&](const FakeCall& call) {
    *call.result = ObjectValue(field.Detach());
    return S_OK;
  });
  {
    const auto adapter = AdaptResultSet(rows.Get());
    EXPECT_EQ(L"Martin", adapter->Column(0).Text());
    EXPECT_TRUE(IsLoss(ErrorOf([&] { adapter->Column(1); })));
  }
  EXPECT_EQ(1, rows->calls);
  ExpectAbandoned(*rows.Get());
  last->Release();
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
