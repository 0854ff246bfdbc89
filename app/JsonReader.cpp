#include "app/JsonReader.h"

#include <charconv>
#include <system_error>

#include "data/Text.h"

namespace app {
namespace {

// Nothing that is read here lies deeper; whoever has put together a text with thousands of brackets
// is not followed into it.
constexpr int kDeepest = 32;

constexpr std::string_view kBlanks = " \t\r\n";
// What a number, true, false or null is made of.
constexpr std::string_view kPlain = "+-.0123456789Eaeflnrstu";

// What a letter after a backslash stands for; 0 for one that stands for nothing.
char Unescaped(char letter) {
  constexpr std::string_view kLetters = "\"\\/bfnrt";
  constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
  const std::size_t found = kLetters.find(letter);
  return found == std::string_view::npos ? '\0' : kMeanings[found];
}

constexpr bool IsFirstHalf(unsigned unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

}  // namespace

void JsonReader::SkipBlanks() {
  const std::size_t end = text_.find_first_not_of(kBlanks, at_);
  at_ = end == std::string_view::npos ? text_.size() : end;
}

// Takes a sign with the blanks before it, where it comes next.
bool JsonReader::Take(char sign) {
  if (failed_) return false;
  SkipBlanks();
  if (at_ == text_.size() || text_[at_] != sign) return false;
  ++at_;
  return true;
}

bool JsonReader::TakeWord(std::string_view word) {
  if (failed_) return false;
  SkipBlanks();
  if (!text_.substr(at_).starts_with(word)) return false;
  at_ += word.size();
  return true;
}

void JsonReader::Object(const std::function<void(std::string_view name)>& member) {
  if (!Take('{') || ++depth_ > kDeepest) return GiveUp();
  if (!Take('}')) {
    do {
      const std::string name = Bytes();
      if (!Take(':')) GiveUp();
      if (!failed_) member(name);
    } while (Take(','));
    if (!Take('}')) GiveUp();
  }
  --depth_;
}

void JsonReader::Array(const std::function<void()>& item) {
  if (!Take('[') || ++depth_ > kDeepest) return GiveUp();
  if (!Take(']')) {
    do {
      item();
    } while (Take(','));
    if (!Take(']')) GiveUp();
  }
  --depth_;
}

std::wstring JsonReader::Text() {
  return data::FromUtf8(Bytes());
}

std::string JsonReader::Bytes() {
  std::string bytes;
  if (!Take('"')) GiveUp();
  while (!failed_) {
    if (at_ == text_.size()) {
      GiveUp();
    } else if (const char letter = text_[at_++]; letter == '"') {
      return bytes;
    } else if (letter == '\\') {
      AppendEscaped(bytes);
    } else if (static_cast<unsigned char>(letter) < 0x20) {
      GiveUp();
    } else {
      bytes += letter;
    }
  }
  return {};
}

void JsonReader::AppendEscaped(std::string& bytes) {
  if (at_ == text_.size()) return GiveUp();
  const char letter = text_[at_++];
  if (letter == 'u') return AppendByNumber(bytes);
  const char meaning = Unescaped(letter);
  if (meaning == '\0') return GiveUp();
  bytes += meaning;
}

// Of two halves the second one stands after a backslash of its own. A half that is alone becomes
// U+FFFD.
void JsonReader::AppendByNumber(std::string& bytes) {
  std::wstring units(1, static_cast<wchar_t>(HexDigits()));
  if (IsFirstHalf(static_cast<unsigned>(units[0])) && text_.substr(at_).starts_with("\\u")) {
    at_ += 2;
    units += static_cast<wchar_t>(HexDigits());
  }
  if (!failed_) data::AppendAsUtf8(bytes, units);
}

unsigned JsonReader::HexDigits() {
  constexpr std::size_t kDigits = 4;
  unsigned number = 0;
  const std::string_view digits = text_.substr(at_, kDigits);
  const char* const end = digits.data() + digits.size();
  if (digits.size() != kDigits || std::from_chars(digits.data(), end, number, 16).ptr != end) {
    GiveUp();
    return 0;
  }
  at_ += kDigits;
  return number;
}

std::int64_t JsonReader::Number() {
  if (failed_) return 0;
  SkipBlanks();
  std::int64_t number = 0;
  const char* const begin = text_.data() + at_;
  const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), number);
  if (error != std::errc()) {
    GiveUp();
    return 0;
  }
  at_ += static_cast<std::size_t>(end - begin);
  return number;
}

bool JsonReader::Truth() {
  if (TakeWord("true")) return true;
  if (!TakeWord("false")) GiveUp();
  return false;
}

bool JsonReader::TakeNull() {
  return TakeWord("null");
}

void JsonReader::Skip() {
  if (failed_) return;
  SkipBlanks();
  const char first = at_ == text_.size() ? '\0' : text_[at_];
  if (first == '{') {
    Object([this](std::string_view) { Skip(); });
  } else if (first == '[') {
    Array([this] { Skip(); });
  } else if (first == '"') {
    Bytes();
  } else {
    SkipPlain();
  }
}

void JsonReader::SkipPlain() {
  std::size_t end = text_.find_first_not_of(kPlain, at_);
  if (end == std::string_view::npos) end = text_.size();
  if (end == at_) GiveUp();
  at_ = end;
}

bool JsonReader::IsWhole() {
  SkipBlanks();
  return !failed_ && at_ == text_.size();
}

}  // namespace app
