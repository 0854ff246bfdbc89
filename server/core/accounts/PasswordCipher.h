#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace server {

// Turns passwords into the form in which they are stored and back. The stored form is a version, a
// colon and base64 text; the user's identifier is bound in, so that a stored password is of no use
// in another user's row.
class PasswordCipher {
 public:
  explicit PasswordCipher(std::string key) : key_(std::move(key)) {}

  std::wstring Encrypt(std::wstring_view plainText, std::int32_t userId) const;
  // Raises kPasswordVersion for a form it does not know, and kPasswordUnreadable for a text that
  // was altered, that belongs to another user or another key, and for an empty text: an account
  // without a password has nothing to decrypt, and no caller should take that for an empty
  // password.
  std::wstring Decrypt(std::wstring_view storedText, std::int32_t userId) const;

 private:
  std::string key_;
};

}  // namespace server
