#include "data/Wipe.h"

namespace data {
namespace {

template <class Text>
void WipeStorage(Text& text) noexcept {
  text.resize(text.capacity());  // never allocates
  Wipe(text.data(), text.size() * sizeof(typename Text::value_type));
  text.clear();
}

}  // namespace

// Writes through a volatile pointer are part of what a program visibly does; those of memset are
// not, and compilers drop them before memory is freed.
void Wipe(void* memory, std::size_t bytes) noexcept {
  volatile unsigned char* place = static_cast<unsigned char*>(memory);
  for (; bytes > 0; --bytes) *place++ = 0;
}

void Wipe(std::string& text) noexcept {
  WipeStorage(text);
}

void Wipe(std::wstring& text) noexcept {
  WipeStorage(text);
}

}  // namespace data
