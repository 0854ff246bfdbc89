#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "server/core/accounts/PasswordCipher.h"
#include "server/core/sql/Engine.h"

namespace server {

constexpr std::string_view kAdministratorsGroup = "Administrators";
constexpr std::string_view kEveryoneGroup = "Everyone";
constexpr std::string_view kAdministerPermission = "User administration";

struct NewAdministrator {
  std::wstring_view name;
  std::wstring_view fullName;  // empty for none
  std::wstring_view password;
};

// The living user of that name, if there is one.
std::optional<std::int32_t> FindUser(Engine& engine, std::wstring_view name);

// Adds a user with the right to administer users, and whatever of the two built-in groups and of
// the permission that carries the right is still missing. Nothing when the name is taken.
std::optional<std::int32_t> AddAdministrator(Engine& engine, const PasswordCipher& passwords,
                                             const NewAdministrator& account);

// The living user of that name whose stored password is the one given. Nothing for an unknown name,
// a wrong password and a user without one alike.
std::optional<std::int32_t> CheckPassword(Engine& engine, const PasswordCipher& passwords,
                                          std::wstring_view name, std::wstring_view password);

}  // namespace server
