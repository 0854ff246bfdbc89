#include <windows.h>

#include <wtsapi32.h>

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"
#include "tests/controls/win32/MessageWatch.h"

namespace controls_test {
namespace {

using namespace controls;

// Other colours for the whole system while it stands.
class SystemColours {
 public:
  SystemColours(COLORREF ground, COLORREF text) {
    for (std::size_t i = 0; i < kElements.size(); ++i) before_[i] = GetSysColor(kElements[i]);
    std::array<COLORREF, kElements.size()> colours = {ground, ground, text, text};
    Set(colours);
  }
  ~SystemColours() { Set(before_); }
  SystemColours(const SystemColours&) = delete;
  SystemColours& operator=(const SystemColours&) = delete;

 private:
  static constexpr std::array<int, 4> kElements = {COLOR_3DFACE, COLOR_WINDOW, COLOR_WINDOWTEXT,
                                                   COLOR_BTNTEXT};

  static void Set(const std::array<COLORREF, 4>& colours) {
    SetSysColors(static_cast<int>(kElements.size()), kElements.data(), colours.data());
  }

  std::array<COLORREF, 4> before_ = {};
};

// The colours of a window's client area as it paints itself.
std::set<COLORREF> Painted(HWND window) {
  RECT client = {};
  GetClientRect(window, &client);
  HDC screen = GetDC(window);
  const MemoryContext memory(CreateCompatibleDC(screen));
  const BitmapHandle picture(CreateCompatibleBitmap(screen, client.right, client.bottom));
  ReleaseDC(window, screen);
  HGDIOBJ old = SelectObject(memory.Get(), picture.Get());
  SendMessageW(window, WM_PRINT, AsWParam(memory.Get()), PRF_CLIENT | PRF_ERASEBKGND);
  std::set<COLORREF> colours;
  for (int y = 0; y < client.bottom; ++y) {
    for (int x = 0; x < client.right; ++x) colours.insert(GetPixel(memory.Get(), x, y));
  }
  SelectObject(memory.Get(), old);
  return colours;
}

class NativeLook : public ControlsTest {
 protected:
  HWND Window() const { return form.BackEnd().life.window; }
  static constexpr COLORREF kDark = RGB(0, 0, 32);
  static constexpr COLORREF kLight = RGB(240, 240, 200);
};

TEST_F(NativeLook, FollowsTheColoursOfTheSystem) {
  HWND list = form.checkList.BackEnd().window;
  form.checkList.AddItem(L"Achats", 1);
  const std::set<COLORREF> before = Painted(list);
  const std::set<COLORREF> formBefore = Painted(Window());
  EXPECT_FALSE(before.contains(kDark));
  {
    const SystemColours dark(kDark, kLight);
    user.Settle();
    const std::set<COLORREF> shown = Painted(list);
    EXPECT_TRUE(shown.contains(kDark));
    EXPECT_TRUE(shown.contains(kLight));
    EXPECT_TRUE(Painted(Window()).contains(kDark));
  }
  user.Settle();
  EXPECT_EQ(Painted(list), before);
  EXPECT_EQ(Painted(Window()), formBefore);
}

TEST_F(NativeLook, TellsItsControlsOfOtherColours) {
  int told = 0;
  const MessageWatch tree(form.tree.BackEnd().window, WM_SYSCOLORCHANGE,
                          [&](WPARAM, LPARAM) { ++told; });
  const MessageWatch checks(form.checkList.BackEnd().window, WM_SYSCOLORCHANGE,
                            [&](WPARAM, LPARAM) { ++told; });
  SendMessageW(Window(), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(told, 2);
}

TEST_F(NativeLook, PaintsThroughMemoryOnlyBeforeItsOwnScreen) {
  std::vector<bool> trees;
  std::vector<bool> lists;
  const MessageWatch tree(form.tree.BackEnd().window, TVM_SETEXTENDEDSTYLE,
                          [&](WPARAM mask, LPARAM styles) {
                            if (mask & TVS_EX_DOUBLEBUFFER) trees.push_back(styles != 0);
                          });
  const MessageWatch list(form.checkList.BackEnd().window, LVM_SETEXTENDEDLISTVIEWSTYLE,
                          [&](WPARAM mask, LPARAM styles) {
                            if (mask & LVS_EX_DOUBLEBUFFER) lists.push_back(styles != 0);
                          });
  for (const WPARAM event : {WTS_REMOTE_CONNECT, WTS_SESSION_LOCK, WTS_CONSOLE_CONNECT}) {
    SendMessageW(Window(), WM_WTSSESSION_CHANGE, event, 0);
  }
  EXPECT_EQ(trees, (std::vector<bool>{false, true}));
  EXPECT_EQ(lists, (std::vector<bool>{false, true}));
}

TEST_F(NativeLook, AFormLoadedInARemoteSessionPaintsThroughNoMemory) {
  const auto buffers = [this] {
    return (form.checkList.BackEnd().Send(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_DOUBLEBUFFER) != 0;
  };
  EXPECT_TRUE(buffers());
  SendMessageW(Window(), WM_WTSSESSION_CHANGE, WTS_REMOTE_CONNECT, 0);
  form.Unload();
  form.Show();
  EXPECT_FALSE(buffers());
}

// What is painted through memory needs no ground before it, and would flicker by it.
TEST_F(NativeLook, ATreeErasesItsGroundOnlyWhereItPaintsStraightToTheWindow) {
  HWND tree = form.tree.BackEnd().window;
  HDC screen = GetDC(tree);
  const MemoryContext memory(CreateCompatibleDC(screen));
  const BitmapHandle picture(CreateCompatibleBitmap(screen, 10, 10));
  ReleaseDC(tree, screen);
  HGDIOBJ old = SelectObject(memory.Get(), picture.Get());
  const auto erased = [&] {
    SetPixel(memory.Get(), 5, 5, kDark);
    SendMessageW(tree, WM_ERASEBKGND, AsWParam(memory.Get()), 0);
    return GetPixel(memory.Get(), 5, 5) == GetSysColor(COLOR_WINDOW);
  };
  EXPECT_FALSE(erased());
  SendMessageW(Window(), WM_WTSSESSION_CHANGE, WTS_REMOTE_CONNECT, 0);
  EXPECT_TRUE(erased());
  SelectObject(memory.Get(), old);
}

// The class and number of every message that is sent to a window in this thread.
class SentMessages {
 public:
  SentMessages() {
    sent.clear();
    hook_ = SetWindowsHookExW(WH_CALLWNDPROC, Note, nullptr, GetCurrentThreadId());
  }
  ~SentMessages() { UnhookWindowsHookEx(hook_); }
  SentMessages(const SentMessages&) = delete;
  SentMessages& operator=(const SentMessages&) = delete;

  static inline std::vector<std::pair<std::wstring, UINT>> sent;

 private:
  static LRESULT CALLBACK Note(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = StructIn<const CWPSTRUCT>(lParam);
    wchar_t name[64] = {};
    GetClassNameW(message.hwnd, name, 64);
    sent.emplace_back(name, message.message);
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  HHOOK hook_ = nullptr;
};

// Which theme a control has been given cannot be asked; that it was given one it is told.
TEST_F(NativeLook, GivesTreesAndCheckListsAThemeOfTheirOwnAndAnEdge) {
  for (const Control* control :
       {static_cast<Control*>(&form.tree), static_cast<Control*>(&form.checkList)}) {
    EXPECT_TRUE(GetWindowLongPtrW(control->BackEnd().window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
  }
  form.Unload();
  const SentMessages messages;
  form.Show();
  for (const wchar_t* name : {WC_TREEVIEWW, WC_LISTVIEWW}) {
    EXPECT_TRUE(std::ranges::find(SentMessages::sent,
                                  std::pair(std::wstring(name), UINT{WM_THEMECHANGED})) !=
                SentMessages::sent.end());
  }
}

TEST_F(NativeLook, ShowsWhereTheFocusIsOnceTabIsPressed) {
  std::vector<WPARAM> states;
  const MessageWatch watch(Window(), WM_CHANGEUISTATE,
                           [&](WPARAM state, LPARAM) { states.push_back(state); });
  form.name.SetFocus();
  states.clear();
  PostMessageW(form.name.BackEnd().window, WM_KEYDOWN, VK_TAB, 1);
  user.Settle();
  ASSERT_FALSE(states.empty());
  EXPECT_EQ(LOWORD(states.front()), UIS_CLEAR);
  EXPECT_TRUE(HIWORD(states.front()) & UISF_HIDEFOCUS);
}

}  // namespace
}  // namespace controls_test
