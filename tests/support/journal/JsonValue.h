#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

// A value read from a JSON text, with none of the program's own code. What is not well formed, or
// not there when asked for, is a std::runtime_error.
class JsonValue {
 public:
  enum class Kind { kNull, kTruth, kNumber, kText, kArray, kObject };

  // The whole of the text has to be one value.
  static JsonValue Parse(std::string_view text);

  Kind TheKind() const { return kind_; }
  bool IsNull() const { return kind_ == Kind::kNull; }
  bool Has(const std::string& name) const { return members_.contains(name); }
  const JsonValue& operator[](const std::string& name) const;
  bool Truth() const;
  std::int64_t Number() const;
  const std::string& Text() const;
  const std::vector<JsonValue>& Items() const;

 private:
  friend class JsonParser;

  void Require(Kind kind) const;

  Kind kind_ = Kind::kNull;
  std::int64_t number_ = 0;  // of a truth 0 or 1
  std::string text_;
  std::vector<JsonValue> items_;
  std::map<std::string, JsonValue> members_;
};

}  // namespace test_support
