#include "controls/TextPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace controls_test {
namespace {

using controls::TextPool;
using controls::TextRef;

// Orders by the letters alone, whatever their case.
std::string LowerCase(std::wstring_view text) {
  std::string key;
  for (const wchar_t c : text) key += static_cast<char>(c >= L'A' && c <= L'Z' ? c + 32 : c);
  return key;
}

class TextPoolOf : public testing::Test {
 protected:
  TextPool pool{LowerCase};
};

TEST_F(TextPoolOf, TextsAddedAfterARankingStandAmongTheOthersInOrder) {
  const TextRef b = pool.Share(L"b");
  const TextRef d = pool.Share(L"d");
  pool.RankAll();
  const TextRef a = pool.Share(L"a");
  const TextRef c = pool.Share(L"C");
  EXPECT_FALSE(pool.Ranked());
  EXPECT_TRUE(pool.Before(b, d));
  EXPECT_FALSE(pool.Before(d, b));
  EXPECT_TRUE(pool.Before(a, b));
  EXPECT_TRUE(pool.Before(b, c));
  EXPECT_TRUE(pool.Before(c, d));
  pool.RankAll();
  EXPECT_TRUE(pool.Before(a, c));
}

TEST_F(TextPoolOf, AReferenceThatIsUsedAgainIsOrderedByItsNewText) {
  const TextRef b = pool.Share(L"b");
  const TextRef a = pool.Share(L"a");
  pool.Hold(b);
  pool.RankAll();
  pool.Sweep();
  const TextRef z = pool.Share(L"z");
  EXPECT_EQ(z, a);
  EXPECT_TRUE(pool.Before(b, z));
}

TEST_F(TextPoolOf, EqualTextsHoldsThemOnce) {
  const TextRef text = pool.Share(L"Lecture");
  EXPECT_EQ(pool.Share(L"Lecture"), text);
  EXPECT_NE(pool.Share(L"lecture"), text);
  EXPECT_EQ(pool.Count(), 2U);
  EXPECT_EQ(pool.Text(text), L"Lecture");
}

TEST_F(TextPoolOf, UnheldTextsKeepsThemUntilASweep) {
  const TextRef text = pool.Share(L"Lecture");
  pool.Hold(text);
  pool.Release(text);
  EXPECT_EQ(pool.Text(text), L"Lecture");
  EXPECT_EQ(pool.Share(L"Lecture"), text);
  pool.Sweep();
  EXPECT_EQ(pool.Count(), 0U);
}

TEST_F(TextPoolOf, HeldTextsKeepsThemThroughASweep) {
  const TextRef kept = pool.Share(L"kept");
  const TextRef gone = pool.Share(L"gone");
  pool.Hold(kept);
  pool.Hold(kept);
  pool.Release(kept);
  pool.Sweep();
  EXPECT_EQ(pool.Count(), 1U);
  EXPECT_EQ(pool.Text(kept), L"kept");
  EXPECT_EQ(pool.Share(L"new"), gone);
  pool.Release(kept);
  pool.Sweep();
  EXPECT_EQ(pool.Count(), 0U);
}

TEST_F(TextPoolOf, ATextReleasedTwiceBeforeASweepFreesItOnce) {
  const TextRef text = pool.Share(L"x");
  for (int i = 0; i < 2; ++i) {
    pool.Hold(text);
    pool.Release(text);
  }
  pool.Sweep();
  EXPECT_NE(pool.Share(L"a"), pool.Share(L"b"));
  EXPECT_EQ(pool.Count(), 2U);
}

TEST_F(TextPoolOf, ShortAndLongTextsFindsThemAgainAsItGrows) {
  std::vector<TextRef> refs;
  for (int i = 0; i < 5000; ++i) {
    refs.push_back(pool.Share(std::to_wstring(i)));
    refs.push_back(pool.Share(std::wstring(100, L'x') + std::to_wstring(i)));
  }
  for (int i = 0; i < 5000; ++i) EXPECT_EQ(pool.Share(std::to_wstring(i)), refs[2 * i]);
  EXPECT_EQ(pool.Count(), 10000U);
}

TEST_F(TextPoolOf, TextsOrdersThemByTheSortKey) {
  const TextRef martin = pool.Share(L"martin");
  const TextRef bernard = pool.Share(L"Bernard");
  EXPECT_TRUE(pool.Before(bernard, martin));
  EXPECT_FALSE(pool.Before(martin, bernard));
  EXPECT_FALSE(pool.Before(martin, martin));
}

TEST_F(TextPoolOf, TextsOfOneSortKeyOrdersThemTheSameWhicheverCameFirst) {
  const TextRef lower = pool.Share(L"martin");
  const TextRef upper = pool.Share(L"MARTIN");
  TextPool other{LowerCase};
  const TextRef otherUpper = other.Share(L"MARTIN");
  const TextRef otherLower = other.Share(L"martin");
  EXPECT_EQ(pool.Before(upper, lower), other.Before(otherUpper, otherLower));
  EXPECT_NE(pool.Before(upper, lower), pool.Before(lower, upper));
}

TEST_F(TextPoolOf, RankedTextsAnswersAsByComparison) {
  std::vector<TextRef> refs;
  for (const wchar_t* text : {L"d", L"B", L"a", L"b", L"", L"c"}) refs.push_back(pool.Share(text));
  EXPECT_FALSE(pool.Ranked());
  pool.RankAll();
  EXPECT_TRUE(pool.Ranked());
  for (const TextRef a : refs) {
    for (const TextRef b : refs) EXPECT_EQ(pool.Rank(a) < pool.Rank(b), pool.Before(a, b));
  }
  pool.Share(L"e");
  EXPECT_FALSE(pool.Ranked());
}

TEST_F(TextPoolOf, TextsIsRankedAgainWhenTheUnrankedOnesAreGone) {
  pool.Hold(pool.Share(L"a"));
  EXPECT_EQ(pool.Unranked(), 1U);
  pool.RankAll();
  EXPECT_EQ(pool.Unranked(), 0U);
  pool.Share(L"b");
  pool.Share(L"c");
  EXPECT_EQ(pool.Unranked(), 2U);
  pool.Sweep();
  EXPECT_EQ(pool.Unranked(), 0U);
  EXPECT_TRUE(pool.Ranked());
}

TEST_F(TextPoolOf, TextsReleasedTogetherKeepsThoseThatAreWantedBeforeTheSweep) {
  const TextRef kept = pool.Share(L"x");
  pool.Hold(kept);
  pool.Hold(kept);
  pool.Hold(pool.Share(L"y"));
  pool.RankAll();
  pool.ReleaseAll();
  EXPECT_EQ(pool.Share(L"x"), kept);
  pool.Hold(kept);
  EXPECT_TRUE(pool.Ranked());
  pool.Sweep();
  EXPECT_EQ(pool.Count(), 1U);
  EXPECT_EQ(pool.Text(kept), L"x");
  pool.Release(kept);
  pool.Sweep();
  EXPECT_EQ(pool.Count(), 0U);
}

}  // namespace
}  // namespace controls_test
