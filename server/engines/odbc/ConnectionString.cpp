#include "server/engines/odbc/ConnectionString.h"

#include <algorithm>
#include <optional>

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

// A keyword with its value, up to and with the semicolon.
struct Place {
  std::size_t begin;
  std::size_t end;
};

std::optional<Place> Find(std::string_view connectionString, std::string_view keyword) {
  std::size_t place = 0;
  while (place < connectionString.size()) {
    const std::size_t sign = connectionString.find('=', place);
    if (sign == std::string_view::npos) return std::nullopt;
    // What has no value, be it nothing at all, is no part of the keyword after it.
    const std::size_t before = connectionString.rfind(';', sign);
    if (before != std::string_view::npos) place = std::max(place, before + 1);
    const std::size_t end =
        std::min(EndOfValue(connectionString, sign + 1) + 1, connectionString.size());
    if (SameKeyword(Trimmed(connectionString.substr(place, sign - place)), keyword)) {
      return Place{place, end};
    }
    place = end;
  }
  return std::nullopt;
}

}  // namespace

std::string ConnectionValue(std::string_view value) {
  if (value.find_first_of("[]{}(),;?*=!@ ") == std::string_view::npos) return std::string(value);
  std::string text = "{";
  for (const char letter : value) text.append(letter == '}' ? 2 : 1, letter);
  return text + "}";
}

bool HasKeyword(std::string_view connectionString, std::string_view keyword) {
  return Find(connectionString, keyword).has_value();
}

std::string WithValue(std::string_view connectionString, std::string_view keyword,
                      std::string_view value) {
  std::string text(connectionString);
  while (const auto place = Find(text, keyword)) {
    text.erase(place->begin, place->end - place->begin);
  }
  if (!text.empty() && !text.ends_with(';')) text += ';';
  return text.append(keyword).append("=").append(ConnectionValue(value)).append(";");
}

std::string WithHost(std::string_view connectionString, std::string_view host) {
  std::string_view port;
  const std::size_t bracket = host.starts_with('[') ? host.find(']') : std::string_view::npos;
  const std::size_t sign = host.find(':', bracket == std::string_view::npos ? 0 : bracket);
  if (sign != std::string_view::npos) port = host.substr(sign + 1);
  std::string_view name = host.substr(0, sign);
  if (bracket != std::string_view::npos) name = host.substr(1, bracket - 1);
  const std::string text = WithValue(connectionString, "Server", name);
  return port.empty() ? text : WithValue(text, "Port", port);
}

}  // namespace server
