#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What the text key of a tree node says. A key starts with a type prefix ("\TUS") and a blank and
// carries, after the markers "\U", "\G" and "\P", the identifiers of the user, the group and the
// permission that the node stands for: "\TPU \U12 \P7" is permission 7 of user 12.
namespace data {

// The two characters after the first "\T", trimmed; empty when the key holds none.
std::wstring GetTypeNode(std::wstring_view key);

// The identifier after the marker; 0 when the key lacks the marker or nothing follows it.
std::int32_t GetUserID(std::wstring_view key);
std::int32_t GetGroupID(std::wstring_view key);

// The rest of the key after the first "\P" as a number; -1 when the key is empty or lacks it, 0
// when nothing follows.
std::int32_t GetPermID(std::wstring_view key);

}  // namespace data
