#include "controls/AxisLayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace controls {

AxisLayout::AxisLayout(int extent) : sides_{{0, 0}, {extent, 1}} {}

AxisLayout::Side AxisLayout::At(int place, double share) {
  // The form's own sides are their own: a control may lie at the very edge.
  const auto found = std::find_if(sides_.begin() + 2, sides_.end(), [&](const Position& side) {
    return side.place == place && side.share == share;
  });
  if (found != sides_.end()) return static_cast<Side>(found - sides_.begin());
  sides_.push_back({place, share});
  return sides_.size() - 1;
}

void AxisLayout::Keep(Side from, Side to, const Distance& distance) {
  if (from != to) relations_.push_back({from, to, distance, false});
}

void AxisLayout::KeepControl(Side from, Side to, const Distance& length) {
  if (from != to) relations_.push_back({from, to, length, true});
}

// The relations have no circle but of lengths 0, so that this comes to an end.
AxisLayout::Places AxisLayout::Earliest(int Distance::*length) const {
  Places places(sides_.size(), 0);
  for (bool moved = true; moved;) {
    moved = false;
    for (const Relation& relation : relations_) {
      const double least = places[relation.from] + relation.distance.*length;
      if (places[relation.to] >= least) continue;
      places[relation.to] = least;
      moved = true;
    }
  }
  return places;
}

AxisLayout::Places AxisLayout::Latest(int Distance::*length, double far) const {
  Places places(sides_.size(), far);
  for (bool moved = true; moved;) {
    moved = false;
    for (const Relation& relation : relations_) {
      const double most = places[relation.to] - relation.distance.*length;
      if (places[relation.from] <= most) continue;
      places[relation.from] = most;
      moved = true;
    }
  }
  return places;
}

// A side never has a smaller share than one before it, or they could pass each other.
std::vector<double> AxisLayout::RisingShares() const {
  std::vector<double> shares;
  for (const Position& side : sides_) shares.push_back(side.share);
  for (bool raised = true; raised;) {
    raised = false;
    for (const Relation& relation : relations_) {
      if (shares[relation.to] >= shares[relation.from]) continue;
      shares[relation.to] = shares[relation.from];
      raised = true;
    }
  }
  return shares;
}

// Everything as short as it gets. Where one column is shorter than another, its slack goes where
// growing would go: sides that move with the far edge stand as late as they may.
AxisLayout::Places AxisLayout::Least() const {
  Places places = Earliest(&Distance::least);
  const Places latest = Latest(&Distance::least, places[kFar]);
  const std::vector<double> shares = RisingShares();
  for (Side side = 0; side < places.size(); ++side) {
    places[side] += shares[side] * (latest[side] - places[side]);
  }
  WidenBackwards(places);
  return places;
}

// A control that has been pushed together against what follows it, with room left before it, takes
// of that room up to its design: buttons in a frame that is as wide as its caption. From the near
// edge on, since what holds a control comes before it.
void AxisLayout::WidenBackwards(Places& places) const {
  std::vector<Side> order(places.size());
  std::iota(order.begin(), order.end(), Side{0});
  std::ranges::stable_sort(order, {}, [&](Side side) { return places[side]; });
  for (const Side side : order) {
    double wanted = -1;
    double possible = 0;
    for (const Relation& relation : relations_) {
      if (relation.to == side) {
        possible = std::max(possible, places[relation.from] + relation.distance.least);
      }
      if (relation.from == side && relation.isControl) {
        wanted = std::max(wanted, places[relation.to] - relation.distance.designed);
      }
    }
    if (wanted >= 0) places[side] = std::min(places[side], std::max(wanted, possible));
  }
}

// How much smaller than designed the form may be before a distance is no longer comfortable; 0 or
// less.
double AxisLayout::SmallestChange(const Places& designed) const {
  double change = -designed[kFar];
  for (const Relation& relation : relations_) {
    const double share = sides_[relation.to].share - sides_[relation.from].share;
    if (share <= 0) continue;
    const double slack =
        designed[relation.to] - designed[relation.from] - relation.distance.comfortable;
    change = std::max(change, -std::max(0.0, slack) / share);
  }
  return change;
}

AxisLayout::Places AxisLayout::Changed(const Places& designed, double change) const {
  Places places = designed;
  for (Side side = 0; side < places.size(); ++side) places[side] += sides_[side].share * change;
  return places;
}

// Between two layouts that keep every distance, and so do all between them. In a form that is
// smaller than the least there is nothing left but to let captions be cut off.
AxisLayout::Places AxisLayout::Squeezed(const Places& comfortable, double extent) const {
  const Places least = Least();
  const double room = comfortable[kFar] - least[kFar];
  const double part = room > 0 ? std::max(0.0, extent - least[kFar]) / room : 0;
  const double scale = least[kFar] > extent ? extent / least[kFar] : 1;
  Places places = least;
  for (Side side = 0; side < places.size(); ++side) {
    places[side] = scale * (least[side] + part * (comfortable[side] - least[side]));
  }
  return places;
}

std::vector<int> AxisLayout::Fit(int extent) const {
  const Places designed = Earliest(&Distance::designed);
  const double wanted = extent - designed[kFar];
  const double smallest = SmallestChange(designed);
  Places places = Changed(designed, std::max(wanted, smallest));
  if (wanted < smallest) places = Squeezed(places, extent);
  std::vector<int> rounded;
  for (const double place : places) rounded.push_back(static_cast<int>(std::floor(place)));
  return rounded;
}

}  // namespace controls
