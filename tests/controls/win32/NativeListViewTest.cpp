#include "controls/win32/ControlPeer.h"
#include "tests/controls/TestForm.h"
#include "tests/support/controls/User.h"
#include "tests/support/controls/win32/Input.h"

namespace controls_test {
namespace {

using namespace controls;

class NativeListView : public testing::Test {
 protected:
  NativeListView() {
    form.Show();
    form.list.SetColumns({{L"Nom", 1}, {L"Nombre", 3, true}});
  }

  int Width(int column) const {
    return static_cast<int>(native.Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  }
  int ClientWidth() const {
    RECT client = {};
    GetClientRect(native.window, &client);
    return static_cast<int>(client.right);
  }
  void SetWidth(int width) const {
    SetWindowPos(native.window, nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER);
  }
  static std::vector<controls::ListView::Row> Many(int count) {
    std::vector<controls::ListView::Row> rows;
    for (int i = 0; i < count; ++i) rows.push_back({L"row " + std::to_wstring(i)});
    return rows;
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  ListForm form{desktop};
  const Control::Peer& native = form.list.BackEnd();
};

TEST_F(NativeListView, ItsColumnsShareItsWidth) {
  for (const int width : {400, 900, 150}) {
    SetWidth(width);
    EXPECT_EQ(Width(0) + Width(1), ClientWidth());
    EXPECT_NEAR(Width(1), 3 * Width(0), 4);
  }
}

TEST_F(NativeListView, LeavesColumnsAsTheUserHasSizedThem) {
  HWND heading = HandleIn<HWND>(native.Send(LVM_GETHEADER));
  native.Send(LVM_SETCOLUMNWIDTH, 0, 33);
  NMHEADERW told = {};
  told.hdr = {heading, 0, static_cast<UINT>(HDN_ENDTRACKW)};
  native.Send(WM_NOTIFY, 0, AsLParam(&told));
  SetWidth(700);
  EXPECT_EQ(Width(0), 33);
}

TEST_F(NativeListView, KnowsHowManyRowsThereAreAndAsksForTheirTexts) {
  form.list.SetRows(Many(30000));
  EXPECT_EQ(native.Send(LVM_GETITEMCOUNT), 30000);
  EXPECT_TRUE(GetWindowLongPtrW(native.window, GWL_STYLE) & LVS_OWNERDATA);
}

TEST_F(NativeListView, BringsTheRowOfItsIndexIntoView) {
  form.list.SetRows(Many(500));
  form.list.SetIndex(400);
  const auto top = native.Send(LVM_GETTOPINDEX);
  EXPECT_GT(top, 0);
  EXPECT_LE(top, 400);
  EXPECT_GT(top + native.Send(LVM_GETCOUNTPERPAGE), 400);
  form.list.Sort(0, true);
  EXPECT_EQ(native.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED),
            native.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

TEST_F(NativeListView, SelectsARangeWithTheShiftKeyInTheModelToo) {
  form.list.SetRows(Many(100));
  user.Focus(form.list);
  user.Choose(form.list, 2);
  for (int i = 0; i < 5; ++i) {
    const test_support::HeldKey shift(VK_SHIFT);
    user.PressKey(form, VK_DOWN);
  }
  EXPECT_EQ(form.list.SelectedRows(), (std::vector<int>{2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(form.list.Index(), 7);
  user.PressKey(form, VK_DOWN);
  EXPECT_EQ(form.list.SelectedRows(), std::vector<int>{8});
}

TEST_F(NativeListView, MovesWithTheArrowKeys) {
  form.list.SetRows(Many(100));
  user.Focus(form.list);
  user.PressKey(form, VK_DOWN);
  user.PressKey(form, VK_DOWN);
  EXPECT_EQ(form.list.Index(), 2);
  user.PressKey(form, VK_END);
  EXPECT_EQ(form.list.Index(), 99);
  EXPECT_EQ(form.list.SelectedRows(), std::vector<int>{99});
}

}  // namespace
}  // namespace controls_test
