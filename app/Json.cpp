#include "app/Json.h"

#include "data/Text.h"

namespace app {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

// Quotation marks, backslashes and control characters are the only ones that may not stand for
// themselves.
void AppendQuoted(std::string& out, std::wstring_view text) {
  out += '"';
  for (const char byte : data::ToUtf8(text)) {
    const auto code = static_cast<unsigned char>(byte);
    if (byte == '"' || byte == '\\') {
      out += '\\';
      out += byte;
    } else if (code < 0x20 || code == 0x7F) {
      out += "\\u00";
      out += kHexDigits[code >> 4];
      out += kHexDigits[code & 0xF];
    } else {
      out += byte;
    }
  }
  out += '"';
}

}  // namespace

void JsonObject::AddName(std::string_view name) {
  if (!members_.empty()) members_ += ',';
  members_ += '"';
  members_ += name;
  members_ += "\":";
}

void JsonObject::Add(std::string_view name, std::wstring_view text) {
  AddName(name);
  AppendQuoted(members_, text);
}

void JsonObject::AddWord(std::string_view name, std::string_view word) {
  AddName(name);
  members_ += '"';
  members_ += word;
  members_ += '"';
}

void JsonObject::Add(std::string_view name, std::int64_t number) {
  AddName(name);
  members_ += std::to_string(number);
}

void JsonObject::Add(std::string_view name, bool truth) {
  AddName(name);
  members_ += truth ? "true" : "false";
}

void JsonObject::AddNull(std::string_view name) {
  AddName(name);
  members_ += "null";
}

void JsonObject::AddValue(std::string_view name, std::string_view json) {
  AddName(name);
  members_ += json;
}

void JsonArray::Add(std::string_view json) {
  if (!values_.empty()) values_ += ',';
  values_ += json;
}

}  // namespace app
