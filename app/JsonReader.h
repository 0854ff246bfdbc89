#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace app {

// Reads a JSON text in UTF-8 from its beginning to its end, value by value. A text that is not well
// formed, or holds another kind of value than it is read for, is given up: from then on nothing is
// read, every answer is empty, and IsWhole answers false.
class JsonReader {
 public:
  // text outlives the reader.
  explicit JsonReader(std::string_view text) : text_(text) {}

  // An object: member is called for each of its members, in their order, and reads or skips its
  // value. name lasts until member returns.
  void Object(const std::function<void(std::string_view name)>& member);
  // An array: item is called for each of its values, and reads or skips it.
  void Array(const std::function<void()>& item);
  std::wstring Text();
  std::int64_t Number();  // a whole one
  bool Truth();
  // True where a null was read; otherwise nothing was.
  bool TakeNull();
  // Any value, however deep.
  void Skip();

  // Whether what was read was well formed, and nothing but blanks is left.
  bool IsWhole();

 private:
  bool Take(char sign);
  bool TakeWord(std::string_view word);
  void SkipBlanks();
  void GiveUp() { failed_ = true; }
  std::string Bytes();
  void AppendEscaped(std::string& bytes);
  unsigned HexDigits();
  void AppendByNumber(std::string& bytes);
  void SkipPlain();

  std::string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool failed_ = false;
};

}  // namespace app
