#include "server/core/accounts/PasswordCipher.h"

#include "ServerTest.h"
#include "data/Text.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"

namespace server_test {
namespace {

using server::PasswordCipher;

class Passwords : public ::testing::Test {
 protected:
  long DecryptingFailure(const std::wstring& stored, std::int32_t user = 9) {
    return NumberOf([&] { cipher_.Decrypt(stored, user); });
  }

  PasswordCipher cipher_{std::string(32, 'k')};
};

TEST_F(Passwords, ComeBackAsTheyWentIn) {
  const std::wstring passwords[] = {
      L"Vardex-2026", L"é à ù ß €", {L'\xD83D', L'\xDE00'}, L"", std::wstring(4000, L'x')};
  for (const std::wstring& password : passwords) {
    EXPECT_EQ(cipher_.Decrypt(cipher_.Encrypt(password, 9), 9), password);
  }
}

TEST_F(Passwords, AreStoredAsAVersionAndPlainAsciiText) {
  const std::wstring stored = cipher_.Encrypt(L"Vardex-2026", 9);
  EXPECT_TRUE(stored.starts_with(L"v1:"));
  for (const wchar_t letter : stored) EXPECT_TRUE(letter > L' ' && letter < 127);
  EXPECT_EQ(stored.find(L'\''), std::wstring::npos);
}

TEST_F(Passwords, AreStoredDifferentlyEachTime) {
  EXPECT_NE(cipher_.Encrypt(L"x", 9), cipher_.Encrypt(L"x", 9));
}

TEST_F(Passwords, OfAnotherUserAreUnreadable) {
  EXPECT_EQ(DecryptingFailure(cipher_.Encrypt(L"x", 8), 9), server::kPasswordUnreadable);
}

TEST_F(Passwords, UnderAnotherKeyAreUnreadable) {
  const PasswordCipher other(std::string(32, 'l'));
  EXPECT_EQ(DecryptingFailure(other.Encrypt(L"x", 9)), server::kPasswordUnreadable);
}

TEST_F(Passwords, AreUnreadableWithAnyLetterAltered) {
  const std::wstring stored = cipher_.Encrypt(L"Vardex", 9);
  for (std::size_t i = 3; i < stored.size(); ++i) {
    std::wstring altered = stored;
    altered[i] = altered[i] == L'A' ? L'B' : L'A';
    EXPECT_EQ(DecryptingFailure(altered), server::kPasswordUnreadable) << i;
  }
}

TEST_F(Passwords, AreUnreadableCutShortOrLengthened) {
  const std::wstring stored = cipher_.Encrypt(L"Vardex", 9);
  for (std::size_t size = 3; size < stored.size(); ++size) {
    EXPECT_EQ(DecryptingFailure(stored.substr(0, size)), server::kPasswordUnreadable) << size;
  }
  EXPECT_EQ(DecryptingFailure(stored + L"A"), server::kPasswordUnreadable);
  EXPECT_EQ(DecryptingFailure(stored + L"AAAA"), server::kPasswordUnreadable);
  EXPECT_EQ(DecryptingFailure(stored + L" "), server::kPasswordUnreadable);
}

TEST_F(Passwords, OfAnUnknownFormAreToldApart) {
  std::wstring stored = cipher_.Encrypt(L"x", 9);
  stored[1] = L'2';
  EXPECT_EQ(DecryptingFailure(stored), server::kPasswordVersion);
  EXPECT_EQ(DecryptingFailure(L"secret"), server::kPasswordVersion);
  EXPECT_EQ(DecryptingFailure(L" v1:"), server::kPasswordVersion);
}

TEST_F(Passwords, ThatAreNotThereAreNoEmptyPasswords) {
  EXPECT_EQ(DecryptingFailure(L""), server::kPasswordUnreadable);
}

TEST_F(Passwords, WithAKeyOfAnotherLengthAreAnError) {
  const PasswordCipher broken(std::string(7, 'k'));
  EXPECT_EQ(NumberOf([&] { broken.Encrypt(L"x", 1); }), server::kKeyFileUnreadable);
}

TEST(Crypto, TheHashIsSha256) {
  EXPECT_EQ(server::ToHex(server::Sha256("abc")),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Crypto, RandomBytesAreAsManyAsAskedForAndDiffer) {
  EXPECT_EQ(server::RandomBytes(0).size(), 0U);
  EXPECT_EQ(server::RandomBytes(33).size(), 33U);
  EXPECT_NE(server::RandomBytes(16), server::RandomBytes(16));
}

TEST(Crypto, BytesAreTheSameOnlyWhenAllAre) {
  EXPECT_TRUE(server::SameBytes("", ""));
  EXPECT_TRUE(server::SameBytes("abc", "abc"));
  EXPECT_FALSE(server::SameBytes("abc", "abd"));
  EXPECT_FALSE(server::SameBytes("abc", "ab"));
}

TEST(Encoding, Base64IsTheUsualOne) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(server::ToBase64(bytes), text);
    EXPECT_EQ(server::FromBase64(text), bytes);
  }
}

TEST(Encoding, Base64OfAnyBytesComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    EXPECT_EQ(server::FromBase64(server::ToBase64(bytes)), bytes);
    bytes += static_cast<char>(i);
  }
}

TEST(Encoding, WhatIsNoBase64IsNotRead) {
  for (const char* const text : {"Z", "Zg", "Zg=", "Zg===", "Zh==", "Zm9v=", "Z g==", "Zg==Zg==",
                                 "\xC3\xA9", "Zm8=\n", "===="}) {
    EXPECT_FALSE(server::FromBase64(text)) << text;
  }
}

}  // namespace
}  // namespace server_test
