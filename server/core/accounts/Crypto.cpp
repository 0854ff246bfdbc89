#include "server/core/accounts/Crypto.h"

#include <gcrypt.h>

#include <cstdarg>
#include <memory>

#include "server/core/Errors.h"

namespace server {
namespace {

// The library gives advice on standard error, on Windows about disk statistics for instance, which
// is no business of whoever runs a program that uses it. Its failures come back as results.
void DropAdvice(void*, int, const char*, va_list) {}

// The library is started once, at first use. It needs no memory of its own that is never paged out:
// keys and passwords pass through the program's ordinary memory anyway.
void Start() {
  static const bool started = [] {
    if (gcry_check_version(nullptr) == nullptr) return false;
    gcry_set_log_handler(DropAdvice, nullptr);
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

// A cipher ready to work, or none when the library refuses any of its parameters.
Cipher MakeCipher(std::string_view key, std::string_view nonce, std::string_view bound) {
  Start();
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

bool SameBytes(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  unsigned char difference = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    difference |= static_cast<unsigned char>(left[i] ^ right[i]);
  }
  return difference == 0;
}

std::string Encrypt(std::string_view key, std::string_view plain, std::string_view bound) {
  std::string sealed = RandomBytes(kNonceSize);
  const Cipher cipher = MakeCipher(key, sealed, bound);
  if (cipher == nullptr) Fail(kKeyFileUnreadable);
  std::string hidden(plain);
  std::string tag(kTagSize, '\0');
  if (gcry_cipher_encrypt(cipher.get(), hidden.data(), hidden.size(), nullptr, 0) != 0 ||
      gcry_cipher_gettag(cipher.get(), tag.data(), tag.size()) != 0) {
    Fail(kKeyFileUnreadable);
  }
  return sealed + hidden + tag;
}

std::optional<std::string> Decrypt(std::string_view key, std::string_view sealed,
                                   std::string_view bound) {
  if (sealed.size() < kNonceSize + kTagSize) return std::nullopt;
  const Cipher cipher = MakeCipher(key, sealed.substr(0, kNonceSize), bound);
  if (cipher == nullptr) return std::nullopt;
  std::optional<std::string> plain(
      std::in_place, sealed.substr(kNonceSize, sealed.size() - kNonceSize - kTagSize));
  const std::string_view tag = sealed.substr(sealed.size() - kTagSize);
  if (gcry_cipher_decrypt(cipher.get(), plain->data(), plain->size(), nullptr, 0) != 0 ||
      gcry_cipher_checktag(cipher.get(), tag.data(), tag.size()) != 0) {
    return std::nullopt;
  }
  return plain;
}

}  // namespace server
