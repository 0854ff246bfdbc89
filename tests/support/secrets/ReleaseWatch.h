#pragma once

#include <string_view>

namespace test_support {

// Looks into every block of memory at the moment at which the program gives it back, for a text
// that must not be in it any more. A program that links this has operators new and delete of its
// own; what lies on the stack and what libraries allocate in other ways is not seen.
class ReleaseWatch {
 public:
  // Watches until it ends, one at a time. The text is ASCII and not on the heap; it is looked for
  // in wide characters and in bytes.
  explicit ReleaseWatch(std::wstring_view secret);
  ~ReleaseWatch();
  ReleaseWatch(const ReleaseWatch&) = delete;
  ReleaseWatch& operator=(const ReleaseWatch&) = delete;

  // How many blocks were given back with the text in them.
  int Found() const;
};

}  // namespace test_support
