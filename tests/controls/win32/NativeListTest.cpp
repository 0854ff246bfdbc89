#include "controls/win32/ControlPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using namespace controls;

class NativeList : public ControlsTest {};

TEST_F(NativeList, SelectingItemsNeitherScrollsNorMovesTheCaret) {
  ListBox& list = form.multiList;
  for (int i = 0; i < 200; ++i) list.AddItem(L"Item " + std::to_wstring(i));
  list.SetListIndex(0);
  for (int i = 0; i < 200; ++i) list.SetSelected(i, true);
  list.SetSelected(100, false);
  const Control::Peer& native = list.BackEnd();
  EXPECT_EQ(native.Send(LB_GETSELCOUNT), 199);
  EXPECT_EQ(native.Send(LB_GETSEL, 100), 0);
  EXPECT_EQ(native.Send(LB_GETTOPINDEX), 0);
  EXPECT_EQ(native.Send(LB_GETCARETINDEX), 0);
}

}  // namespace
}  // namespace controls_test
