#include "data/TextFilter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "data/LatinLetters.h"

namespace data {
namespace {

// The capital letters of Greek without accents, from U+0386 on, and where Cyrillic's small letters
// stand from their capitals. Blanks in the table are no letters.
constexpr std::size_t kFirstGreek = 0x386;
constexpr std::wstring_view kGreekLetters =
    L"Α ΕΗΙ Ο ΥΩΙΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡ ΣΤΥΦΧΨΩΙΥΑΕΗΙΥΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΣΤΥΦΧΨΩΙΥΟΥΩ";
static_assert(kFirstGreek + kGreekLetters.size() == 0x3CF);
constexpr std::size_t kFirstSmallCyrillic = 0x430;
constexpr std::size_t kFirstRareSmallCyrillic = 0x450;
constexpr std::size_t kEndOfSmallCyrillic = 0x460;
constexpr std::size_t kCyrillicIo = 0x401;  // E with two dots
constexpr std::size_t kCyrillicE = 0x415;

constexpr std::size_t OtherLetter(std::size_t unit) {
  if (unit >= kFirstGreek && unit - kFirstGreek < kGreekLetters.size()) {
    const auto letter = static_cast<std::size_t>(kGreekLetters[unit - kFirstGreek]);
    return letter == ' ' ? unit : letter;
  }
  if (unit >= kFirstSmallCyrillic && unit < kFirstRareSmallCyrillic) unit -= 0x20;
  if (unit >= kFirstRareSmallCyrillic && unit < kEndOfSmallCyrillic) unit -= 0x50;
  return unit == kCyrillicIo ? kCyrillicE : unit;
}

// Signs that keyboards have in a plainer form.
constexpr std::size_t PlainSign(std::size_t unit) {
  switch (unit) {
    case 0x2018:
    case 0x2019:
    case 0x2BC:
      return '\'';
    case 0x2010:
    case 0x2011:
      return '-';
    case 0xA0:
    case 0x202F:
      return ' ';
    default:
      return unit;
  }
}

std::string_view LettersOf(std::size_t unit) {
  for (const LetterBlock* block : {&kMarkedLetters, &kRareLetters, &kStackedLetters}) {
    const std::string_view letters = block->At(unit);
    if (!letters.empty()) return letters;
  }
  return {};
}

// As UTF-8, but for characters outside the first plane, whose two halves are kept apart: a half
// alone is a text like any other.
void AppendUnit(std::string& folded, std::size_t unit) {
  if (unit < 0x80) {
    folded += static_cast<char>(unit);
  } else if (unit < 0x800) {
    folded += static_cast<char>(0xC0 | (unit >> 6));
    folded += static_cast<char>(0x80 | (unit & 0x3F));
  } else {
    folded += static_cast<char>(0xE0 | (unit >> 12));
    folded += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
    folded += static_cast<char>(0x80 | (unit & 0x3F));
  }
}

void AppendUncommon(std::string& folded, std::size_t unit) {
  if (IsCombiningMark(unit)) return;
  const std::string_view letters = LettersOf(unit);
  if (letters.empty()) {
    AppendUnit(folded, OtherLetter(PlainSign(unit)));
  } else {
    folded += letters;
  }
}

}  // namespace

void AppendFoldedText(std::string& folded, std::wstring_view text) {
  for (const wchar_t character : text) {
    const std::size_t unit = static_cast<std::uint32_t>(character) & 0xFFFFU;
    if (unit >= 'a' && unit <= 'z') {
      folded += static_cast<char>(unit - 'a' + 'A');
    } else if (unit < 0x80) {
      folded += static_cast<char>(unit);
    } else {
      AppendUncommon(folded, unit);
    }
  }
}

std::string FoldedText(std::wstring_view text) {
  std::string folded;
  folded.reserve(text.size());
  AppendFoldedText(folded, text);
  return folded;
}

TextFilter::TextFilter(std::wstring_view text) {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  const std::string folded = FoldedText(text);
  for (std::size_t at = folded.find_first_not_of(kBlanks); at != std::string::npos;) {
    const std::size_t end = std::min(folded.find_first_of(kBlanks, at), folded.size());
    words_.push_back(folded.substr(at, end - at));
    at = folded.find_first_not_of(kBlanks, end);
  }
  // What is long is rare: the first word mostly decides.
  std::ranges::sort(words_, [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a < b;
  });
  words_.erase(std::unique(words_.begin(), words_.end()), words_.end());
}

bool TextFilter::Matches(std::string_view folded) const {
  return std::ranges::all_of(words_, [folded](const std::string& word) {
    return folded.find(word) != std::string_view::npos;
  });
}

}  // namespace data
