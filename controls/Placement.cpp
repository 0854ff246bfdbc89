#include "controls/Placement.h"

#include <algorithm>
#include <cstdint>

namespace controls {
namespace {

Area MovedTo(const Area& window, int left, int top) {
  return {left, top, left + window.Width(), top + window.Height()};
}

}  // namespace

int Scaled(int length, unsigned fromDpi, unsigned toDpi) {
  const auto from = static_cast<std::int64_t>(fromDpi);
  const std::int64_t product = std::int64_t{length} * static_cast<std::int64_t>(toDpi);
  const std::int64_t half = product < 0 ? -from / 2 : from / 2;
  return static_cast<int>((product + half) / from);
}

Area MovedInto(const Area& window, const Area& work) {
  const int left = std::max(work.left, std::min(window.left, work.right - window.Width()));
  const int top = std::max(work.top, std::min(window.top, work.bottom - window.Height()));
  return MovedTo(window, left, top);
}

Area FittedInto(const Area& window, const Area& work) {
  Area fitted = window;
  fitted.right = fitted.left + std::min(window.Width(), work.Width());
  fitted.bottom = fitted.top + std::min(window.Height(), work.Height());
  return MovedInto(fitted, work);
}

Area CentredOver(const Area& window, const Area& over, const Area& work) {
  return MovedInto(MovedTo(window, over.left + (over.Width() - window.Width()) / 2,
                           over.top + (over.Height() - window.Height()) / 2),
                   work);
}

}  // namespace controls
