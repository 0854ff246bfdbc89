// The pattern language of Like: any pattern is done with quickly, and a text is like itself with
// its special characters in brackets, with any of its characters for a question mark, and like a
// star.

#include "data/Pattern.h"
#include "fuzz/Input.h"

namespace {

// The pattern that only the text itself matches.
std::wstring Literally(const std::wstring& text) {
  std::wstring pattern;
  for (const wchar_t letter : text) {
    if (std::wstring_view(L"?*#[").find(letter) != std::wstring_view::npos) {
      pattern.append(L"[").append(1, letter).append(L"]");
    } else {
      pattern += letter;
    }
  }
  return pattern;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  if (size > 400) return 0;
  std::string_view bytes = fuzz::Bytes(start, size);
  const std::wstring pattern = fuzz::Wide(fuzz::TakeLine(bytes));
  const std::wstring text = fuzz::Wide(bytes);
  data::Like(text, pattern);
  fuzz::Require(data::Like(text, L"*"), "a star matches everything");
  fuzz::Require(data::Like(text, std::wstring(text.size(), L'?')), "so many characters");
  fuzz::Require(!data::Like(text, std::wstring(text.size() + 1, L'?')), "and not more");
  fuzz::Require(data::Like(text, Literally(text)), "a text is like itself");
  fuzz::Require(data::Like(text + pattern, Literally(text) + L"*"),
                "and begins what begins with it");
  return 0;
}
