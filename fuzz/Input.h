#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/Text.h"

// What the fuzz targets share: the input as texts, and the end of the program where something that
// must hold does not.
namespace fuzz {

// The bytes that the fuzzer has made up.
inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The same as the program's texts, whatever of it is UTF-8.
inline std::wstring Wide(std::string_view bytes) {
  return data::FromUtf8(bytes);
}

// Cuts off what lies before the first line feed.
inline std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find('\n');
  const std::string_view line = bytes.substr(0, end);
  bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  return line;
}

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace fuzz
