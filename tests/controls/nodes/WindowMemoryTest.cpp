#include "controls/WindowMemory.h"

#include <gtest/gtest.h>

namespace controls_test {
namespace {

using controls::Area;
using controls::Monitor;
using controls::WindowMemory;

constexpr Monitor kMain = {{0, 0, 1920, 1040}, 96};
constexpr Monitor kLarge = {{-3840, 0, 0, 2120}, 192};
constexpr Monitor kSmall = {{0, 40, 1024, 768}, 96};

TEST(WindowMemory, PutsAWindowWhereItStood) {
  constexpr Area place = {-3000, 100, -1700, 1000};
  EXPECT_EQ(PlaceOn(kLarge, controls::Remember(place, false, kLarge)), place);
  constexpr Area odd = {17, 23, 918, 624};
  EXPECT_EQ(PlaceOn(kMain, controls::Remember(odd, false, kMain)), odd);
}

TEST(WindowMemory, CountsLengthsIn96ToTheInch) {
  const WindowMemory memory = controls::Remember({-3640, 100, -2640, 900}, true, kLarge);
  EXPECT_EQ(memory, (WindowMemory{-3840, 0, {100, 50, 600, 450}, true}));
}

TEST(WindowMemory, AWindowIsAsLargeAgainInAnotherResolution) {
  const WindowMemory memory = controls::Remember({-3640, 100, -2640, 900}, false, kLarge);
  EXPECT_EQ(PlaceOn(kMain, memory), (Area{100, 50, 600, 450}));
}

TEST(WindowMemory, AWindowWhoseMonitorIsGoneIsWhollyOnAnother) {
  const WindowMemory atTheEdge = controls::Remember({1700, 900, 1900, 1030}, false, kMain);
  EXPECT_EQ(PlaceOn(kSmall, atTheEdge), (Area{824, 638, 1024, 768}));
  const WindowMemory large = controls::Remember(kMain.work, false, kMain);
  EXPECT_EQ(PlaceOn(kSmall, large), kSmall.work);
}

TEST(WindowMemory, AWindowHalfOffItsMonitorComesBackOntoIt) {
  const WindowMemory memory = controls::Remember({-200, -100, 400, 300}, false, kMain);
  EXPECT_EQ(PlaceOn(kMain, memory), (Area{0, 0, 600, 400}));
}

TEST(WindowMemory, ReadsWhatItHasWritten) {
  for (const WindowMemory& memory : {WindowMemory{0, 0, {1, 2, 3, 4}, false},
                                     WindowMemory{-3840, -40, {-5, 6, 700, 800}, true}}) {
    EXPECT_EQ(controls::ReadWindowMemory(Print(memory)), memory);
  }
}

TEST(WindowMemory, ReadsNothingElse) {
  for (const wchar_t* text :
       {L"", L" ", L"1", L"0 0 1 2 3 4", L"0 0 1 2 3 4 0 0", L"0 0 1 2 3 4 x", L"a 0 1 2 3 4 0",
        L"0 0 5 5 5 9 0", L"0 0 5 5 4 9 0", L"0 0 5 9 9 5 0", L"0 0 1 2 3 100001 0",
        L"0 0 1 2 3 99999999999999999999999 0", L"- 0 1 2 3 4 0", L"--1 0 1 2 3 4 0",
        L"0,0,1,2,3,4,0"}) {
    EXPECT_EQ(controls::ReadWindowMemory(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace controls_test
