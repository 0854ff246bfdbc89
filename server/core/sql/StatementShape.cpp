#include "server/core/sql/StatementShape.h"

#include <algorithm>
#include <array>
#include <limits>

namespace server {
namespace {

constexpr std::size_t kLongestShape = 2000;

enum class Letter : unsigned char { kRefused, kKept, kDigit, kQuote, kMinus };

constexpr std::array<Letter, 128> MakeLetters() {
  std::array<Letter, 128> letters{};
  for (char c = 'a'; c <= 'z'; ++c) letters[static_cast<unsigned char>(c)] = Letter::kKept;
  for (char c = 'A'; c <= 'Z'; ++c) letters[static_cast<unsigned char>(c)] = Letter::kKept;
  for (char c = '0'; c <= '9'; ++c) letters[static_cast<unsigned char>(c)] = Letter::kDigit;
  for (const char c : std::string_view(" \t\r\n_,.*=()")) {
    letters[static_cast<unsigned char>(c)] = Letter::kKept;
  }
  letters['\''] = Letter::kQuote;
  letters['-'] = Letter::kMinus;
  return letters;
}

constexpr std::array<Letter, 128> kLetters = MakeLetters();

Letter LetterOf(wchar_t unit) {
  const auto code = static_cast<char32_t>(unit);
  return code < kLetters.size() ? kLetters[code] : Letter::kRefused;
}

bool IsDigit(wchar_t unit) {
  return unit >= L'0' && unit <= L'9';
}

// Whether a digit here goes on with a name that began before it.
bool EndsInName(std::string_view shape) {
  if (shape.empty()) return false;
  const char last = shape.back();
  return (last >= 'a' && last <= 'z') || (last >= 'A' && last <= 'Z') ||
         (last >= '0' && last <= '9') || last == '_';
}

std::wstring UnknownToken(std::wstring_view token) {
  return L"unrecognized token: \"" + std::wstring(token) + L"\"";
}

}  // namespace

std::wstring SyntaxError(std::wstring_view piece) {
  if (piece.empty()) return L"incomplete input";
  return L"near \"" + std::wstring(piece) + L"\": syntax error";
}

void StatementShape::Read(std::wstring_view statement) {
  text_.clear();
  literals_.clear();
  fault_.clear();
  std::size_t i = 0;
  while (i < statement.size()) {
    const wchar_t unit = statement[i];
    const Letter letter = LetterOf(unit);
    if (letter == Letter::kKept || (letter == Letter::kDigit && EndsInName(text_))) {
      text_ += static_cast<char>(unit);
      ++i;
    } else if (letter == Letter::kDigit || letter == Letter::kMinus) {
      i = ReadNumber(statement, i);
    } else if (letter == Letter::kQuote) {
      i = ReadText(statement, i);
    } else {
      i = EndAt(statement, SyntaxError(statement.substr(i, 1)));
    }
  }
  if (text_.size() > kLongestShape) EndAt(statement, L"statement too long");
}

// The fault stands where it was found, so that what the grammar refuses before it is told first.
std::size_t StatementShape::EndAt(std::wstring_view statement, std::wstring fault) {
  text_.resize(std::min(text_.size(), kLongestShape));
  text_ += kFaultMark;
  fault_ = std::move(fault);
  return statement.size();
}

// A text reaches to the next quote. Two quotes in a row are not taken for one that belongs to the
// text: no client writes them on purpose, but a name that holds them would end up as another name.
std::size_t StatementShape::ReadText(std::wstring_view statement, std::size_t quote) {
  const std::size_t start = quote + 1;
  const std::size_t end = statement.find(L'\'', start);
  if (end == std::wstring_view::npos) {
    return EndAt(statement, UnknownToken(statement.substr(quote)));
  }
  const std::wstring_view text = statement.substr(start, end - start);
  if (text.find(L'\0') != std::wstring_view::npos) {
    return EndAt(statement, UnknownToken(statement.substr(quote, 1 + text.find(L'\0'))));
  }
  literals_.push_back({true, 0, text});
  text_ += kTextMark;
  return end + 1;
}

std::size_t StatementShape::ReadNumber(std::wstring_view statement, std::size_t first) {
  const bool negative = statement[first] == L'-';
  std::size_t i = negative ? first + 1 : first;
  if (i >= statement.size() || !IsDigit(statement[i])) {
    return EndAt(statement, SyntaxError(statement.substr(first, 2)));
  }
  std::int64_t number = 0;
  for (; i < statement.size() && IsDigit(statement[i]); ++i) {
    number = number * 10 + (statement[i] - L'0');
    if (number > std::numeric_limits<std::int32_t>::max() + std::int64_t{1}) {
      return EndAt(statement, UnknownToken(statement.substr(first, i + 1 - first)));
    }
  }
  literals_.push_back({false, negative ? -number : number, {}});
  text_ += kNumberMark;
  return i;
}

}  // namespace server
