#pragma once

#include <functional>
#include <vector>

#include "controls/AxisLayout.h"
#include "controls/Control.h"
#include "controls/Placement.h"

namespace controls {

// Where the controls of a form stand in a client area of any size: at their distances from the
// sides that they are anchored to, and closer together where the area is too small for that (see
// AxisLayout). No two controls overlap, and none reaches out of the area, unless they are designed
// to. All lengths are in pixels.
class AnchorLayout {
 public:
  struct Length {
    int comfortable = 0;
    int least = 0;
  };

  struct Item {
    Area place;  // as designed
    unsigned anchors = kAnchorLeft | kAnchorTop;
    // Never more than it has as designed.
    Length width;
    Length height;
    // A frame or tab strip: what lies within it stays there, below what is at its top.
    bool holds = false;
    int top = 0;
    // What a text that breaks into lines needs in a width; empty for what needs no more than it
    // has.
    std::function<int(int width)> heightAt;
  };

  // gap is what is left between two neighbours at least.
  AnchorLayout(int width, int height, int gap, std::vector<Item> items)
      : width_(width), height_(height), gap_(gap), items_(std::move(items)) {}

  // The places of the items, in their order.
  std::vector<Area> Fit(int width, int height) const;

 private:
  int width_;
  int height_;
  int gap_;
  std::vector<Item> items_;
};

}  // namespace controls
