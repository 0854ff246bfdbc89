#ifdef _WIN32

#include <windows.h>
// windows.h comes first: the header below needs its types.
#include <bcrypt.h>

#include <memory>
#include <new>

#include "server/core/Errors.h"
#include "server/core/accounts/Aes256Gcm.h"
#include "server/core/accounts/Crypto.h"

namespace server {
namespace {

struct ProviderCloser {
  void operator()(void* provider) const { BCryptCloseAlgorithmProvider(provider, 0); }
};
using Provider = std::unique_ptr<void, ProviderCloser>;

struct KeyCloser {
  void operator()(void* key) const { BCryptDestroyKey(key); }
};
using Key = std::unique_ptr<void, KeyCloser>;

// The system writes to none of the texts that it is given in this way.
UCHAR* Bytes(std::string_view text) {
  return reinterpret_cast<UCHAR*>(const_cast<char*>(text.data()));
}

ULONG Size(std::string_view text) {
  return static_cast<ULONG>(text.size());
}

Provider OpenProvider(const wchar_t* algorithm) {
  BCRYPT_ALG_HANDLE handle = nullptr;
  const NTSTATUS status = BCryptOpenAlgorithmProvider(&handle, algorithm, nullptr, 0);
  return Provider(BCRYPT_SUCCESS(status) ? handle : nullptr);
}

Provider OpenGcm() {
  Provider provider = OpenProvider(BCRYPT_AES_ALGORITHM);
  if (provider == nullptr) return nullptr;
  wchar_t mode[] = BCRYPT_CHAIN_MODE_GCM;
  const NTSTATUS status = BCryptSetProperty(provider.get(), BCRYPT_CHAINING_MODE,
                                            reinterpret_cast<UCHAR*>(mode), sizeof mode, 0);
  return BCRYPT_SUCCESS(status) ? std::move(provider) : nullptr;
}

// The system would take a shorter key for one of a weaker cipher.
Key MakeKey(const Provider& provider, std::string_view bytes) {
  if (provider == nullptr || bytes.size() != kKeySize) return nullptr;
  BCRYPT_KEY_HANDLE handle = nullptr;
  const NTSTATUS status =
      BCryptGenerateSymmetricKey(provider.get(), &handle, nullptr, 0, Bytes(bytes), Size(bytes), 0);
  return Key(BCRYPT_SUCCESS(status) ? handle : nullptr);
}

BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO Parameters(std::string_view nonce, std::string_view bound,
                                                 std::string_view tag) {
  BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO info;
  BCRYPT_INIT_AUTH_MODE_INFO(info);
  info.pbNonce = Bytes(nonce);
  info.cbNonce = Size(nonce);
  info.pbAuthData = Bytes(bound);
  info.cbAuthData = Size(bound);
  info.pbTag = Bytes(tag);
  info.cbTag = Size(tag);
  return info;
}

}  // namespace

std::string RandomBytes(std::size_t count) {
  std::string bytes(count, '\0');
  const NTSTATUS status =
      BCryptGenRandom(nullptr, Bytes(bytes), Size(bytes), BCRYPT_USE_SYSTEM_PREFERRED_RNG);
  if (!BCRYPT_SUCCESS(status)) Fail(kRandomFailed);
  return bytes;
}

// Memory is all that can be missing for it.
std::string Sha256(std::string_view bytes) {
  constexpr std::size_t kSize = 32;
  std::string hash(kSize, '\0');
  const Provider provider = OpenProvider(BCRYPT_SHA256_ALGORITHM);
  if (provider == nullptr || !BCRYPT_SUCCESS(BCryptHash(provider.get(), nullptr, 0, Bytes(bytes),
                                                        Size(bytes), Bytes(hash), Size(hash)))) {
    throw std::bad_alloc();
  }
  return hash;
}

std::optional<std::string> Seal(std::string_view key, std::string_view nonce,
                                std::string_view plain, std::string_view bound) {
  const Provider provider = OpenGcm();
  const Key handle = MakeKey(provider, key);
  if (handle == nullptr) return std::nullopt;
  std::string hidden(plain.size(), '\0');
  std::string tag(kTagSize, '\0');
  auto parameters = Parameters(nonce, bound, tag);
  ULONG written = 0;
  const NTSTATUS status = BCryptEncrypt(handle.get(), Bytes(plain), Size(plain), &parameters,
                                        nullptr, 0, Bytes(hidden), Size(hidden), &written, 0);
  if (!BCRYPT_SUCCESS(status) || written != hidden.size()) return std::nullopt;
  return hidden + tag;
}

std::optional<std::string> Unseal(std::string_view key, std::string_view nonce,
                                  std::string_view sealed, std::string_view bound) {
  const Provider provider = OpenGcm();
  const Key handle = MakeKey(provider, key);
  if (handle == nullptr || sealed.size() < kTagSize) return std::nullopt;
  const std::string_view hidden = sealed.substr(0, sealed.size() - kTagSize);
  std::optional<std::string> plain(std::in_place, hidden.size(), '\0');
  auto parameters = Parameters(nonce, bound, sealed.substr(hidden.size()));
  ULONG written = 0;
  const NTSTATUS status = BCryptDecrypt(handle.get(), Bytes(hidden), Size(hidden), &parameters,
                                        nullptr, 0, Bytes(*plain), Size(*plain), &written, 0);
  if (!BCRYPT_SUCCESS(status) || written != plain->size()) return std::nullopt;
  return plain;
}

}  // namespace server

#endif
