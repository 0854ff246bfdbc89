#include "controls/AnchorLayout.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace controls {
namespace {

using Side = AxisLayout::Side;
using Distance = AxisLayout::Distance;

// An item along one axis.
struct Span {
  int from;
  int to;

  int Length() const { return to - from; }
};

Span Across(const Area& place) {
  return {place.left, place.right};
}
Span Down(const Area& place) {
  return {place.top, place.bottom};
}

bool IsBefore(const Span& first, const Span& second) {
  return first.to <= second.from;
}
bool Overlap(const Span& first, const Span& second) {
  return !IsBefore(first, second) && !IsBefore(second, first);
}
bool Contains(const Span& outer, const Span& inner) {
  return outer.from <= inner.from && inner.to <= outer.to;
}

// The shares of what the form gains that the two sides of an item move by.
std::pair<double, double> SharesAcross(unsigned anchors) {
  double right = anchors & kAnchorRight ? 1 : 0;
  double left = anchors & kAnchorLeft ? 0 : right;
  if (anchors & kAnchorRightMiddle) right = 0.5;
  if (anchors & kAnchorLeftMiddle) left = 0.5;
  return {left, right};
}

std::pair<double, double> SharesDown(unsigned anchors) {
  const double bottom = anchors & kAnchorBottom ? 1 : 0;
  return {anchors & kAnchorTop ? 0 : bottom, bottom};
}

// The items along one axis.
class Row {
 public:
  Row(int extent, int gap) : axis_(extent), extent_(extent), gap_(gap) {}

  void Add(const Span& span, const std::pair<double, double>& shares, const Distance& length) {
    const Ends ends = {axis_.At(span.from, shares.first), axis_.At(span.to, shares.second)};
    axis_.KeepControl(ends.from, ends.to, length);
    Keep(AxisLayout::kNear, ends.from, span.from, gap_);
    Keep(ends.to, AxisLayout::kFar, extent_ - span.to, gap_);
    items_.push_back(ends);
  }

  void Follow(std::size_t first, std::size_t second, bool neighbours) {
    const Side from = items_[first].to;
    const Side to = items_[second].from;
    Keep(from, to, axis_.PlaceOf(to) - axis_.PlaceOf(from), neighbours ? gap_ : 0);
  }

  void Hold(std::size_t outer, std::size_t inner, int near) {
    const Ends& holder = items_[outer];
    const Ends& held = items_[inner];
    Keep(holder.from, held.from, axis_.PlaceOf(held.from) - axis_.PlaceOf(holder.from), near);
    Keep(held.to, holder.to, axis_.PlaceOf(holder.to) - axis_.PlaceOf(held.to), gap_);
  }

  std::vector<Span> Fit(int extent) const {
    const std::vector<int> places = axis_.Fit(extent);
    std::vector<Span> spans;
    for (const Ends& ends : items_) spans.push_back({places[ends.from], places[ends.to]});
    return spans;
  }

 private:
  struct Ends {
    Side from;
    Side to;
  };

  void Keep(Side from, Side to, int designed, int least) {
    axis_.Keep(from, to, {designed, std::min(3 * least, designed), std::min(least, designed)});
  }

  AxisLayout axis_;
  int extent_;
  int gap_;
  std::vector<Ends> items_;
};

// Whether an item lies on another.
bool Holds(const AnchorLayout::Item& outer, const AnchorLayout::Item& inner) {
  return outer.holds && Contains(Across(outer.place), Across(inner.place)) &&
         Contains(Down(outer.place), Down(inner.place));
}

// What lies in one line follows from left to right, all else from top to bottom.
void RelateAcross(const std::vector<AnchorLayout::Item>& items, int gap, Row& across) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (std::size_t k = 0; k < items.size(); ++k) {
      const Area& one = items[i].place;
      const Area& other = items[k].place;
      if (i == k || !Overlap(Down(one), Down(other))) continue;
      if (IsBefore(Across(one), Across(other))) across.Follow(i, k, true);
      if (Holds(items[i], items[k])) across.Hold(i, k, gap);
    }
  }
}

void RelateDown(const std::vector<AnchorLayout::Item>& items, Row& down) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (std::size_t k = 0; k < items.size(); ++k) {
      const Area& one = items[i].place;
      const Area& other = items[k].place;
      if (i == k) continue;
      if (IsBefore(Down(one), Down(other))) {
        down.Follow(i, k, Overlap(Across(one), Across(other)));
      } else if (Holds(items[i], items[k])) {
        down.Hold(i, k, items[i].top);
      }
    }
  }
}

// The height of an item that has got this width.
Distance HeightOf(const AnchorLayout::Item& item, int width) {
  const int designed = item.place.Height();
  if (!item.heightAt) return {designed, item.height.comfortable, item.height.least};
  const int needed = item.heightAt(width);
  return {std::max(designed, needed), needed, needed};
}

}  // namespace

std::vector<Area> AnchorLayout::Fit(int width, int height) const {
  Row across(width_, gap_);
  for (const Item& item : items_) {
    across.Add(Across(item.place), SharesAcross(item.anchors),
               {item.place.Width(), item.width.comfortable, item.width.least});
  }
  RelateAcross(items_, gap_, across);
  const std::vector<Span> columns = across.Fit(width);

  // Only now is it known how high each text gets.
  Row down(height_, gap_);
  for (std::size_t i = 0; i < items_.size(); ++i) {
    down.Add(Down(items_[i].place), SharesDown(items_[i].anchors),
             HeightOf(items_[i], columns[i].Length()));
  }
  RelateDown(items_, down);
  const std::vector<Span> lines = down.Fit(height);

  std::vector<Area> places;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    places.push_back({columns[i].from, lines[i].from, columns[i].to, lines[i].to});
  }
  return places;
}

}  // namespace controls
