#include "tests/support/controls/ShownContent.h"

namespace test_support {
namespace {

std::string Ascii(const std::wstring& text) {
  std::string ascii;
  for (const wchar_t c : text) {
    if (c >= 32 && c < 127) ascii += static_cast<char>(c);
  }
  return ascii;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ShownNode& node) {
  out << '\n' << std::string(2 * static_cast<std::size_t>(node.level), ' ');
  out << (node.hasButton ? (node.open ? "- " : "+ ") : ". ") << Ascii(node.text);
  return out << " #" << node.image << (node.selected ? " selected" : "");
}

std::ostream& operator<<(std::ostream& out, const ShownItem& item) {
  return out << (item.marked ? "[x] " : "[ ] ") << Ascii(item.text)
             << (item.focused ? " focused" : "");
}

std::ostream& operator<<(std::ostream& out, const ShownRow& row) {
  for (const std::wstring& text : row.texts) out << Ascii(text) << '|';
  return out << (row.selected ? " selected" : "") << (row.focused ? " focused" : "");
}

}  // namespace test_support
