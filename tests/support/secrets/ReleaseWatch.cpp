#include "tests/support/secrets/ReleaseWatch.h"

#include <malloc.h>

#include <array>
#include <cstdlib>
#include <new>

namespace test_support {
namespace {

// Nothing here may allocate: it is used while memory is given back.
std::wstring_view wideSecret;
std::array<char, 64> narrowLetters;
std::string_view narrowSecret;
int found = 0;

std::size_t SizeOf(void* block) {
#ifdef _WIN32
  return _msize(block);
#else
  return malloc_usable_size(block);
#endif
}

bool Holds(std::string_view bytes, const void* piece, std::size_t size) {
  return bytes.find({static_cast<const char*>(piece), size}) != std::string_view::npos;
}

void GiveBack(void* block) {
  if (block != nullptr && !wideSecret.empty()) {
    const std::string_view bytes(static_cast<const char*>(block), SizeOf(block));
    if (Holds(bytes, wideSecret.data(), wideSecret.size() * sizeof(wchar_t)) ||
        Holds(bytes, narrowSecret.data(), narrowSecret.size())) {
      ++found;
    }
  }
  std::free(block);
}

void* Take(std::size_t size) noexcept {
  return std::malloc(size == 0 ? 1 : size);
}

void* TakeOrThrow(std::size_t size) {
  void* const block = Take(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

ReleaseWatch::ReleaseWatch(std::wstring_view secret) {
  found = 0;
  for (std::size_t i = 0; i < secret.size(); ++i) {
    narrowLetters.at(i) = static_cast<char>(secret[i]);
  }
  narrowSecret = {narrowLetters.data(), secret.size()};
  wideSecret = secret;
}

ReleaseWatch::~ReleaseWatch() {
  wideSecret = {};
}

int ReleaseWatch::Found() const {
  return found;
}

}  // namespace test_support

void* operator new(std::size_t size) {
  return test_support::TakeOrThrow(size);
}
void* operator new[](std::size_t size) {
  return test_support::TakeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return test_support::Take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return test_support::Take(size);
}
void operator delete(void* block) noexcept {
  test_support::GiveBack(block);
}
void operator delete[](void* block) noexcept {
  test_support::GiveBack(block);
}
void operator delete(void* block, std::size_t) noexcept {
  test_support::GiveBack(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  test_support::GiveBack(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  test_support::GiveBack(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  test_support::GiveBack(block);
}
