#include <gtest/gtest.h>

#include "LateServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

std::int32_t RightsGivenAs(const VARIANT& value) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"GetRights", value);
  return Adapt(server.Get())->GetRights();
}

std::wstring TextGivenAs(const VARIANT& value) {
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->Gives(L"GetSessionUserText", value);
  return Adapt(server.Get())->GetSessionUserText();
}

long NumberOfError(const std::function<void()>& action) {
  return ErrorOf(action).Number();
}

VARIANT Typed(VARTYPE type) {
  VARIANT value{};
  value.vt = type;
  return value;
}

TEST(Numbers, OfSixteenBitsAreTaken) {
  EXPECT_EQ(4, RightsGivenAs(SmallValue(4)));
  EXPECT_EQ(-1, RightsGivenAs(SmallValue(-1)));
}

TEST(Numbers, OfOtherTypesAreConverted) {
  EXPECT_EQ(4, RightsGivenAs(RealValue(4.0)));
  EXPECT_EQ(12, RightsGivenAs(TextValue(L" 12 ")));
  VARIANT big{};
  big.vt = VT_I8;
  big.llVal = 2147483647;
  EXPECT_EQ(2147483647, RightsGivenAs(big));
}

TEST(Numbers, TooLargeAreAnOverflow) {
  VARIANT big{};
  big.vt = VT_I8;
  big.llVal = 2147483648;
  EXPECT_EQ(data::kOverflow, NumberOfError([&] { RightsGivenAs(big); }));
  EXPECT_EQ(data::kOverflow, NumberOfError([] { RightsGivenAs(RealValue(1e20)); }));
  EXPECT_EQ(data::kOverflow, NumberOfError([] { RightsGivenAs(TextValue(L"2147483648")); }));
}

TEST(Numbers, ThatAreNoneAreATypeMismatch) {
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([] { RightsGivenAs(TextValue(L"four")); }));
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([] { RightsGivenAs(TextValue(L"")); }));
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([] { RightsGivenAs(NullValue()); }));
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([] { RightsGivenAs(Typed(VT_EMPTY)); }));
}

TEST(Numbers, BehindAReferenceAreFollowed) {
  LONG four = 4;
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &four;
  const ComPtr<FakeObject> server = FakeObject::Make();
  server->On(L"GetRights", [&](const FakeCall& call) { return *call.result = reference, S_OK; });
  EXPECT_EQ(4, Adapt(server.Get())->GetRights());
}

TEST(Texts, MayHoldAnything) {
  EXPECT_EQ(L"", TextGivenAs(TextValue(L"")));
  EXPECT_EQ(L"élève d'Œuvre \xD83D\xDE00", TextGivenAs(TextValue(L"élève d'Œuvre \xD83D\xDE00")));
  const std::wstring longText(4000, L'\x05D0');
  EXPECT_EQ(longText, TextGivenAs(TextValue(longText.c_str())));
}

TEST(Texts, OfOtherTypesAreConvertedWithoutALocale) {
  EXPECT_EQ(L"12", TextGivenAs(Value(12)));
  EXPECT_EQ(L"2.5", TextGivenAs(RealValue(2.5)));
}

TEST(Texts, OfNothingAreEmpty) {
  EXPECT_EQ(L"", TextGivenAs(NullValue()));
  EXPECT_EQ(L"", TextGivenAs(Typed(VT_EMPTY)));
  EXPECT_EQ(L"", TextGivenAs(Typed(VT_BSTR)));
}

TEST(RowCounts, AreUnknownWhenNothingComesBack) {
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->Gives(L"Execute", Typed(VT_EMPTY));
  EXPECT_EQ(-1, AdaptConnection(object.Get())->Execute(L"DELETE"));
  const ComPtr<FakeObject> other = FakeObject::Make();
  other->Gives(L"Execute", NullValue());
  EXPECT_EQ(-1, AdaptConnection(other.Get())->Execute(L"DELETE"));
}

TEST(RowCounts, ComeBackAsTheServerCountsThem) {
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->On(L"Execute", [](const FakeCall& call) {
    EXPECT_STREQ(L"DELETE FROM QRUSGP", call.Argument(0).bstrVal);
    return *call.result = SmallValue(3), S_OK;
  });
  EXPECT_EQ(3, AdaptConnection(object.Get())->Execute(L"DELETE FROM QRUSGP"));
}

std::wstring TextOfColumn(const VARIANT& value, bool& isNull) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->Gives(L"Column", value);
  const auto adapter = AdaptResultSet(rows.Get());
  const data::ColumnValue column = adapter->Column(0);
  isNull = column.IsNull();
  return column.Text();
}

std::wstring TextOfColumn(const VARIANT& value) {
  bool isNull = false;
  const std::wstring text = TextOfColumn(value, isNull);
  EXPECT_FALSE(isNull);
  return text;
}

TEST(Columns, KnowNullFromEmpty) {
  bool isNull = false;
  EXPECT_EQ(L"", TextOfColumn(NullValue(), isNull));
  EXPECT_TRUE(isNull);
  EXPECT_EQ(L"", TextOfColumn(Typed(VT_EMPTY), isNull));
  EXPECT_TRUE(isNull);
  EXPECT_EQ(L"", TextOfColumn(TextValue(L""), isNull));
  EXPECT_FALSE(isNull);
  EXPECT_EQ(L"", TextOfColumn(Typed(VT_BSTR), isNull));
  EXPECT_FALSE(isNull);
}

TEST(Columns, TakeNumbersOfEveryKind) {
  EXPECT_EQ(L"-7", TextOfColumn(SmallValue(-7)));
  EXPECT_EQ(L"70000", TextOfColumn(Value(70000)));
  EXPECT_EQ(L"9", TextOfColumn(RealValue(9.0)));
  EXPECT_EQ(L"9.5", TextOfColumn(RealValue(9.5)));
  VARIANT money{};
  money.vt = VT_CY;
  money.cyVal.int64 = 120000;
  EXPECT_EQ(L"12", TextOfColumn(money));
  VARIANT large{};
  large.vt = VT_UI4;
  large.ulVal = 4000000000;
  EXPECT_EQ(L"4000000000", TextOfColumn(large));
}

TEST(Columns, ThatHoldNoPlainValueAreATypeMismatch) {
  VARIANT numbers{};
  numbers.vt = VT_ARRAY | VT_I4;
  numbers.parray = SafeArrayCreateVector(VT_I4, 0, 4);
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([&] { TextOfColumn(numbers); }));
  SafeArrayDestroy(numbers.parray);
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([] { TextOfColumn(Typed(VT_ERROR)); }));
}

TEST(Columns, ThatAreObjectsStandForTheirDefaultValue) {
  const ComPtr<FakeObject> field = FakeObject::Make(DISPID_VALUE);
  field->Gives(L"Value", TextValue(L"Martin"));
  EXPECT_EQ(L"Martin", TextOfColumn(ObjectValue(field.Get())));
  EXPECT_EQ(data::kObjectNotSet, NumberOfError([] { TextOfColumn(ObjectValue(nullptr)); }));
}

TEST(Columns, ThatAreObjectsMayComeByReference) {
  const ComPtr<FakeObject> field = FakeObject::Make(DISPID_VALUE);
  field->Gives(L"Value", TextValue(L"Martin"));
  IDispatch* target = field.Get();
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_DISPATCH;
  reference.ppdispVal = &target;
  EXPECT_EQ(L"Martin", TextOfColumn(reference));
  EXPECT_EQ(1U, field->References());
}

TEST(Columns, ThatAreObjectsMayStandForFurtherObjects) {
  const ComPtr<FakeObject> inner = FakeObject::Make(DISPID_VALUE);
  inner->Gives(L"Value", TextValue(L"Martin"));
  const ComPtr<FakeObject> outer = FakeObject::Make(DISPID_VALUE);
  outer->Gives(L"Value", ObjectValue(inner.Get()));
  EXPECT_EQ(L"Martin", TextOfColumn(ObjectValue(outer.Get())));
  const ComPtr<FakeObject> endless = FakeObject::Make(DISPID_VALUE);
  endless->On(L"Value",
              [&](const FakeCall& call) { return Give(call.result, ObjectValue(endless.Get())); });
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([&] { TextOfColumn(ObjectValue(endless.Get())); }));
  EXPECT_EQ(1U, endless->References());
}

TEST(Columns, AreAskedForOncePerRow) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->Gives(L"Column", TextValue(L"Martin"));
  rows->On(L"MoveNext", [](const FakeCall&) { return S_OK; });
  const auto adapter = AdaptResultSet(rows.Get());
  const data::ColumnValue first = adapter->Column(1);
  const data::ColumnValue again = adapter->Column(1);
  EXPECT_EQ(first.BorrowedText().data(), again.BorrowedText().data());
  EXPECT_EQ(1, rows->calls);
  adapter->MoveNext();
  EXPECT_EQ(L"Martin", adapter->Column(1).Text());
  EXPECT_EQ(3, rows->calls);
}

TEST(Columns, StayReadableWhileOthersAreRead) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->On(L"Column", [](const FakeCall& call) {
    const std::wstring text = L"column " + std::to_wstring(call.Argument(0).lVal);
    call.result->vt = VT_BSTR;
    call.result->bstrVal = SysAllocString(text.c_str());
    return S_OK;
  });
  const auto adapter = AdaptResultSet(rows.Get());
  std::vector<data::ColumnValue> values;
  for (int i = 0; i < 100; ++i) values.push_back(adapter->Column(i));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(L"column " + std::to_wstring(i), values[i].Text());
}

TEST(Columns, AtAnImpossiblePositionAreOutOfRange) {
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->Gives(L"Column", Value(1));
  const auto adapter = AdaptResultSet(rows.Get());
  EXPECT_EQ(data::kSubscriptOutOfRange, NumberOfError([&] { adapter->Column(-1); }));
  EXPECT_EQ(data::kSubscriptOutOfRange, NumberOfError([&] { adapter->Column(1 << 30); }));
  EXPECT_EQ(0, rows->calls);
}

TEST(Rows, EndAsTheServerSaysIt) {
  for (const VARIANT& end : {Value(0), Value(1), SmallValue(-1), TextValue(L"True")}) {
    const ComPtr<FakeObject> rows = FakeObject::Make();
    rows->Gives(L"EndOfRows", end);
    EXPECT_EQ(end.vt != VT_I4 || end.lVal != 0, AdaptResultSet(rows.Get())->EndOfRows());
  }
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->Gives(L"EndOfRows", NullValue());
  EXPECT_EQ(data::kTypeMismatch, NumberOfError([&] { AdaptResultSet(rows.Get())->EndOfRows(); }));
}

TEST(Rows, AreWrittenByNameAndByPosition) {
  std::wstring seen;
  const auto note = [&](const FakeCall& call) {
    const VARIANT& column = call.Argument(0);
    const VARIANT& value = call.Argument(1);
    seen += column.vt == VT_BSTR ? column.bstrVal : std::to_wstring(column.lVal).c_str();
    seen += value.vt == VT_NULL ? L"=null;" : L"=";
    if (value.vt == VT_BSTR) seen += std::wstring(value.bstrVal) + L";";
    if (value.vt == VT_I4) seen += std::to_wstring(value.lVal) + L";";
    return S_OK;
  };
  const ComPtr<FakeObject> rows = FakeObject::Make();
  rows->On(L"SetColumn", note);
  const auto adapter = AdaptResultSet(rows.Get());
  adapter->SetColumn(L"NAME", std::wstring(L"D'Arc"));
  adapter->SetColumn(2, std::int32_t{-5});
  adapter->SetColumn(L"DESCR", std::monostate{});
  EXPECT_EQ(L"NAME=D'Arc;2=-5;DESCR=null;", seen);
}

}  // namespace
}  // namespace com_test
