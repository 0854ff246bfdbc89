#include "controls/WipedText.h"

#include <gtest/gtest.h>

namespace controls_test {
namespace {

using controls::WipedText;

TEST(WipedText, IsReplacedInPart) {
  WipedText text;
  text.Assign(L"secret");
  text.Replace(1, 2, L"ab");
  EXPECT_EQ(text.Get(), L"sabret");
  text.Replace(6, 0, L"s");
  EXPECT_EQ(text.Get(), L"sabrets");
}

TEST(WipedText, TakesAPartOfItself) {
  WipedText text;
  text.Assign(L"secret");
  text.Assign(std::wstring_view(text.Get()).substr(2));
  EXPECT_EQ(text.Get(), L"cret");
}

TEST(WipedText, LeavesNothingInItsRoomWhenItIsWiped) {
  WipedText text;
  text.Assign(L"a secret that is too long for a small room of its own");
  const wchar_t* const room = text.Get().data();
  const std::size_t length = text.Get().size();
  text.Wipe();
  ASSERT_EQ(text.Get().data(), room);
  for (std::size_t i = 0; i < length; ++i) ASSERT_EQ(room[i], L'\0');
}

}  // namespace
}  // namespace controls_test
