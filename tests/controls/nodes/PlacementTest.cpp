#include "controls/Placement.h"

#include <gtest/gtest.h>

namespace controls_test {
namespace {

using controls::Area;

constexpr Area kWork = {0, 0, 1024, 728};
// A second monitor, to the left of the first, with its task bar on top.
constexpr Area kLeftWork = {-1920, 40, 0, 1080};

TEST(Placement, CentresAWindowOverAnother) {
  EXPECT_EQ(controls::CentredOver({0, 0, 200, 100}, {300, 200, 700, 500}, kWork),
            (Area{400, 300, 600, 400}));
}

TEST(Placement, CentresOnAMonitorWithNegativePlaces) {
  EXPECT_EQ(controls::CentredOver({0, 0, 200, 100}, {-1500, 200, -1100, 500}, kLeftWork),
            (Area{-1400, 300, -1200, 400}));
}

TEST(Placement, KeepsACentredWindowWhollyInTheWorkArea) {
  EXPECT_EQ(controls::CentredOver({0, 0, 200, 100}, {1000, 700, 1400, 1000}, kWork),
            (Area{824, 628, 1024, 728}));
  EXPECT_EQ(controls::CentredOver({0, 0, 200, 100}, {-300, -300, -100, -200}, kWork),
            (Area{0, 0, 200, 100}));
}

TEST(Placement, ShowsTheCaptionOfAWindowThatIsTooLarge) {
  EXPECT_EQ(controls::MovedInto({50, 60, 2050, 1060}, kLeftWork), (Area{-1920, 60, 80, 1060}));
  EXPECT_EQ(controls::MovedInto({-50, -60, 1950, 940}, kWork), (Area{0, 0, 2000, 1000}));
}

TEST(Placement, ShrinksWhatIsLargerThanTheWorkArea) {
  EXPECT_EQ(controls::FittedInto({100, 100, 1500, 300}, kWork), (Area{0, 100, 1024, 300}));
  EXPECT_EQ(controls::FittedInto({-3000, 0, 3000, 3000}, kLeftWork), kLeftWork);
}

TEST(Placement, LeavesAloneWhatIsInTheWorkArea) {
  constexpr Area window = {10, 20, 410, 320};
  EXPECT_EQ(controls::FittedInto(window, kWork), window);
  EXPECT_EQ(controls::MovedInto(window, kWork), window);
}

TEST(Placement, RoundsALengthInAnotherResolution) {
  EXPECT_EQ(controls::Scaled(19, 96, 144), 29);
  EXPECT_EQ(controls::Scaled(-19, 96, 144), -29);
  EXPECT_EQ(controls::Scaled(100, 144, 96), 67);
  EXPECT_EQ(controls::Scaled(2'000'000, 96, 480), 10'000'000);
  EXPECT_EQ(controls::Scaled(0, 96, 144), 0);
}

}  // namespace
}  // namespace controls_test
