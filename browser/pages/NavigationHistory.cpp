#include "browser/pages/NavigationHistory.h"

#include <utility>

namespace browser {
namespace {

constexpr std::size_t kMostPlaces = 100;

}  // namespace

void NavigationHistory::Push(Place place) {
  if (places_.size() == kMostPlaces) places_.pop_front();
  places_.push_back(std::move(place));
}

std::optional<Place> NavigationHistory::Pop() {
  if (places_.empty()) return std::nullopt;
  std::optional<Place> last = std::move(places_.back());
  places_.pop_back();
  return last;
}

}  // namespace browser
