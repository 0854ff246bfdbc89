#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace server {

// The identifiers that a result set gave, in its order. A list that would grow beyond kMost stays
// as it is: it is good for guessing what is asked next, and a guess may be missing.
class IdentifierList {
 public:
  static constexpr std::size_t kMost = 100'000;

  void Add(std::int64_t identifier);
  std::size_t Size() const { return identifiers_.size(); }
  std::int64_t At(std::size_t position) const { return identifiers_[position]; }
  // Where an identifier stands first.
  std::optional<std::size_t> Find(std::int64_t identifier) const;

 private:
  std::vector<std::int64_t> identifiers_;
  // Identifiers with their positions, in order; brought up to date when somebody looks for one.
  mutable std::vector<std::pair<std::int64_t, std::size_t>> sorted_;
};

}  // namespace server
