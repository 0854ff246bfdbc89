#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace test_support {

// Chance that comes out the same for the same seed, with every compiler.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  // From 0 to count - 1; 0 for a count of 0.
  int Below(int count) {
    return count <= 0 ? 0 : static_cast<int>(engine_() % static_cast<std::uint32_t>(count));
  }
  bool OneIn(int count) { return Below(count) == 0; }
  template <typename Container>
  const auto& Pick(const Container& container) {
    return container[static_cast<std::size_t>(Below(static_cast<int>(std::size(container))))];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace test_support
