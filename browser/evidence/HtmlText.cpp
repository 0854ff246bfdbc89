#include "browser/evidence/HtmlText.h"

#include "data/Text.h"

namespace browser {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsControl(char letter) {
  return static_cast<unsigned char>(letter) < 0x20 || letter == '\x7F';
}

}  // namespace

std::string HtmlText(std::wstring_view text) {
  std::string html;
  for (const char letter : data::ToUtf8(text)) {
    if (letter == '&') {
      html += "&amp;";
    } else if (letter == '<') {
      html += "&lt;";
    } else if (letter == '>') {
      html += "&gt;";
    } else if (letter == '"') {
      html += "&quot;";
    } else if (letter == '\'') {
      html += "&#39;";
    } else if (IsControl(letter)) {
      html += kReplacement;
    } else {
      html += letter;
    }
  }
  return html;
}

}  // namespace browser
