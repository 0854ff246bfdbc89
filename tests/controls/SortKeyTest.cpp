#include "controls/SortKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace controls_test {
namespace {

using controls::SortKey;

bool Before(const std::wstring& a, const std::wstring& b) {
  return SortKey(a) < SortKey(b);
}

TEST(SortKeyOrder, HoldsCaseForNothing) {
  EXPECT_EQ(SortKey(L"MARTIN"), SortKey(L"martin"));
  EXPECT_EQ(SortKey(L"ÉMILE"), SortKey(L"émile"));
}

TEST(SortKeyOrder, LooksAtAccentsLast) {
  EXPECT_TRUE(Before(L"Emile", L"Émile"));
  EXPECT_TRUE(Before(L"Émile", L"Emilie"));
  EXPECT_TRUE(Before(L"Zoé", L"Zola"));
  EXPECT_TRUE(Before(L"cote", L"côte"));
  EXPECT_TRUE(Before(L"Ca", L"Ça"));
  EXPECT_TRUE(Before(L"Ça", L"Cb"));
}

TEST(SortKeyOrder, TakesLigaturesForTheirLetters) {
  EXPECT_EQ(SortKey(L"Œuvre"), SortKey(L"oeuvre"));
  EXPECT_EQ(SortKey(L"Ære"), SortKey(L"aere"));
  EXPECT_EQ(SortKey(L"Straße"), SortKey(L"Strasse"));
}

TEST(SortKeyOrder, PutsSignsBeforeDigitsAndDigitsBeforeLetters) {
  EXPECT_TRUE(Before(L"", L"'"));
  EXPECT_TRUE(Before(L"_x", L"1x"));
  EXPECT_TRUE(Before(L"1x", L"Ax"));
  EXPECT_TRUE(Before(L"Groupe 10", L"Groupe 2"));
  EXPECT_TRUE(Before(L"z", L"\x03B1"));
}

TEST(SortKeyOrder, PutsAShorterTextBeforeALongerOneThatBeginsLikeIt) {
  EXPECT_TRUE(Before(L"Jean", L"Jean Pierre"));
  EXPECT_TRUE(Before(L"Martin", L"Martinez"));
}

// One list in the one right order; neighbours with the same key are in the order in which they are
// written.
TEST(SortKeyOrder, IsThatOfAFrenchList) {
  const std::vector<std::wstring> sorted = {L"",
                                            L"(x)",
                                            L"_x",
                                            L"1er",
                                            L"2e",
                                            L"A",
                                            L"A'B",
                                            L"A-B",
                                            L"A (B)",
                                            L"A B",
                                            L"A.B",
                                            L"A_B",
                                            L"A\x2019"
                                            L"B",
                                            L"AB",
                                            L"Admin",
                                            L"Administrators",
                                            L"Ære",
                                            L"Afrique",
                                            L"Ca",
                                            L"Ça",
                                            L"Cb",
                                            L"cote",
                                            L"Côte d'Or",
                                            L"d'Artagnan",
                                            L"D Artagnan",
                                            L"Dartagnan",
                                            L"Emile",
                                            L"Émile",
                                            L"emilie",
                                            L"Eric",
                                            L"Éric",
                                            L"Everyone",
                                            L"Groupe",
                                            L"Groupe 1",
                                            L"Groupe 10",
                                            L"Groupe 2",
                                            L"Ile",
                                            L"Île",
                                            L"ïle",
                                            L"Jean",
                                            L"Jean-Pierre",
                                            L"Jean Pierre",
                                            L"Jeanne",
                                            L"Jeanpierre",
                                            L"L'Hôte",
                                            L"Lhoste",
                                            L"Lhote",
                                            L"Lodz",
                                            L"Łódź",
                                            L"Lodza",
                                            L"Martin",
                                            L"Martinez",
                                            L"Muller",
                                            L"Müller",
                                            L"Mullera",
                                            L"Nandu",
                                            L"Ñandu",
                                            L"Noel",
                                            L"Noël",
                                            L"Noelle",
                                            L"Nœud",
                                            L"œuf",
                                            L"Œuvre",
                                            L"Ofelia",
                                            L"Ore",
                                            L"Øre",
                                            L"Orf",
                                            L"Saint-Etienne",
                                            L"Saint-Étienne",
                                            L"Saint Etienne",
                                            L"Sainte",
                                            L"Strasse",
                                            L"Tout le monde",
                                            L"Zizek",
                                            L"Žižek",
                                            L"Zoe",
                                            L"Zoé",
                                            L"Zola"};
  std::vector<std::wstring> shuffled = sorted;
  std::reverse(shuffled.begin(), shuffled.end());
  std::sort(shuffled.begin(), shuffled.end(), Before);
  EXPECT_EQ(shuffled, sorted);
}

}  // namespace
}  // namespace controls_test
