#include "StringTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "GivenTexts.h"
#include "data/RunTimeError.h"
#include "data/Text.h"

namespace resources_test {
namespace {

constexpr int kErrorTexts = 10000;

TEST(StringTable, EveryGivenTextIsLoadedAsItWasGiven) {
  for (const GivenText& given : GivenTexts()) {
    EXPECT_EQ(LoadedText(given.id), given.text) << "text " << given.id;
  }
}

TEST(StringTable, EveryTextIsLoadedAsItIsWritten) {
  ASSERT_FALSE(WrittenTable().empty());
  for (const TableEntry& entry : WrittenTable()) {
    EXPECT_EQ(LoadedText(entry.id), entry.text) << "text " << entry.id;
  }
}

TEST(StringTable, ANumberWithoutATextGivesNone) {
  for (int id : {0, 100, 118, 1010, 9999, kErrorTexts + 1, 65535}) {
    EXPECT_EQ(LoadedText(id), "") << "text " << id;
  }
}

TEST(StringTable, NoNumberIsGivenTwice) {
  std::set<int> numbers;
  for (const TableEntry& entry : WrittenTable()) {
    EXPECT_TRUE(numbers.insert(entry.id).second) << "text " << entry.id;
  }
}

TEST(StringTable, TheNumbersLieInTheirRangesAndStandInOrder) {
  int last = 0;
  for (const TableEntry& entry : WrittenTable()) {
    EXPECT_GT(entry.id, last);
    last = entry.id;
    const bool shown = entry.id >= 101 && entry.id <= 1009;
    EXPECT_TRUE(shown || entry.id >= kErrorTexts) << "text " << entry.id;
    EXPECT_LE(entry.id, 65535);
  }
}

TEST(StringTable, EveryStandardErrorAndAnyOtherHasAText) {
  EXPECT_EQ(LoadedText(kErrorTexts), "Erreur définie par l'application ou par l'objet");
  for (long number :
       {data::kInvalidProcedureCall, data::kOverflow, data::kOutOfMemory,
        data::kSubscriptOutOfRange, data::kTypeMismatch, data::kFileNotFound, data::kObjectNotSet,
        data::kObjectRequired, data::kCannotCreateObject, data::kNoAutomation, data::kNoSuchMember,
        data::kAutomationError, data::kEntryPointNotFound, data::kKeyAlreadyUsed,
        data::kElementNotFound, data::kKeyNotUnique}) {
    const std::string text = LoadedText(kErrorTexts + static_cast<int>(number));
    EXPECT_FALSE(text.empty()) << "error " << number;
    EXPECT_NE(text, LoadedText(kErrorTexts)) << "error " << number;
  }
}

// French needs no letter outside these ranges, and all of them are single, composed characters: a
// decomposed accent, a control character or a blank that only looks like one stands out.
bool IsPlainFrench(wchar_t unit) {
  const bool ascii = unit >= 0x20 && unit < 0x7F;
  const bool latin = unit >= 0xC0 && unit <= 0x17F;
  return ascii || latin;
}

TEST(StringTable, EveryTextIsOfComposedLettersAndPlainBlanks) {
  for (const TableEntry& entry : WrittenTable()) {
    const std::wstring text = data::FromUtf8(entry.text);
    EXPECT_FALSE(text.empty()) << "text " << entry.id;
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), IsPlainFrench)) << "text " << entry.id;
  }
}

// Placeholders a text has: the highest number, or -1 when a percent sign stands for nothing.
int Placeholders(const std::string& text) {
  int highest = 0;
  for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
    const char digit = at + 1 < text.size() ? text[at + 1] : ' ';
    if (digit < '1' || digit > '9') return -1;
    highest = std::max(highest, digit - '0');
  }
  return highest;
}

TEST(StringTable, EachTextHasThePlaceholdersThatTheProgramFills) {
  const std::map<int, int> filled = {
      {402, 2}, {403, 2}, {404, 3}, {406, 2}, {407, 2}, {413, 1}, {415, 1}, {425, 1},
      {431, 1}, {432, 1}, {433, 1}, {434, 1}, {435, 1}, {436, 1}, {437, 2}, {438, 2},
      {439, 2}, {440, 2}, {441, 2}, {442, 2}, {443, 2}, {444, 2}, {445, 2}, {446, 1},
      {447, 1}, {452, 2}, {462, 1}, {463, 1}, {465, 1}, {502, 1}, {503, 1}, {504, 1},
      {505, 1}, {520, 2}, {522, 1}, {538, 1}, {540, 1}, {542, 1}, {543, 2}, {548, 1},
      {554, 2}, {555, 2}, {556, 1}, {558, 1}, {559, 1}, {560, 1}, {573, 1}, {580, 1},
      {581, 1}, {582, 1}, {583, 1}, {584, 1}, {585, 1}, {586, 1}, {587, 1}, {588, 1},
      {591, 1}, {592, 1}, {593, 1}, {599, 3}, {620, 1}, {621, 2}, {625, 1}, {631, 1}};
  for (const TableEntry& entry : WrittenTable()) {
    const auto expected = filled.find(entry.id);
    EXPECT_EQ(Placeholders(entry.text), expected == filled.end() ? 0 : expected->second)
        << "text " << entry.id;
  }
}

}  // namespace

}  // namespace resources_test
