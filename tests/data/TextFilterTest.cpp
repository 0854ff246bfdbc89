#include "data/TextFilter.h"

#include <gtest/gtest.h>

#include <set>

#include "data/Collation.h"

namespace data {
namespace {

bool Finds(const std::wstring& filter, const std::wstring& text) {
  return TextFilter(filter).Matches(FoldedText(text));
}

std::string LettersOfKey(std::wstring_view text) {
  const std::string key = CollationKey(text);
  return key.substr(0, key.find('\1'));
}

TEST(TextFilter, FindsAWordAnywhereWhateverItsCase) {
  EXPECT_TRUE(Finds(L"mart", L"Jean MARTIN"));
  EXPECT_TRUE(Finds(L"ARTI", L"Jean Martin"));
  EXPECT_FALSE(Finds(L"martine", L"Jean Martin"));
}

TEST(TextFilter, LooksAtNoAccentsOnEitherSide) {
  EXPECT_TRUE(Finds(L"lea", L"Léa"));
  EXPECT_TRUE(Finds(L"LÉA", L"Lea"));
  EXPECT_TRUE(Finds(L"nguyen", L"Nguyễn"));
  EXPECT_TRUE(Finds(L"Łódź", L"lodz"));
  EXPECT_TRUE(Finds(L"e\x301mile", L"Émile"));
  EXPECT_TRUE(Finds(L"emile", L"E\x301mile"));
}

TEST(TextFilter, TakesALigatureForItsLettersOnEitherSide) {
  EXPECT_TRUE(Finds(L"oeuvre", L"Chef d'Œuvre"));
  EXPECT_TRUE(Finds(L"œuvre", L"Chef d'oeuvre"));
  EXPECT_TRUE(Finds(L"strasse", L"Große Straße"));
  EXPECT_TRUE(Finds(L"aether", L"Æther"));
  // A part of a ligature too.
  EXPECT_TRUE(Finds(L"euvre", L"Œuvre"));
}

TEST(TextFilter, WantsEveryWordInAnyOrder) {
  EXPECT_TRUE(Finds(L"martin jean", L"Jean Martin"));
  EXPECT_TRUE(Finds(L"  an   tin ", L"Jean Martin"));
  EXPECT_FALSE(Finds(L"jean paul", L"Jean Martin"));
  EXPECT_TRUE(Finds(L"jean\tmartin\n", L"Jean Martin"));
  EXPECT_TRUE(Finds(L"jean\xA0martin", L"Martin, Jean"));
}

TEST(TextFilter, OfBlanksAloneLetsEverythingThrough) {
  for (const wchar_t* const text : {L"", L" ", L"\t \r\n", L"\xA0", L"\x301"}) {
    EXPECT_TRUE(TextFilter(text).IsEmpty());
    EXPECT_TRUE(Finds(text, L"Martin"));
    EXPECT_TRUE(Finds(text, L""));
  }
  EXPECT_TRUE(TextFilter().Matches({}));
}

TEST(TextFilter, TakesTypographicSignsForThoseOfTheKeyboard) {
  EXPECT_TRUE(Finds(L"l'hote", L"L\x2019Hôte"));
  EXPECT_TRUE(Finds(L"jean-paul", L"Jean\x2011Paul"));
}

TEST(TextFilter, HoldsNoSignForAPattern) {
  EXPECT_TRUE(Finds(L"100%", L"Remise 100%"));
  EXPECT_FALSE(Finds(L"1%0", L"100"));
  for (const wchar_t sign : std::wstring(L"*?[]%_.^$\\|()+{}\"'")) {
    EXPECT_FALSE(Finds({sign}, L"Martin")) << static_cast<int>(sign);
    EXPECT_TRUE(Finds({sign}, std::wstring(L"a") + sign + L"b")) << static_cast<int>(sign);
  }
}

TEST(TextFilter, FindsOtherScriptsWhateverTheirCase) {
  EXPECT_TRUE(Finds(L"ωμεγα", L"ΩΜΈΓΑ"));
  EXPECT_TRUE(Finds(L"ΟΔΟΣ", L"οδός"));
  EXPECT_TRUE(Finds(L"иван", L"Иван"));
  EXPECT_TRUE(Finds(L"петр", L"ПЁТР"));
  EXPECT_TRUE(Finds(L"שלום", L"אבי שלום"));
  EXPECT_FALSE(Finds(L"שלם", L"אבי שלום"));
}

TEST(TextFilter, FindsCharactersOutsideTheFirstPlane) {
  const std::wstring smile = L"\xD83D\xDE00";
  const std::wstring heart = L"\xD83D\xDC96";
  EXPECT_TRUE(Finds(smile, L"Léa " + smile));
  EXPECT_FALSE(Finds(heart, L"Léa " + smile));
  // While the second half is still to be typed.
  EXPECT_TRUE(Finds(L"\xD83D", L"Léa " + smile));
}

// The bytes of one character are found in those of no other.
TEST(TextFilter, FindsNoCharacterInPartsOfOthers) {
  const std::wstring others = L"中文字\x0434\x05D0\xD83D\xDE00";
  for (std::uint32_t unit = 1; unit < 0x10000; ++unit) {
    const TextFilter filter(std::wstring(1, static_cast<wchar_t>(unit)));
    if (filter.IsEmpty()) continue;
    const bool occurs = others.find(static_cast<wchar_t>(unit)) != std::wstring::npos ||
                        unit == 0x414;  // the capital letter of one of them
    ASSERT_EQ(filter.Matches(FoldedText(others)), occurs) << std::hex << unit;
  }
}

// What is one letter to the order of texts is one letter here, and no other is.
TEST(TextFilter, AgreesWithTheOrderOfTextsOnWhatIsOneLetter) {
  std::map<std::string, std::set<std::string>> foldedOf;
  std::map<std::string, std::set<std::string>> keysOf;
  for (std::uint32_t unit = 'A'; unit < 0x1F00; ++unit) {
    if (unit >= 0x250 && unit < 0x1E00) continue;
    const std::wstring text(1, static_cast<wchar_t>(unit));
    const std::string folded = FoldedText(text);
    if (folded == " ") continue;
    foldedOf[LettersOfKey(text)].insert(folded);
    keysOf[folded].insert(LettersOfKey(text));
  }
  for (const auto& [key, folded] : foldedOf) EXPECT_EQ(folded.size(), 1U) << *folded.begin();
  for (const auto& [folded, keys] : keysOf) EXPECT_EQ(keys.size(), 1U) << folded;
}

TEST(TextFilter, OfThousandsOfCharactersAnswersLikeAnyOther) {
  std::wstring words;
  for (int i = 0; i < 800; ++i) words += L"Jean ";
  EXPECT_TRUE(Finds(words, L"Jean Martin"));
  EXPECT_FALSE(Finds(words + L"Paul", L"Jean Martin"));
  const std::wstring one(4000, L'é');
  EXPECT_FALSE(Finds(one, L"Éééé"));
  EXPECT_TRUE(Finds(one, L"x" + one + L"y"));
}

TEST(TextFilter, EqualsOneThatAsksForTheSameWords) {
  EXPECT_EQ(TextFilter(L"Léa  Martin"), TextFilter(L"martin LEA lea"));
  EXPECT_NE(TextFilter(L"Léa"), TextFilter(L"Martin"));
}

}  // namespace
}  // namespace data
