#include "controls/memory/Utf16.h"

#include <cstdint>

namespace controls {
namespace {

std::size_t SequenceLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first < 0xE0) return 2;
  return first < 0xF0 ? 3 : 4;
}

std::uint32_t CodePoint(std::string_view sequence) {
  const auto first = static_cast<unsigned char>(sequence[0]);
  if (sequence.size() == 1) return first;
  std::uint32_t point = first & (0x7FU >> sequence.size());
  for (const char c : sequence.substr(1)) {
    point = point << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  }
  return point;
}

}  // namespace

std::wstring Utf16(std::string_view utf8) {
  std::wstring text;
  while (!utf8.empty()) {
    const std::string_view sequence =
        utf8.substr(0, SequenceLength(static_cast<unsigned char>(utf8[0])));
    utf8.remove_prefix(sequence.size());
    std::uint32_t point = CodePoint(sequence);
    if (point >= 0x10000) {
      point -= 0x10000;
      text += static_cast<wchar_t>(0xD800 + (point >> 10));
      point = 0xDC00 + (point & 0x3FF);
    }
    text += static_cast<wchar_t>(point);
  }
  return text;
}

}  // namespace controls
