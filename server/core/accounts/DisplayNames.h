#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "server/core/sql/Database.h"

namespace server {

// The display mapping of a database, kept in memory. It is read at first use and again with each
// outermost reading transaction, so that a changed mapping shows whenever the program reads its
// trees again, and all texts of one tree are mapped alike.
class DisplayNames {
 public:
  explicit DisplayNames(std::shared_ptr<Database> database);

  // The text that stands for a text under a mapping code; the text itself where none is noted.
  std::wstring Find(std::wstring_view text, std::int32_t code);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view text) const {
      return std::hash<std::wstring_view>{}(text);
    }
  };
  using Texts = std::unordered_map<std::wstring, std::wstring, Hash, std::equal_to<>>;

  void Load();

  std::shared_ptr<Database> database_;
  bool loaded_ = false;
  std::uint32_t loadedIn_ = 0;
  std::unordered_map<std::int32_t, Texts> codes_;
};

}  // namespace server
