#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app {

// A JSON object under construction, in UTF-8 on one line. Names are plain ASCII.
class JsonObject {
 public:
  void Add(std::string_view name, std::wstring_view text);
  // One of our own words, plain ASCII as well.
  void AddWord(std::string_view name, std::string_view word);
  void Add(std::string_view name, std::int64_t number);
  void Add(std::string_view name, bool truth);
  void AddNull(std::string_view name);
  // A finished value: an object, or an array made by JsonArray.
  void AddValue(std::string_view name, std::string_view json);

  std::string Text() const { return "{" + members_ + "}"; }

 private:
  void AddName(std::string_view name);

  std::string members_;
};

// An array of finished values.
class JsonArray {
 public:
  void Add(std::string_view json);
  std::string Text() const { return "[" + values_ + "]"; }

 private:
  std::string values_;
};

}  // namespace app
