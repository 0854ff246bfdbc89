#include "data/Value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "data/RunTimeError.h"

namespace data {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int32_t>::min();

// The number of the error that reading a value as an integer raises; 0 for none.
long IntegerError(const ColumnValue& value) {
  try {
    value.Integer();
    return 0;
  } catch (const RunTimeError& error) {
    return error.Number();
  }
}

TEST(ColumnValues, ANullIsNoIntegerAndAnEmptyText) {
  const ColumnValue null;
  EXPECT_TRUE(null.IsNull());
  EXPECT_TRUE(null.IsNullOrEmpty());
  EXPECT_FALSE(null.IsNumber());
  EXPECT_EQ(null.Text(), L"");
  EXPECT_EQ(IntegerError(null), kTypeMismatch);
}

TEST(ColumnValues, AnIntegerHas32BitsWhetherItComesAsANumberOrAsAText) {
  for (const std::int64_t number : {kLargest, kSmallest, std::int64_t{0}}) {
    EXPECT_EQ(ColumnValue(number).Integer(), number);
    EXPECT_EQ(ColumnValue(std::wstring_view(L" " + std::to_wstring(number) + L" ")).Integer(),
              number);
  }
  for (const std::int64_t number :
       {kLargest + 1, kSmallest - 1, std::int64_t{1} << 32,
        std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
    const std::wstring text = std::to_wstring(number);
    EXPECT_EQ(IntegerError(ColumnValue(number)), kOverflow) << number;
    EXPECT_EQ(IntegerError(ColumnValue(std::wstring_view(text))), kOverflow) << number;
    EXPECT_EQ(ColumnValue(number).Text(), text);
  }
}

TEST(ColumnValues, ATextThatIsNoNumberIsATypeMismatch) {
  for (const wchar_t* text : {L"", L"  ", L"x", L"1x", L"-", L"1.5"}) {
    EXPECT_EQ(IntegerError(ColumnValue(std::wstring_view(text))), kTypeMismatch);
  }
}

}  // namespace
}  // namespace data
