#pragma once

#include <span>
#include <string_view>

// The sample company, as plain tables. Texts are UTF-8; links name the two sides by identifier.
namespace server::sample {

struct User {
  int id;
  std::string_view name;
  const char* fullName;  // null for none, which the database tells from an empty text
  bool deleted = false;
};

struct Group {
  int id;
  std::string_view name;
  const char* description;  // null for none
};

struct Permission {
  int id;
  std::string_view name;
  int rights = 0;
};

struct Link {
  int owner;
  int item;
};

struct DisplayText {
  int code;
  std::string_view given;
  std::string_view mapped;
};

// The password of every sample user but the trainee, who has none.
constexpr std::string_view kPassword = "Vardex-2026";
constexpr int kUserWithoutPassword = 40;

std::span<const User> Users();
std::span<const Group> Groups();
std::span<const Permission> Permissions();
// Memberships but those of "Everyone", which has all living users.
std::span<const Link> Memberships();
std::span<const Link> UserPermissions();
std::span<const Link> GroupPermissions();
std::span<const DisplayText> DisplayTexts();

constexpr int kEveryone = 2;

}  // namespace server::sample
