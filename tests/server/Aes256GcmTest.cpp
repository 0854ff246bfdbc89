// Fixed vectors, the same for every platform: what one writes the others read.

#include "server/core/accounts/Aes256Gcm.h"

#include "ServerTest.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/accounts/PasswordCipher.h"

namespace server_test {
namespace {

struct Vector {
  std::string key;
  std::string nonce;
  std::string plain;
  std::string bound;
  std::string sealed;  // in hexadecimal digits
};

std::string Counting(char first, std::size_t count) {
  std::string bytes(count, '\0');
  for (std::size_t i = 0; i < count; ++i)
    bytes[i] = static_cast<char>(first + static_cast<char>(i));
  return bytes;
}

// The first two stand in the publication of the mode.
std::vector<Vector> Vectors() {
  return {
      {std::string(32, '\0'), std::string(12, '\0'), "", "", "530f8afbc74536b9a963b4f1c4cb738b"},
      {std::string(32, '\0'), std::string(12, '\0'), std::string(16, '\0'), "",
       "cea7403d4d606b6e074ec5d3baf39d18d0d1c8a799996bf0265b98b5d48ab919"},
      {Counting('\0', 32), Counting('\xa0', 12), "Vardex-2026 is not a whole block of sixteen",
       "password of user 17",
       "b0790e4920b32f8d5257b1f36e09e0b01fd87971b2c02a03f06b06e413c4166af21921dfdc4b2b493af96a47cb0"
       "9"
       "ab75564266604daa2f49dad8dc"},
  };
}

TEST(Aes256Gcm, SealsToTheSameBytesOnEveryPlatform) {
  for (const Vector& vector : Vectors()) {
    const auto sealed = server::Seal(vector.key, vector.nonce, vector.plain, vector.bound);
    ASSERT_TRUE(sealed.has_value()) << vector.plain;
    EXPECT_EQ(server::ToHex(*sealed), vector.sealed);
  }
}

TEST(Aes256Gcm, UnsealsWhatWasSealed) {
  for (const Vector& vector : Vectors()) {
    const std::string sealed =
        server::Seal(vector.key, vector.nonce, vector.plain, vector.bound).value();
    EXPECT_EQ(server::Unseal(vector.key, vector.nonce, sealed, vector.bound), vector.plain);
  }
}

TEST(Aes256Gcm, GivesNothingWhereAnythingIsAnother) {
  const Vector vector = Vectors().back();
  const std::string sealed =
      server::Seal(vector.key, vector.nonce, vector.plain, vector.bound).value();
  const auto unseal = [&](const Vector& changed, std::string_view bytes) {
    return server::Unseal(changed.key, changed.nonce, bytes, changed.bound);
  };
  for (std::size_t i = 0; i < sealed.size(); ++i) {
    std::string altered = sealed;
    altered[i] = static_cast<char>(altered[i] ^ 1);
    EXPECT_EQ(unseal(vector, altered), std::nullopt) << i;
    EXPECT_EQ(unseal(vector, sealed.substr(0, i)), std::nullopt) << i;
  }
  Vector other = vector;
  other.key.back() = 'x';
  EXPECT_EQ(unseal(other, sealed), std::nullopt);
  other = vector;
  other.nonce.back() = 'x';
  EXPECT_EQ(unseal(other, sealed), std::nullopt);
  other = vector;
  other.bound = "password of user 18";
  EXPECT_EQ(unseal(other, sealed), std::nullopt);
}

TEST(Aes256Gcm, TakesNoShorterKeyForAWeakerCipher) {
  for (const std::size_t size : {0, 7, 16, 24, 31, 33}) {
    const std::string key(size, 'k');
    EXPECT_EQ(server::Seal(key, std::string(12, 'n'), "plain", ""), std::nullopt) << size;
    EXPECT_EQ(server::Unseal(key, std::string(12, 'n'), std::string(20, 's'), ""), std::nullopt)
        << size;
  }
}

// As they stand in databases.
TEST(StoredPasswords, AreReadWhoeverWroteThem) {
  const server::PasswordCipher cipher(std::string(32, 'k'));
  EXPECT_EQ(cipher.Decrypt(L"v1:AAECAwQFBgcICQoLPLyGSmGoq0dzqWUcZkb++ykuwg6FWhdOX0nJ", 9),
            L"Vardex-2026");
  EXPECT_EQ(cipher.Decrypt(L"v1:AAECAwQFBgcICQoLGh5WWsd5ppfBNznHd+4xAcQDd4U2yfbsL4U=", 2147483647),
            L"pâté €");
}

}  // namespace
}  // namespace server_test
