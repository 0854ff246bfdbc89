#include "data/NodeKey.h"

#include "data/Text.h"

namespace data {
namespace {

constexpr std::wstring_view kTypeMarker = L"\\T";
constexpr std::wstring_view kUserMarker = L"\\U";
constexpr std::wstring_view kGroupMarker = L"\\G";
constexpr std::wstring_view kPermMarker = L"\\P";

// A folder's key ends in a bare marker: no identifier follows it, and that is no error.
std::int32_t IdOf(std::wstring_view text) {
  const std::wstring_view digits = Trim(text);
  return digits.empty() ? 0 : ToInteger(digits);
}

// The identifier of an account marker. What ends it depends on which other markers the key has:
// a code of one digit a marker, in the order user, group, permission, tells the three layouts that
// a key may have. Any other combination stands for no account.
std::int32_t AccountId(std::wstring_view key, std::wstring_view wanted, std::wstring_view other) {
  const std::size_t at = key.find(wanted);
  if (at == std::wstring_view::npos) return 0;
  const bool hasOther = key.find(other) != std::wstring_view::npos;
  const bool hasPerm = key.find(kPermMarker) != std::wstring_view::npos;
  if (hasOther && hasPerm) return 0;
  const std::wstring_view rest = key.substr(at + wanted.size());
  if (hasPerm) return IdOf(rest.substr(0, rest.find(kPermMarker)));
  if (hasOther) return IdOf(rest.substr(0, rest.find(other)));
  return IdOf(rest);
}

}  // namespace

std::wstring GetTypeNode(std::wstring_view key) {
  const std::size_t at = key.find(kTypeMarker);
  if (at == std::wstring_view::npos) return {};
  return std::wstring(Trim(key.substr(at + kTypeMarker.size(), 2)));
}

std::int32_t GetUserID(std::wstring_view key) {
  return AccountId(key, kUserMarker, kGroupMarker);
}

std::int32_t GetGroupID(std::wstring_view key) {
  return AccountId(key, kGroupMarker, kUserMarker);
}

std::int32_t GetPermID(std::wstring_view key) {
  const std::size_t at = key.find(kPermMarker);
  if (at == std::wstring_view::npos) return -1;
  return IdOf(key.substr(at + kPermMarker.size()));
}

}  // namespace data
