#include "data/Wipe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "data/SecretText.h"

namespace data {
namespace {

const std::wstring kShort = L"sec";   // lies within the string object
const std::wstring kLong(100, L's');  // lies on the heap

template <class Text>
bool StorageIsZero(Text& text) {
  text.resize(text.capacity());
  return std::all_of(text.begin(), text.end(), [](auto unit) { return unit == 0; });
}

// Whether a letter of the secret lies anywhere in the memory.
bool Holds(const void* memory, std::size_t bytes, wchar_t letter) {
  const auto* place = static_cast<const unsigned char*>(memory);
  for (std::size_t i = 0; i + sizeof letter <= bytes; i += sizeof letter) {
    if (std::memcmp(place + i, &letter, sizeof letter) == 0) return true;
  }
  return false;
}

TEST(Wipe, LeavesTheTextEmptyAndItsStorageZero) {
  for (const std::wstring& secret : {kShort, kLong}) {
    std::wstring text = secret;
    const wchar_t* storage = text.data();
    Wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.data(), storage);
    EXPECT_FALSE(Holds(storage, secret.size() * sizeof(wchar_t), L's'));
    EXPECT_TRUE(StorageIsZero(text));
  }
}

TEST(Wipe, ReachesWhatALongerTextLeftInTheStorage) {
  std::wstring text = kLong;
  text.resize(3);
  Wipe(text);
  EXPECT_FALSE(Holds(text.data(), kLong.size() * sizeof(wchar_t), L's'));
}

TEST(Wipe, OverwritesTextsOfBytesAndPlainMemory) {
  std::string text(100, 's');
  Wipe(text);
  EXPECT_TRUE(text.empty());
  EXPECT_TRUE(StorageIsZero(text));

  std::array<char, 8> memory = {'s', 'e', 'c', 'r', 'e', 't', '!', '!'};
  Wipe(memory.data(), 6);
  EXPECT_EQ(std::string(memory.data(), 8), std::string("\0\0\0\0\0\0!!", 8));
}

TEST(SecretText, OverwritesItselfWhenItDies) {
  alignas(SecretText) std::array<unsigned char, sizeof(SecretText)> memory = {};
  auto* secret = new (memory.data()) SecretText(std::wstring(kShort));
  ASSERT_EQ(secret->Text(), kShort);
  ASSERT_TRUE(Holds(memory.data(), memory.size(), L's'));
  secret->~SecretText();
  EXPECT_FALSE(Holds(memory.data(), memory.size(), L's'));
}

TEST(SecretText, LeavesNothingInTheTextItWasMadeOf) {
  std::wstring source = kShort;
  const SecretText secret(std::move(source));
  EXPECT_EQ(secret.Text(), kShort);
  EXPECT_FALSE(Holds(&source, sizeof source, L's'));
}

TEST(SecretText, LeavesNothingInTheOneItWasMovedFrom) {
  SecretText first{std::wstring(kShort)};
  SecretText second(std::move(first));
  EXPECT_EQ(second.Text(), kShort);
  EXPECT_FALSE(Holds(&first, sizeof first, L's'));

  SecretText third{std::wstring(L"another")};
  third = std::move(second);
  EXPECT_EQ(third.Text(), kShort);
  EXPECT_FALSE(Holds(&second, sizeof second, L's'));
  EXPECT_FALSE(Holds(&second, sizeof second, L'o'));
}

}  // namespace
}  // namespace data
