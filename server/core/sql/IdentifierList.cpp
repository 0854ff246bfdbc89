#include "server/core/sql/IdentifierList.h"

#include <algorithm>

namespace server {

void IdentifierList::Add(std::int64_t identifier) {
  if (identifiers_.size() < kMost) identifiers_.push_back(identifier);
}

std::optional<std::size_t> IdentifierList::Find(std::int64_t identifier) const {
  if (sorted_.size() != identifiers_.size()) {
    sorted_.clear();
    for (std::size_t i = 0; i < identifiers_.size(); ++i) sorted_.emplace_back(identifiers_[i], i);
    std::sort(sorted_.begin(), sorted_.end());
  }
  const auto found =
      std::lower_bound(sorted_.begin(), sorted_.end(), std::pair(identifier, std::size_t{0}));
  if (found == sorted_.end() || found->first != identifier) return std::nullopt;
  return found->second;
}

}  // namespace server
