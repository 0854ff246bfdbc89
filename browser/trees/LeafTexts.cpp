#include "browser/trees/LeafTexts.h"

namespace browser {

LeafTexts::Leaf& LeafTexts::At(std::int32_t id) {
  if (id < 0 || id >= kSmall) return large_[id];
  const auto place = static_cast<std::size_t>(id);
  if (place >= small_.size()) small_.resize(place + 1);
  return small_[place];
}

}  // namespace browser
