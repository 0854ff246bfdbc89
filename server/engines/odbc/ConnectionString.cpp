#include "server/engines/odbc/ConnectionString.h"

#include <algorithm>

namespace server {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameKeyword(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Where the value that starts at a place ends: at the next semicolon outside braces.
std::size_t EndOfValue(std::string_view text, std::size_t place) {
  if (place < text.size() && text[place] == '{') {
    for (++place; place < text.size(); ++place) {
      if (text[place] != '}') continue;
      if (place + 1 < text.size() && text[place + 1] == '}') {
        ++place;
      } else {
        break;
      }
    }
  }
  return std::min(text.find(';', std::min(place, text.size())), text.size());
}

}  // namespace

std::string ConnectionValue(std::string_view value) {
  if (value.find_first_of("[]{}(),;?*=!@ ") == std::string_view::npos) return std::string(value);
  std::string text = "{";
  for (const char letter : value) text.append(letter == '}' ? 2 : 1, letter);
  return text + "}";
}

bool HasKeyword(std::string_view connectionString, std::string_view keyword) {
  std::size_t place = 0;
  while (place < connectionString.size()) {
    const std::size_t sign = connectionString.find('=', place);
    if (sign == std::string_view::npos) return false;
    if (SameKeyword(Trimmed(connectionString.substr(place, sign - place)), keyword)) return true;
    place = EndOfValue(connectionString, sign + 1) + 1;
  }
  return false;
}

}  // namespace server
