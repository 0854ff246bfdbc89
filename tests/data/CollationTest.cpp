#include "data/Collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "data/Text.h"

namespace data {
namespace {

std::string KeyOf(const char* text) {
  return CollationKey(FromUtf8(text));
}

TEST(Collation, OrdersNamesAsAFrenchReaderExpects) {
  const std::vector<const char*> names = {
      "",           "'t Hooft", "-",       "10",
      "2",          "Abel",     "de Boer", "de La Rochefoucauld",
      "Desjardins", "Eluard",   "Éluard",  "Emile",
      "émile.sch",  "Ernst",    "Fabrice", "Noël",
      "Odile",      "Œuvrard",  "Ogier",   "Zoé",
      "Ωmega"};
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    EXPECT_LT(KeyOf(names[i]), KeyOf(names[i + 1])) << names[i] << " before " << names[i + 1];
  }
}

TEST(Collation, CaseMakesNoDifference) {
  EXPECT_EQ(KeyOf("Émile"), KeyOf("éMILE"));
  EXPECT_EQ(KeyOf("ŒUVRARD"), KeyOf("œuvrard"));
}

TEST(Collation, AccentsCountOnlyWhereTheLettersAreTheSame) {
  EXPECT_LT(KeyOf("cote"), KeyOf("coté"));
  EXPECT_LT(KeyOf("coté"), KeyOf("cotes"));
}

TEST(Collation, ALigatureIsItsTwoLetters) {
  EXPECT_EQ(KeyOf("Œuvrard"), KeyOf("Oeuvrard"));
  EXPECT_LT(KeyOf("Oeuvra"), KeyOf("Œuvrard"));
}

TEST(Collation, LettersWithTwoMarksStandBesideTheirLetter) {
  EXPECT_LT(KeyOf("Nguyen"), KeyOf("Nguyễn"));
  EXPECT_LT(KeyOf("Nguyễn"), KeyOf("Nguyenne"));
  EXPECT_LT(KeyOf("Trư"), KeyOf("Trưb"));
  EXPECT_LT(KeyOf("Trưb"), KeyOf("Truc"));
  EXPECT_LT(KeyOf("Șerban"), KeyOf("Serbane"));
  EXPECT_EQ(KeyOf("NGUYỄN"), KeyOf("nguyễn"));
}

TEST(Collation, AMarkThatIsACharacterOfItsOwnBelongsToTheLetterBeforeIt) {
  const std::wstring apart = L"E\x301mile";
  EXPECT_EQ(CollationKey(apart), KeyOf("Émile"));
  EXPECT_EQ(CollationKey(L"c\x327"), KeyOf("ç"));
}

TEST(Collation, TheBeginningOfATextComesBeforeIt) {
  for (const char* text : {"a", "à b", "12", "l'h", "Ωm"}) {
    std::wstring longer = FromUtf8(text);
    const std::string key = CollationKey(longer);
    for (const wchar_t next : {L'\'', L' ', L'*', L'0', L'a', L'\xE9', L'\x3A9'}) {
      EXPECT_LT(key, CollationKey(longer + next)) << text;
    }
  }
}

TEST(Collation, KeysHoldNoZeroForAnyUnit) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::string key = CollationKey(std::wstring(1, static_cast<wchar_t>(unit)));
    ASSERT_EQ(key.find('\0'), std::string::npos) << unit;
    ASSERT_GE(key.size(), 2U) << unit;
  }
}

}  // namespace
}  // namespace data
