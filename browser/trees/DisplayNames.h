#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "data/DisplayCodes.h"
#include "data/SessionServer.h"

namespace browser {

// The session server's display forms, each asked for once: a permission stands under thousands of
// accounts. Lives as long as one filling of a tree, so that it never shows an outdated form.
class DisplayNames {
 public:
  explicit DisplayNames(data::SessionServer& server) : server_(server) {}

  const std::wstring& Get(std::wstring_view text, data::DisplayCode code);

 private:
  data::SessionServer& server_;
  std::map<std::int32_t, std::unordered_map<std::wstring, std::wstring>> known_;
};

// The text of an account node: the name, followed by the full name or description in parentheses
// when it holds more than blanks.
std::wstring AccountText(std::wstring_view name, std::wstring_view addition);

}  // namespace browser
