#pragma once

namespace browser {

// Why a command is off: a text of the string table, which may run over two of its numbers. Without
// one the command is on.
struct WhyOff {
  int text = 0;
  int more = 0;

  explicit operator bool() const { return text != 0; }
  friend bool operator==(const WhyOff&, const WhyOff&) = default;
};

}  // namespace browser
