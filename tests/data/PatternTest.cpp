#include "data/Pattern.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace data {
namespace {

// --- A matcher that tries everything, to compare with ---

// The characters of a list, one by one; nothing when a range runs downwards.
std::optional<std::wstring> Expanded(std::wstring list) {
  std::wstring all;
  while (!list.empty()) {
    const bool range = list.size() >= 3 && list[1] == L'-';
    if (range && list[0] > list[2]) return std::nullopt;
    for (wchar_t c = list[0]; c <= (range ? list[2] : list[0]); ++c) all += c;
    list.erase(0, range ? 3 : 1);
  }
  return all;
}

struct Bracket {
  bool valid = false;
  bool negated = false;
  std::wstring characters;
  std::wstring rest;
};

Bracket ReadBracket(const std::wstring& pattern) {
  Bracket bracket;
  const std::size_t end = pattern.find(L']');
  if (end == std::wstring::npos) return bracket;
  std::wstring list = pattern.substr(1, end - 1);
  bracket.rest = pattern.substr(end + 1);
  bracket.negated = list.size() >= 2 && list[0] == L'!';
  if (bracket.negated) list.erase(0, 1);
  const std::optional<std::wstring> characters = Expanded(list);
  bracket.valid = characters.has_value();
  bracket.characters = characters.value_or(L"");
  return bracket;
}

bool IsPattern(const std::wstring& pattern) {
  if (pattern.empty()) return true;
  if (pattern[0] != L'[') return IsPattern(pattern.substr(1));
  const Bracket bracket = ReadBracket(pattern);
  return bracket.valid && IsPattern(bracket.rest);
}

bool Tries(const std::wstring& text, const std::wstring& pattern) {
  if (pattern.empty()) return text.empty();
  const std::wstring rest = pattern.substr(1);
  if (pattern[0] == L'*') {
    for (std::size_t skipped = 0; skipped <= text.size(); ++skipped) {
      if (Tries(text.substr(skipped), rest)) return true;
    }
    return false;
  }
  if (pattern[0] == L'[') {
    const Bracket bracket = ReadBracket(pattern);
    if (bracket.characters.empty()) return Tries(text, bracket.rest);
    const bool listed = !text.empty() && bracket.characters.find(text[0]) != std::wstring::npos;
    return !text.empty() && listed != bracket.negated && Tries(text.substr(1), bracket.rest);
  }
  if (text.empty()) return false;
  const bool digit = text[0] >= L'0' && text[0] <= L'9';
  const bool matches = pattern[0] == L'?' || (pattern[0] == L'#' ? digit : pattern[0] == text[0]);
  return matches && Tries(text.substr(1), rest);
}

// Every text of at most so many of these letters.
std::vector<std::wstring> AllTexts(const std::wstring& letters, std::size_t most) {
  std::vector<std::wstring> all{L""};
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].size() == most) break;
    for (const wchar_t letter : letters) all.push_back(all[i] + letter);
  }
  return all;
}

// --- Tests ---

TEST(Pattern, AgreesWithTryingEverythingOnAllShortTexts) {
  const std::vector<std::wstring> texts = AllTexts(L"ab1!-", 3);
  for (const std::wstring& pattern : AllTexts(L"ab*?[]!-#", 4)) {
    const bool isPattern = IsPattern(pattern);
    for (const std::wstring& text : texts) {
      ASSERT_EQ(Like(text, pattern), isPattern && Tries(text, pattern))
          << std::string(text.begin(), text.end()) << " like "
          << std::string(pattern.begin(), pattern.end());
    }
  }
}

TEST(Pattern, AgreesWithTryingEverythingWhereStarsFollowOneAnother) {
  const std::vector<std::wstring> texts = AllTexts(L"ab", 6);
  for (const std::wstring& pattern : AllTexts(L"ab*", 6)) {
    for (const std::wstring& text : texts) {
      ASSERT_EQ(Like(text, pattern), Tries(text, pattern))
          << std::string(text.begin(), text.end()) << " like "
          << std::string(pattern.begin(), pattern.end());
    }
  }
}

TEST(Pattern, ATextWithoutWildcardsMatchesItselfAlone) {
  EXPECT_TRUE(Like(L"", L""));
  EXPECT_TRUE(Like(L"Vardex-2026", L"Vardex-2026"));
  EXPECT_FALSE(Like(L"Vardex-2026", L"Vardex-202"));
  EXPECT_FALSE(Like(L"Vardex-202", L"Vardex-2026"));
  EXPECT_FALSE(Like(L"Vardex-2026", L""));
  EXPECT_FALSE(Like(L"", L"V"));
}

TEST(Pattern, CaseCounts) {
  EXPECT_FALSE(Like(L"Vardex", L"vardex"));
  EXPECT_FALSE(Like(L"a", L"[A-Z]"));
  EXPECT_FALSE(Like(L"\x00E9", L"\x00C9"));
}

TEST(Pattern, AStarStandsForAnyNumberOfCharacters) {
  EXPECT_TRUE(Like(L"", L"*"));
  EXPECT_TRUE(Like(L"Vardex-2026", L"*"));
  EXPECT_TRUE(Like(L"Vardex-2026", L"V*6"));
  EXPECT_TRUE(Like(L"Vardex-2026", L"Vardex-2026*"));
  EXPECT_TRUE(Like(L"Vardex-2026", L"*ar*x*2*"));
  EXPECT_FALSE(Like(L"Vardex-2026", L"*ar*x*2"));
}

TEST(Pattern, AQuestionMarkStandsForOneCharacterAndASharpForOneDigit) {
  EXPECT_TRUE(Like(L"Vardex-2026", L"Vardex?####"));
  EXPECT_FALSE(Like(L"Vardex-2026", L"Vardex?#####"));
  EXPECT_FALSE(Like(L"Vardex-202x", L"Vardex?####"));
  EXPECT_FALSE(Like(L"\x0663", L"#"));  // a digit of another script
  EXPECT_FALSE(Like(L"", L"?"));
}

TEST(Pattern, AListStandsForOneOfItsCharacters) {
  EXPECT_TRUE(Like(L"b", L"[abc]"));
  EXPECT_FALSE(Like(L"d", L"[abc]"));
  EXPECT_FALSE(Like(L"ab", L"[abc]"));
  EXPECT_TRUE(Like(L"d", L"[!abc]"));
  EXPECT_FALSE(Like(L"b", L"[!abc]"));
  EXPECT_FALSE(Like(L"", L"[!abc]"));
  EXPECT_TRUE(Like(L"m", L"[a-cl-n]"));
  EXPECT_FALSE(Like(L"k", L"[a-cl-n]"));
}

TEST(Pattern, WildcardsInAListAreThemselves) {
  for (const wchar_t* wildcard : {L"*", L"?", L"#", L"["}) {
    const std::wstring list = std::wstring(L"[") + wildcard + L"]";
    EXPECT_TRUE(Like(wildcard, list));
    EXPECT_FALSE(Like(L"7", list));
  }
}

TEST(Pattern, AHyphenThatMakesNoRangeIsItself) {
  for (const wchar_t* list : {L"[-a]", L"[a-]", L"[!b-]", L"[!-b]", L"[a-c-e]"}) {
    EXPECT_EQ(Like(L"-", list), std::wstring(list)[1] != L'!');
  }
  EXPECT_TRUE(Like(L"e", L"[a-c-e]"));
  EXPECT_FALSE(Like(L"d", L"[a-c-e]"));
}

TEST(Pattern, AnExclamationMarkIsItselfUnlessItOpensAList) {
  EXPECT_TRUE(Like(L"!", L"!"));
  EXPECT_TRUE(Like(L"!", L"[!]"));
  EXPECT_FALSE(Like(L"a", L"[!]"));
  EXPECT_TRUE(Like(L"!", L"[a!]"));
}

TEST(Pattern, AnEmptyListStandsForNothingAndALoneClosingBracketForItself) {
  EXPECT_TRUE(Like(L"ab", L"a[]b"));
  EXPECT_TRUE(Like(L"a]", L"a]"));
}

TEST(Pattern, WhatIsNoPatternMatchesNothing) {
  EXPECT_FALSE(Like(L"[", L"["));
  EXPECT_FALSE(Like(L"Vardex[2026", L"Vardex[2026"));
  EXPECT_FALSE(Like(L"m", L"[z-a]"));
  EXPECT_FALSE(Like(L"m", L"*[z-a"));
  EXPECT_FALSE(Like(L"", L"*["));
}

TEST(Pattern, ManyStarsTakeNoLongTime) {
  const std::wstring text(4000, L'a');
  std::wstring pattern;
  for (int i = 0; i < 20; ++i) pattern += L"*a";
  EXPECT_TRUE(Like(text, pattern));
  EXPECT_FALSE(Like(text, pattern + L"b"));
  EXPECT_TRUE(Like(text, std::wstring(4000, L'*')));
}

TEST(Pattern, SurvivesLongAndStrangeTexts) {
  const std::wstring text = std::wstring(L"\xD83D\xDE00") + std::wstring(4000, L'\x0301');
  EXPECT_TRUE(Like(text, text));
  EXPECT_TRUE(Like(L"\xD83D\xDE00", L"??"));  // a letter of two units
  EXPECT_FALSE(Like(L"\xD83D\xDE00", L"?"));
  EXPECT_TRUE(Like(std::wstring(1, L'\0'), std::wstring(L"[\0]", 3)));
  EXPECT_TRUE(Like(L"\xFFFF", L"[\x0001-\xFFFF]"));
  EXPECT_FALSE(Like(text, std::wstring(4000, L'[')));
}

}  // namespace
}  // namespace data
