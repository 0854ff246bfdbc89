#include "tests/support/journal/JsonValue.h"

#include <charconv>
#include <stdexcept>
#include <utility>

namespace test_support {

class JsonParser {
 public:
  explicit JsonParser(std::string_view text) : text_(text) {}

  JsonValue Whole() {
    JsonValue value = Value();
    if (at_ != text_.size()) Fail();
    return value;
  }

 private:
  [[noreturn]] void Fail() const {
    throw std::runtime_error("no JSON at " + std::to_string(at_) + " of " + std::string(text_));
  }
  char Next() {
    if (at_ == text_.size()) Fail();
    return text_[at_++];
  }
  bool Take(std::string_view word) {
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  JsonValue Value() {
    JsonValue value;
    if (Take("{")) {
      value.kind_ = JsonValue::Kind::kObject;
      Members(value);
    } else if (Take("[")) {
      value.kind_ = JsonValue::Kind::kArray;
      Items(value);
    } else if (Take("\"")) {
      value.kind_ = JsonValue::Kind::kText;
      value.text_ = String();
    } else if (Take("true")) {
      value.kind_ = JsonValue::Kind::kTruth;
      value.number_ = 1;
    } else if (Take("false")) {
      value.kind_ = JsonValue::Kind::kTruth;
    } else if (!Take("null")) {
      value.kind_ = JsonValue::Kind::kNumber;
      value.number_ = Number();
    }
    return value;
  }

  void Members(JsonValue& object) {
    if (Take("}")) return;
    do {
      if (Next() != '"') Fail();
      const std::string name = String();
      if (Next() != ':' || !object.members_.emplace(name, Value()).second) Fail();
    } while (Take(","));
    if (Next() != '}') Fail();
  }

  void Items(JsonValue& array) {
    if (Take("]")) return;
    do {
      array.items_.push_back(Value());
    } while (Take(","));
    if (Next() != ']') Fail();
  }

  std::string String() {
    std::string string;
    for (;;) {
      const char letter = Next();
      if (letter == '"') return string;
      if (static_cast<unsigned char>(letter) < 0x20) Fail();
      string += letter == '\\' ? Escaped() : letter;
    }
  }

  // Of the letters by number those alone that the journal writes so: control characters.
  char Escaped() {
    const char letter = Next();
    if (letter == '"' || letter == '\\') return letter;
    if (letter != 'u' || !Take("00")) Fail();
    int code = 0;
    const char* const digits = text_.data() + at_;
    if (at_ + 2 > text_.size() || std::from_chars(digits, digits + 2, code, 16).ptr != digits + 2) {
      Fail();
    }
    at_ += 2;
    return static_cast<char>(code);
  }

  std::int64_t Number() {
    std::int64_t number = 0;
    const char* const begin = text_.data() + at_;
    const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), number);
    if (error != std::errc()) Fail();
    at_ += static_cast<std::size_t>(end - begin);
    return number;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

JsonValue JsonValue::Parse(std::string_view text) {
  return JsonParser(text).Whole();
}

void JsonValue::Require(Kind kind) const {
  if (kind_ != kind) throw std::runtime_error("a JSON value of another kind");
}

const JsonValue& JsonValue::operator[](const std::string& name) const {
  Require(Kind::kObject);
  const auto found = members_.find(name);
  if (found == members_.end()) throw std::runtime_error("no JSON member " + name);
  return found->second;
}

bool JsonValue::Truth() const {
  Require(Kind::kTruth);
  return number_ != 0;
}

std::int64_t JsonValue::Number() const {
  Require(Kind::kNumber);
  return number_;
}

const std::string& JsonValue::Text() const {
  Require(Kind::kText);
  return text_;
}

const std::vector<JsonValue>& JsonValue::Items() const {
  Require(Kind::kArray);
  return items_;
}

}  // namespace test_support
