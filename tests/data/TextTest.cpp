#include "data/Text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "data/RunTimeError.h"

namespace data {
namespace {

long ErrorOf(std::wstring_view text) {
  try {
    ToInteger(text);
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(Text, ALetterOutsideTheBmpCountsAsTwoUnitsAndComesBackWhole) {
  const std::wstring text = FromUtf8("a\xF0\x9F\x94\x91z");
  ASSERT_EQ(text.size(), 4U);
  EXPECT_EQ(static_cast<char32_t>(text[1]), U'\xD83D');
  EXPECT_EQ(static_cast<char32_t>(text[2]), U'\xDD11');
  EXPECT_EQ(ToUtf8(text), "a\xF0\x9F\x94\x91z");
}

TEST(Text, MalformedUtf8BecomesReplacementsAndSwallowsNothing) {
  EXPECT_EQ(FromUtf8("\xC3"), L"\xFFFD");
  EXPECT_EQ(FromUtf8("a\xE2\x82z"), L"a\xFFFD\xFFFDz");
  EXPECT_EQ(FromUtf8("\xC0\x80"), L"\xFFFD\xFFFD");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\xFFFD\xFFFD\xFFFD");
}

TEST(Text, ALoneSurrogateBecomesAReplacementInUtf8) {
  EXPECT_EQ(ToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800)) + L"x"), "\xEF\xBF\xBDx");
}

TEST(Text, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim(L"  a b  "), L"a b");
  EXPECT_EQ(Trim(L"\ta\x00A0"), L"\ta\x00A0");
  EXPECT_EQ(Trim(L"   "), L"");
}

TEST(Text, ANumberIsWrittenInDecimalDigitsWhateverItsSize) {
  EXPECT_EQ(Decimal(0), L"0");
  EXPECT_EQ(Decimal(-17), L"-17");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()), L"9223372036854775807");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
}

TEST(Text, APersonFindsTheDigitsOfANumberInGroupsOfThree) {
  EXPECT_EQ(GroupedDecimal(0), L"0");
  EXPECT_EQ(GroupedDecimal(999), L"999");
  EXPECT_EQ(GroupedDecimal(-999), L"-999");
  EXPECT_EQ(GroupedDecimal(30000), std::wstring(L"30\xA0") + L"000");
  EXPECT_EQ(GroupedDecimal(-1234567), std::wstring(L"-1\xA0") + L"234" + L"\xA0" + L"567");
}

TEST(Text, ToIntegerTrimsAndReadsTheWhole32BitRange) {
  EXPECT_EQ(ToInteger(L" 17 "), 17);
  EXPECT_EQ(ToInteger(L"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ToInteger(L"2147483647"), 2147483647);
}

TEST(Text, ToIntegerRefusesWhatIsNoNumberOrDoesNotFit) {
  EXPECT_EQ(ErrorOf(L""), kTypeMismatch);
  EXPECT_EQ(ErrorOf(L"-"), kTypeMismatch);
  EXPECT_EQ(ErrorOf(L"1 2"), kTypeMismatch);
  EXPECT_EQ(ErrorOf(L"2147483648"), kOverflow);
  EXPECT_EQ(ErrorOf(L"99999999999999999999999"), kOverflow);
}

}  // namespace
}  // namespace data
