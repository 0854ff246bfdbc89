#pragma once

#include <cstddef>
#include <vector>

namespace controls {

// Where the sides of a form's controls stand along one axis, in a form of any extent. All lengths
// are in pixels.
//
// A side moves by its share of what the form is larger or smaller than its design. Where the form
// is too small for that, everything gives way together, down to its least; no distance gets shorter
// than that before all have, and none is ever negative: what does not overlap in the design does
// not overlap in any form.
class AxisLayout {
 public:
  // A side of a control, or one of the form's own two.
  using Side = std::size_t;
  static constexpr Side kNear = 0;
  static constexpr Side kFar = 1;

  // How far one side stands before another: as designed, as little as it gets while others keep
  // theirs, and the least.
  struct Distance {
    int designed = 0;
    int comfortable = 0;
    int least = 0;
  };

  explicit AxisLayout(int extent);

  // The side at a place of the design that moves by a share, from 0 to 1. Sides that stand and move
  // alike are one, and so stay in line.
  Side At(int place, double share);
  int PlaceOf(Side side) const { return sides_[side].place; }
  // The second side comes after the first one; with what is between them a control of its own, or
  // not.
  void Keep(Side from, Side to, const Distance& distance);
  void KeepControl(Side from, Side to, const Distance& length);

  // The place of every side, by its number, in a form of this extent.
  std::vector<int> Fit(int extent) const;

 private:
  using Places = std::vector<double>;

  struct Position {
    int place;
    double share;
  };

  struct Relation {
    Side from;
    Side to;
    Distance distance;
    bool isControl;
  };

  Places Earliest(int Distance::*length) const;
  Places Latest(int Distance::*length, double far) const;
  Places Least() const;
  void WidenBackwards(Places& places) const;
  std::vector<double> RisingShares() const;
  double SmallestChange(const Places& designed) const;
  Places Changed(const Places& designed, double change) const;
  Places Squeezed(const Places& comfortable, double extent) const;

  std::vector<Position> sides_;
  std::vector<Relation> relations_;
};

}  // namespace controls
