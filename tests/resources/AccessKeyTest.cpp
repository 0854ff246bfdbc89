#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <vector>

#include "StringTable.h"

namespace resources_test {
namespace {

constexpr int kFirstCaption = 101;
constexpr int kLastCaption = 199;

// Buttons and commands of the lists stand with the lists' other texts.
bool IsCaption(int id) {
  return (id >= kFirstCaption && id <= kLastCaption) || (id >= 524 && id <= 526) ||
         (id >= 534 && id <= 536);
}

// A caption's access key in lower case, 0 without one.
char AccessKey(const std::string& caption) {
  const std::size_t at = caption.find('&');
  if (at == std::string::npos || at + 1 == caption.size()) return 0;
  return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[at + 1])));
}

// The captions among these whose access key an earlier one has already.
std::set<int> Clashes(const std::vector<int>& captions) {
  std::set<char> keys;
  std::set<int> clashes;
  for (int id : captions) {
    const char key = AccessKey(LoadedText(id));
    if (key != 0 && !keys.insert(key).second) clashes.insert(id);
  }
  return clashes;
}

TEST(AccessKeys, ACaptionHasAtMostOneAndItIsAPlainLetter) {
  for (const TableEntry& entry : WrittenTable()) {
    if (!IsCaption(entry.id)) continue;
    const std::size_t first = entry.text.find('&');
    if (first == std::string::npos) continue;
    EXPECT_EQ(entry.text.find('&', first + 1), std::string::npos) << entry.text;
    EXPECT_TRUE(std::isalpha(static_cast<unsigned char>(AccessKey(entry.text)))) << entry.text;
  }
}

TEST(AccessKeys, OnlyCaptionsOfButtonsAndCommandsHaveOne) {
  for (const TableEntry& entry : WrittenTable()) {
    if (IsCaption(entry.id)) continue;
    EXPECT_EQ(entry.text.find('&'), std::string::npos) << "text " << entry.id;
  }
}

// About and the Assign buttons were given the same key, and so were the Assign and None buttons of
// the group dialog; Windows then goes from one to the next. Nothing else clashes.
TEST(AccessKeys, InEachWindowTheyDifferExceptWhereTheyWereGivenAlike) {
  EXPECT_EQ(Clashes({103, 104, 105, 106, 108, 109, 110, 131, 133}), std::set<int>{131});
  EXPECT_EQ(Clashes({101, 102, 104, 119, 120, 121, 122}), std::set<int>{});
  EXPECT_EQ(Clashes({101, 102, 104, 119, 131, 133, 120}), std::set<int>{120});
  EXPECT_EQ(Clashes({101, 102, 104, 114, 115, 116, 117}), std::set<int>{});
  EXPECT_EQ(Clashes({101, 102, 104, 119, 120}), std::set<int>{});
  EXPECT_EQ(Clashes({104, 145, 524, 525}), std::set<int>{});
  EXPECT_EQ(Clashes({104, 145, 524, 526}), std::set<int>{});
}

TEST(AccessKeys, InTheContextMenuTheyDiffer) {
  EXPECT_EQ(
      Clashes({108, 109, 110, 133, 105, 111, 112, 113, 141, 142, 143, 144, 149, 534, 535, 536}),
      std::set<int>{});
}

}  // namespace

}  // namespace resources_test
