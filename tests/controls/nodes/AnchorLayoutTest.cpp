#include "controls/AnchorLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace controls_test {
namespace {

using namespace controls;
using Item = AnchorLayout::Item;

constexpr unsigned kAllSides = kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom;
constexpr int kGap = 4;

Item Button(const Area& place, unsigned anchors) {
  return {place, anchors, {60, 60}, {20, 20}, false, 0, {}};
}
Item List(const Area& place, unsigned anchors) {
  return {place, anchors, {100, 50}, {80, 40}, false, 0, {}};
}
Item Frame(const Area& place, unsigned anchors) {
  return {place, anchors, {40, 40}, {0, 0}, true, 16, {}};
}

// A list, beside it a frame with two buttons, below both a button.
std::vector<Item> Window() {
  return {List({10, 10, 290, 250}, kAllSides), Frame({300, 10, 390, 90}, kAnchorRight | kAnchorTop),
          Button({310, 30, 380, 52}, kAnchorRight | kAnchorTop),
          Button({310, 60, 380, 82}, kAnchorRight | kAnchorTop),
          Button({310, 266, 390, 290}, kAnchorRight | kAnchorBottom)};
}

std::vector<Area> FitWindow(int width, int height) {
  return AnchorLayout(400, 300, kGap, Window()).Fit(width, height);
}

bool Overlap(const Area& one, const Area& other) {
  return one.left < other.right && other.left < one.right && one.top < other.bottom &&
         other.top < one.bottom;
}
bool Contains(const Area& outer, const Area& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

TEST(AnchorLayout, LeavesItsDesignAsItIs) {
  const std::vector<Item> items = Window();
  const std::vector<Area> places = FitWindow(400, 300);
  for (std::size_t i = 0; i < items.size(); ++i) EXPECT_EQ(places[i], items[i].place) << i;
}

TEST(AnchorLayout, KeepsTheDistancesOfALargerForm) {
  const std::vector<Area> places = FitWindow(500, 340);
  EXPECT_EQ(places[0], (Area{10, 10, 390, 290}));
  EXPECT_EQ(places[1], (Area{400, 10, 490, 90}));
  EXPECT_EQ(places[4], (Area{410, 306, 490, 330}));
}

TEST(AnchorLayout, ShortensListsBeforeAnythingElseComesCloser) {
  const std::vector<Area> places = FitWindow(300, 200);
  EXPECT_EQ(places[0], (Area{10, 10, 190, 150}));
  EXPECT_EQ(places[1], (Area{200, 10, 290, 90}));
  EXPECT_EQ(places[4], (Area{210, 166, 290, 190}));
}

TEST(AnchorLayout, BringsEverythingCloserWhenListsAreShort) {
  const std::vector<Area> places = FitWindow(150, 110);
  EXPECT_GE(places[0].Width(), 50);
  EXPECT_GE(places[0].Height(), 40);
  for (const std::size_t button : {2U, 3U, 4U}) {
    EXPECT_GE(places[button].Width(), 60);
    EXPECT_GE(places[button].Height(), 20);
    EXPECT_LE(places[button].right, 150);
  }
  EXPECT_GE(places[2].top - places[1].top, 16);
  EXPECT_EQ(places[2].left, places[3].left);
  EXPECT_TRUE(Contains(places[1], places[3]));
}

TEST(AnchorLayout, LetsTheButtonsOfAFrameFillIt) {
  std::vector<Item> items = Window();
  items[1].width = {75, 75};  // its caption
  const std::vector<Area> places = AnchorLayout(400, 300, kGap, items).Fit(143, 300);
  EXPECT_EQ(places[2].left - places[1].left, places[1].right - places[2].right);
  EXPECT_EQ(places[2].left, places[3].left);
}

TEST(AnchorLayout, GivesABrokenTextTheHeightItNeeds) {
  Item text;
  text.place = {10, 10, 200, 40};
  text.anchors = kAnchorLeft | kAnchorTop | kAnchorRight;
  text.width = {100, 50};
  text.heightAt = [](int width) { return width < 150 ? 45 : 30; };
  const AnchorLayout layout(210, 200, kGap, {text, List({10, 45, 200, 190}, kAllSides)});
  const std::vector<Area> narrow = layout.Fit(130, 200);
  EXPECT_EQ(narrow[0], (Area{10, 10, 120, 55}));
  EXPECT_EQ(narrow[1], (Area{10, 60, 120, 190}));
}

TEST(AnchorLayout, CutsOffRatherThanOverlapsWhereThereIsNoRoomAtAll) {
  const std::vector<Area> places = FitWindow(40, 30);
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_TRUE(Contains({0, 0, 40, 30}, places[i])) << i;
  }
  EXPECT_FALSE(Overlap(places[2], places[3]));
  EXPECT_FALSE(Overlap(places[3], places[4]));
}

// Forms of controls that lie anywhere, a few of them in frames.
class AnyForm {
 public:
  static constexpr int kWidth = 600;
  static constexpr int kHeight = 400;

  explicit AnyForm(unsigned seed) : random_(seed) {
    for (int i = 0; i < 40; ++i) Try();
  }

  std::vector<Item> items;

  int Number(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

 private:
  void Try() {
    const int left = Number(0, kWidth - 20);
    const int top = Number(0, kHeight - 20);
    Item item;
    item.place = {left, top, Number(left + 10, std::min(kWidth, left + 250)),
                  Number(top + 10, std::min(kHeight, top + 150))};
    item.anchors = static_cast<unsigned>(Number(0, 63));
    item.holds = Number(0, 3) == 0;
    item.top = item.holds ? 10 : 0;
    for (const Item& other : items) {
      if (!Overlap(item.place, other.place)) continue;
      if (!other.holds || !Contains(other.place, item.place)) return;
    }
    item.width.least = Number(0, item.place.Width());
    item.width.comfortable = Number(item.width.least, item.place.Width());
    item.height.least = Number(0, item.place.Height());
    item.height.comfortable = Number(item.height.least, item.place.Height());
    items.push_back(item);
  }

  std::mt19937 random_;
};

void ExpectInOrder(const std::vector<Item>& items, const std::vector<Area>& places) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (std::size_t k = 0; k < items.size(); ++k) {
      if (i == k) continue;
      if (!Overlap(items[i].place, items[k].place)) {
        EXPECT_FALSE(Overlap(places[i], places[k])) << i << " and " << k;
      } else if (Contains(items[i].place, items[k].place)) {
        EXPECT_TRUE(Contains(places[i], places[k])) << i << " holds " << k;
      }
    }
  }
}

TEST(AnchorLayout, NeverLetsControlsOverlapOrLeaveAFormThatIsTooSmall) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    AnyForm form(seed);
    const int width = form.Number(1, AnyForm::kWidth);
    const int height = form.Number(1, AnyForm::kHeight);
    const std::vector<Area> places =
        AnchorLayout(AnyForm::kWidth, AnyForm::kHeight, kGap, form.items).Fit(width, height);
    SCOPED_TRACE(seed);
    for (const Area& place : places) EXPECT_TRUE(Contains({0, 0, width, height}, place));
    ExpectInOrder(form.items, places);
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace controls_test
