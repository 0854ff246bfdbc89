#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace data {

// The bytes in which a text is searched: case, accents and other marks are gone, a ligature is its
// two letters, a typographic apostrophe or hyphen is the plain one. The bytes of one character are
// found in those of no other, and blanks stay what they are, so that texts may be joined by one.
std::string FoldedText(std::wstring_view text);
// The same, added to the end of a text of bytes.
void AppendFoldedText(std::string& folded, std::wstring_view text);

// What a user types to find something: words with blanks between them, each of which must occur
// somewhere in a text. An empty filter lets everything through.
class TextFilter {
 public:
  TextFilter() = default;
  explicit TextFilter(std::wstring_view text);

  bool IsEmpty() const { return words_.empty(); }
  // folded is what FoldedText makes of a text.
  bool Matches(std::string_view folded) const;

  // Equal filters let the same texts through.
  friend bool operator==(const TextFilter&, const TextFilter&) = default;

 private:
  std::vector<std::string> words_;  // the longest first, each once
};

}  // namespace data
