#include "data/Text.h"

#include <charconv>
#include <iterator>
#include <limits>

#include "data/RunTimeError.h"

namespace data {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
  char32_t letter;
  std::size_t length;
};

// The number of bytes that a lead byte announces, 0 when it cannot start a letter.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Decodes the letter at the start of a non-empty text. What is overlong, a surrogate or cut short
// counts as one malformed byte, so that nothing after it is swallowed.
Decoded DecodeUtf8(std::string_view utf8) {
  const auto lead = static_cast<unsigned char>(utf8[0]);
  const std::size_t length = SequenceLength(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || utf8.size() < length) return {kReplacement, 1};
  char32_t letter = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if ((byte & 0xC0U) != 0x80U) return {kReplacement, 1};
    letter = (letter << 6) | (byte & 0x3FU);
  }
  const bool overlong = (length == 3 && letter < 0x800) || (length == 4 && letter < 0x10000);
  const bool surrogate = letter >= 0xD800 && letter <= 0xDFFF;
  if (overlong || surrogate || letter > 0x10FFFF) return {kReplacement, 1};
  return {letter, length};
}

void AppendUtf16(std::wstring& out, char32_t letter) {
  if (letter < 0x10000) {
    out += static_cast<wchar_t>(letter);
    return;
  }
  letter -= 0x10000;
  out += static_cast<wchar_t>(0xD800 + (letter >> 10));
  out += static_cast<wchar_t>(0xDC00 + (letter & 0x3FF));
}

bool IsHighSurrogate(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendLetterAsUtf8(std::string& out, char32_t letter) {
  if (letter < 0x80) {
    out += static_cast<char>(letter);
  } else if (letter < 0x800) {
    out += static_cast<char>(0xC0 | (letter >> 6));
    out += static_cast<char>(0x80 | (letter & 0x3F));
  } else if (letter < 0x10000) {
    out += static_cast<char>(0xE0 | (letter >> 12));
    out += static_cast<char>(0x80 | ((letter >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (letter & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (letter >> 18));
    out += static_cast<char>(0x80 | ((letter >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((letter >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (letter & 0x3F));
  }
}

}  // namespace

void AppendUtf8(std::wstring& out, std::string_view utf8) {
  while (!utf8.empty()) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    if (lead < 0x80) {
      out += static_cast<wchar_t>(lead);
      utf8.remove_prefix(1);
      continue;
    }
    const Decoded decoded = DecodeUtf8(utf8);
    AppendUtf16(out, decoded.letter);
    utf8.remove_prefix(decoded.length);
  }
}

std::wstring FromUtf8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  AppendUtf8(out, utf8);
  return out;
}

void AppendAsUtf8(std::string& out, std::wstring_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t unit = text[i];
    if (static_cast<char32_t>(unit) < 0x80) {
      out += static_cast<char>(unit);
    } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      const auto high = static_cast<char32_t>(unit - 0xD800);
      const auto low = static_cast<char32_t>(text[++i] - 0xDC00);
      AppendLetterAsUtf8(out, 0x10000 + (high << 10) + low);
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      AppendLetterAsUtf8(out, kReplacement);
    } else {
      AppendLetterAsUtf8(out, static_cast<char32_t>(unit));
    }
  }
}

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  AppendAsUtf8(out, text);
  return out;
}

std::wstring_view Trim(std::wstring_view text) {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

// Without std::to_wstring, which has the C library interpret a format: each statement of a tree has
// a number.
std::wstring Decimal(std::int64_t number) {
  char digits[std::numeric_limits<std::int64_t>::digits10 + 2];
  const char* first = std::begin(digits);
  const char* last = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  return std::wstring(first, last);
}

std::wstring GroupedDecimal(std::int64_t number) {
  constexpr wchar_t kNoBreakSpace = 0xA0;
  std::wstring text = Decimal(number);
  const std::size_t first = number < 0 ? 1 : 0;
  for (std::size_t at = text.size(); at > first + 3;) {
    at -= 3;
    text.insert(at, 1, kNoBreakSpace);
  }
  return text;
}

std::int32_t ToInteger(std::wstring_view text) {
  text = Trim(text);
  const bool negative = !text.empty() && text[0] == L'-';
  if (negative || (!text.empty() && text[0] == L'+')) text.remove_prefix(1);
  if (text.empty()) throw RunTimeError(kTypeMismatch);
  std::int64_t value = 0;
  for (const wchar_t unit : text) {
    if (unit < L'0' || unit > L'9') throw RunTimeError(kTypeMismatch);
    if (value <= std::numeric_limits<std::int32_t>::max()) value = value * 10 + (unit - L'0');
  }
  if (negative) value = -value;
  if (value > std::numeric_limits<std::int32_t>::max() ||
      value < std::numeric_limits<std::int32_t>::min()) {
    throw RunTimeError(kOverflow);
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace data
