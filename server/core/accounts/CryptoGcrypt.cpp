#ifndef _WIN32

#include <gcrypt.h>

#include <memory>

#include "server/core/Errors.h"
#include "server/core/accounts/Aes256Gcm.h"
#include "server/core/accounts/Crypto.h"

namespace server {
namespace {

// The library is started once, at first use. It needs no memory of its own that is never paged out:
// keys and passwords pass through the program's ordinary memory anyway.
void Start() {
  static const bool started = [] {
    if (gcry_check_version(nullptr) == nullptr) return false;
    gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
    gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
    return true;
  }();
  if (!started) Fail(kRandomFailed);
}

struct CipherCloser {
  void operator()(gcry_cipher_hd_t cipher) const { gcry_cipher_close(cipher); }
};
using Cipher = std::unique_ptr<std::remove_pointer_t<gcry_cipher_hd_t>, CipherCloser>;

// A cipher ready to work, or none when the library refuses any of its parameters. It would take a
// shorter key for one of a weaker cipher.
Cipher MakeCipher(std::string_view key, std::string_view nonce, std::string_view bound) {
  Start();
  if (key.size() != kKeySize) return nullptr;
  gcry_cipher_hd_t handle = nullptr;
  if (gcry_cipher_open(&handle, GCRY_CIPHER_AES256, GCRY_CIPHER_MODE_GCM, 0) != 0) return nullptr;
  Cipher cipher(handle);
  if (gcry_cipher_setkey(handle, key.data(), key.size()) != 0 ||
      gcry_cipher_setiv(handle, nonce.data(), nonce.size()) != 0 ||
      gcry_cipher_authenticate(handle, bound.data(), bound.size()) != 0) {
    return nullptr;
  }
  return cipher;
}

}  // namespace

std::string RandomBytes(std::size_t count) {
  Start();
  std::string bytes(count, '\0');
  gcry_randomize(bytes.data(), bytes.size(), GCRY_STRONG_RANDOM);
  return bytes;
}

std::string Sha256(std::string_view bytes) {
  Start();
  std::string hash(gcry_md_get_algo_dlen(GCRY_MD_SHA256), '\0');
  gcry_md_hash_buffer(GCRY_MD_SHA256, hash.data(), bytes.data(), bytes.size());
  return hash;
}

std::optional<std::string> Seal(std::string_view key, std::string_view nonce,
                                std::string_view plain, std::string_view bound) {
  const Cipher cipher = MakeCipher(key, nonce, bound);
  if (cipher == nullptr) return std::nullopt;
  std::string hidden(plain);
  std::string tag(kTagSize, '\0');
  if (gcry_cipher_encrypt(cipher.get(), hidden.data(), hidden.size(), nullptr, 0) != 0 ||
      gcry_cipher_gettag(cipher.get(), tag.data(), tag.size()) != 0) {
    return std::nullopt;
  }
  return hidden + tag;
}

std::optional<std::string> Unseal(std::string_view key, std::string_view nonce,
                                  std::string_view sealed, std::string_view bound) {
  const Cipher cipher = MakeCipher(key, nonce, bound);
  if (cipher == nullptr || sealed.size() < kTagSize) return std::nullopt;
  std::optional<std::string> plain(std::in_place, sealed.substr(0, sealed.size() - kTagSize));
  const std::string_view tag = sealed.substr(plain->size());
  if (gcry_cipher_decrypt(cipher.get(), plain->data(), plain->size(), nullptr, 0) != 0 ||
      gcry_cipher_checktag(cipher.get(), tag.data(), tag.size()) != 0) {
    return std::nullopt;
  }
  return plain;
}

}  // namespace server

#endif
