// What controls do when their window comes to a monitor of another resolution.

#include <string>
#include <vector>

#include "controls/ImageList.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/Icons.h"
#include "controls/win32/ImageListPeer.h"
#include "resources/ResourceIds.h"
#include "tests/controls/ControlsTest.h"
#include "tests/controls/win32/MessageWatch.h"

namespace controls_test {
namespace {

using namespace controls;

// The width in which the resources hold the icon that is shown in a size.
int WidthOfPicture(int icon, int size) {
  HMODULE program = GetModuleHandleW(nullptr);
  const auto bytes = [program](int number, LPCWSTR type) {
    HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(number), type);
    return static_cast<BYTE*>(LockResource(LoadResource(program, found)));
  };
  const int picture =
      LookupIconIdFromDirectoryEx(bytes(icon, RT_GROUP_ICON), TRUE, size, size, LR_DEFAULTCOLOR);
  const auto& header = *reinterpret_cast<const BITMAPINFOHEADER*>(bytes(picture, RT_ICON));
  return header.biWidth;
}

class NativeResolution : public ControlsTest {
 protected:
  HWND Window() const { return form.BackEnd().life.window; }
  void ComeTo(unsigned dpi) const {
    RECT place = {};
    GetWindowRect(Window(), &place);
    SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), AsLParam(&place));
  }
};

TEST_F(NativeResolution, ATreeScalesItsIndentAndMeasuresItsLinesAgain) {
  const ImageList images(desktop, {IDI_PROGRAM});
  form.tree.SetImageList(images);
  const Control::Peer& tree = form.tree.BackEnd();
  EXPECT_EQ(tree.Send(TVM_GETINDENT), 19);
  std::vector<WPARAM> heights;
  const MessageWatch watch(tree.window, TVM_SETITEMHEIGHT,
                           [&](WPARAM height, LPARAM) { heights.push_back(height); });
  ComeTo(192);
  EXPECT_EQ(tree.Send(TVM_GETINDENT), 38);
  ComeTo(96);
  EXPECT_EQ(tree.Send(TVM_GETINDENT), 19);
  EXPECT_EQ(heights, (std::vector<WPARAM>{WPARAM(-1), WPARAM(-1)}));
}

TEST_F(NativeResolution, ACheckListDrawsItsBoxesAgainAndKeepsTheChecks) {
  for (int i = 0; i < 5; ++i) form.checkList.AddItem(L"Item " + std::to_wstring(i), i);
  form.checkList.SetSelected(1, true);
  form.checkList.SetSelected(4, true);
  form.checkList.Click = [this] { events.push_back(L"click"); };
  form.checkList.ItemCheck = [this](int) { events.push_back(L"check"); };
  const Control::Peer& list = form.checkList.BackEnd();
  std::vector<bool> boxes;
  const MessageWatch watch(list.window, LVM_SETEXTENDEDLISTVIEWSTYLE, [&](WPARAM mask, LPARAM on) {
    if (mask & LVS_EX_CHECKBOXES) boxes.push_back((on & LVS_EX_CHECKBOXES) != 0);
  });
  ComeTo(144);
  EXPECT_EQ(boxes, (std::vector<bool>{false, true}));
  EXPECT_EQ(events, Events{});
  for (int i = 0; i < 5; ++i) {
    const bool checked = i == 1 || i == 4;
    EXPECT_EQ(form.checkList.Selected(i), checked);
    EXPECT_EQ(list.Send(LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_STATEIMAGEMASK),
              static_cast<LRESULT>(INDEXTOSTATEIMAGEMASK(checked ? 2 : 1)));
  }
}

TEST_F(NativeResolution, ImagesFollowTheResolution) {
  const ImageList images(desktop, {IDI_PROGRAM});
  form.tree.SetImageList(images);
  ComeTo(168);
  int width = 0;
  int height = 0;
  ImageList_GetIconSize(HandleIn<HIMAGELIST>(form.tree.BackEnd().Send(TVM_GETIMAGELIST)), &width,
                        &height);
  EXPECT_EQ(width, 28);
  EXPECT_EQ(height, 28);
}

TEST_F(NativeResolution, EveryUsualScaleHasAPictureOfItsOwn) {
  for (const int percent : {100, 125, 150, 175, 200, 225, 250, 300, 400}) {
    const int size = 16 * percent / 100;
    for (const int icon : {IDI_PROGRAM, IDI_USER, IDI_GROUP}) {
      EXPECT_EQ(WidthOfPicture(icon, size), size) << percent;
    }
  }
}

TEST_F(NativeResolution, AnIconHasTheSizeAskedFor) {
  for (const int size : {16, 28, 36, 44, 51}) {
    const IconHandle icon = LoadIconOfSize(IDI_PROGRAM, size);
    ICONINFO parts = {};
    ASSERT_TRUE(GetIconInfo(icon.Get(), &parts)) << size;
    const BitmapHandle mask(parts.hbmMask);
    const BitmapHandle colours(parts.hbmColor);
    BITMAP picture = {};
    GetObjectW(colours.Get(), sizeof picture, &picture);
    EXPECT_EQ(picture.bmWidth, size);
    EXPECT_EQ(picture.bmHeight, size);
  }
}

}  // namespace
}  // namespace controls_test
