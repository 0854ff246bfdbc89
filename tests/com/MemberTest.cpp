#include <gtest/gtest.h>

#include "LateServer.h"
#include "data/ReadScope.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

HRESULT Done(const FakeCall&) {
  return S_OK;
}

// A result set without rows whose members are numbered from firstId.
ComPtr<FakeObject> EmptyRows(DISPID firstId) {
  ComPtr<FakeObject> rows = FakeObject::Make(firstId);
  VARIANT yes{};
  yes.vt = VT_BOOL;
  yes.boolVal = VARIANT_TRUE;
  rows->Gives(L"EndOfRows", yes).Gives(L"Column", Value(firstId));
  rows->On(L"MoveNext", Done).On(L"Close", Done);
  return rows;
}

// A connection that gives out these result sets in turn.
ComPtr<FakeObject> ConnectionTo(std::vector<ComPtr<FakeObject>> sets) {
  ComPtr<FakeObject> connection = FakeObject::Make();
  connection->On(L"OpenResultSet", [sets, at = std::size_t{0}](const FakeCall& call) mutable {
    return Give(call.result, ObjectValue(sets[at++].Get()));
  });
  return connection;
}

TEST(Members, AMissingOneIsError438WithItsName) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  const data::RunTimeError error = ErrorOf([&] { Adapt(server.Get())->GetRights(); });
  EXPECT_EQ(data::kNoSuchMember, error.Number());
  EXPECT_EQ(L"no GetRights here", error.Text());
}

TEST(Members, AMissingOneIsAskedForOnce) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  const auto adapter = Adapt(server.Get());
  for (int i = 0; i < 3; ++i) ErrorOf([&] { adapter->GetRights(); });
  EXPECT_EQ(1, server->lookups);
}

TEST(Members, OneThatTheObjectForgotIsError438) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [](const FakeCall&) { return DISP_E_MEMBERNOTFOUND; });
  EXPECT_EQ(data::kNoSuchMember, ErrorOf([&] { Adapt(server.Get())->GetRights(); }).Number());
}

TEST(Members, ANumberIsAskedForOnce) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"GetRights", Value(7));
  const auto adapter = Adapt(server.Get());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(7, adapter->GetRights());
  EXPECT_EQ(1, server->lookups);
  EXPECT_EQ(3, server->calls);
}

TEST(Members, NegativeNumbersAreNumbersToo) {
  const ComPtr<FakeObject> server = FakeObject::Make(-552);
  server->Gives(L"GetRights", Value(4)).On(L"SetMode", Done);
  const auto adapter = Adapt(server.Get());
  EXPECT_EQ(4, adapter->GetRights());
  adapter->SetMode(1);
  adapter->SetMode(1);
  EXPECT_EQ(2, server->lookups);
}

TEST(Members, ArgumentsArriveInTheDeclaredOrder) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"OpenSession", [](const FakeCall& call) {
    EXPECT_EQ(2U, call.params->cArgs);
    EXPECT_EQ(0U, call.params->cNamedArgs);
    EXPECT_STREQ(L"the text", call.Argument(0).bstrVal);
    EXPECT_EQ(VT_I4, call.Argument(1).vt);
    EXPECT_EQ(77, call.Argument(1).lVal);
    EXPECT_EQ(DISPATCH_METHOD, call.kind);
    EXPECT_EQ(nullptr, call.result);
    return S_OK;
  });
  Adapt(server.Get())->OpenSession(L"the text", 77);
  EXPECT_EQ(1, server->calls);
}

TEST(Members, ValuesAreAskedForAsPropertyAndAsMethod) {
  const ComPtr<FakeObject> rows = EmptyRows(10);
  rows->On(L"Update", [](const FakeCall& call) {
    EXPECT_EQ(DISPATCH_METHOD, call.kind);
    return S_OK;
  });
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [](const FakeCall& call) {
    EXPECT_EQ(DISPATCH_METHOD | DISPATCH_PROPERTYGET, call.kind);
    *call.result = Value(1);
    return S_OK;
  });
  AdaptResultSet(rows.Get())->Update();
  EXPECT_EQ(1, Adapt(server.Get())->GetRights());
}

TEST(ResultSetClasses, OfOneClassShareTheirNumbers) {
  std::vector<ComPtr<FakeObject>> sets = {EmptyRows(10), EmptyRows(10), EmptyRows(10)};
  const ComPtr<FakeObject> source = ConnectionTo(sets);
  const auto connection = AdaptConnection(source.Get());
  for (int i = 0; i < 3; ++i) {
    const auto rows = connection->OpenResultSet(L"SELECT");
    EXPECT_TRUE(rows->EndOfRows());
    EXPECT_EQ(10, rows->Column(0).Integer());
    rows->MoveNext();
    rows->Close();
  }
  EXPECT_EQ(4, sets[0]->lookups);
  EXPECT_EQ(1, sets[1]->lookups) << "one question tells whether the class is known";
  EXPECT_EQ(1, sets[2]->lookups);
}

TEST(ResultSetClasses, OfAnotherClassAreCalledByTheirOwnNumbers) {
  std::vector<ComPtr<FakeObject>> sets = {EmptyRows(10), EmptyRows(17), EmptyRows(10)};
  const ComPtr<FakeObject> source = ConnectionTo(sets);
  const auto connection = AdaptConnection(source.Get());
  for (const std::int32_t expected : {10, 17, 10}) {
    const auto rows = connection->OpenResultSet(L"SELECT");
    EXPECT_TRUE(rows->EndOfRows());
    EXPECT_EQ(expected, rows->Column(0).Integer());
  }
}

TEST(ResultSetClasses, MayBeMoreThanAreRemembered) {
  std::vector<ComPtr<FakeObject>> sets;
  for (DISPID first = 1; first <= 40; ++first) sets.push_back(EmptyRows(first));
  const ComPtr<FakeObject> source = ConnectionTo(sets);
  const auto connection = AdaptConnection(source.Get());
  std::vector<std::unique_ptr<data::ResultSet>> open;
  for (int i = 0; i < 40; ++i) open.push_back(connection->OpenResultSet(L"SELECT"));
  for (int i = 0; i < 40; ++i) EXPECT_EQ(i + 1, open[i]->Column(0).Integer());
}

TEST(ReadTransaction, IsOptional) {
  const ComPtr<FakeObject> object = FakeObject::Make();
  const auto connection = AdaptConnection(object.Get());
  connection->BeginRead();
  connection->EndRead();
  connection->BeginRead();
  EXPECT_EQ(0, object->calls);
  EXPECT_EQ(2, object->lookups);
}

TEST(ReadTransaction, IsBegunAndEndedWhereItIsOffered) {
  std::wstring seen;
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->On(L"BeginRead", [&](const FakeCall&) { return seen += L"begin ", S_OK; });
  object->On(L"EndRead", [&](const FakeCall&) { return seen += L"end ", S_OK; });
  const auto connection = AdaptConnection(object.Get());
  data::ReadScope(*connection).Finish();
  EXPECT_EQ(L"begin end ", seen);
}

TEST(ReadTransaction, ThatFailsIsAnError) {
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->On(L"BeginRead", [](const FakeCall&) { return E_ACCESSDENIED; });
  const auto connection = AdaptConnection(object.Get());
  EXPECT_EQ(E_ACCESSDENIED, ErrorOf([&] { connection->BeginRead(); }).Number());
}

TEST(References, AreGivenBack) {
  const ComPtr<FakeObject> rows = EmptyRows(10);
  const ComPtr<FakeObject> connection = FakeObject::Make();
  connection->On(L"OpenResultSet",
                 [&](const FakeCall& call) { return Give(call.result, ObjectValue(rows.Get())); });
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"DatabaseConnection", [&](const FakeCall& call) {
    return Give(call.result, ObjectValue(connection.Get()));
  });
  {
    const auto adapter = Adapt(server.Get());
    const auto database = adapter->DatabaseConnection();
    const auto set = database->OpenResultSet(L"SELECT");
    EXPECT_EQ(2U, rows->References());
    EXPECT_EQ(2U, connection->References());
    EXPECT_EQ(2U, server->References());
  }
  EXPECT_EQ(1U, rows->References());
  EXPECT_EQ(1U, connection->References());
  EXPECT_EQ(1U, server->References());
}

}  // namespace
}  // namespace com_test
