#include "controls/InputHold.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using namespace controls;

// Other programs drive the windows by messages, and the message loop is the real one.
class NativeDriving : public ControlsTest {
 protected:
  HWND Of(const Control& control) const { return control.BackEnd().window; }
};

TEST_F(NativeDriving, AButtonThatIsDisabledIsNotPressedByAnybody) {
  form.more.Click = [this] { events.push_back(L"more"); };
  SendMessageW(Of(form.more), BM_CLICK, 0, 0);
  form.more.SetEnabled(false);
  SendMessageW(Of(form.more), BM_CLICK, 0, 0);
  SendMessageW(form.BackEnd().life.window, WM_COMMAND, MAKEWPARAM(form.more.Id(), BN_CLICKED),
               AsLParam(Of(form.more)));
  EXPECT_EQ(events, (Events{L"more"}));
}

TEST_F(NativeDriving, AFormBelowAModalOneIsNotClosedByAnybody) {
  SmallForm dialog(desktop);
  user.ExpectModal([this](Form& shown) {
    SendMessageW(form.BackEnd().life.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsLoaded());
    SendMessageW(shown.BackEnd().life.window, WM_CLOSE, 0, 0);
  });
  dialog.ShowModal(form);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(NativeDriving, NothingReachesAFormWhileInputIsHeld) {
  form.more.Click = [this] { events.push_back(L"more"); };
  controls::HoldInput(desktop);
  SendMessageW(Of(form.more), BM_CLICK, 0, 0);
  SendMessageW(Of(form.more), WM_KEYDOWN, VK_SPACE, 0);
  SendMessageW(Of(form.more), WM_KEYUP, VK_SPACE, 0);
  SendMessageW(Of(form.name), WM_CHAR, L'x', 0);
  SendMessageW(form.BackEnd().life.window, WM_CLOSE, 0, 0);
  controls::ReleaseInput(desktop);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(form.name.Text(), L"");
  EXPECT_TRUE(form.IsLoaded());
  SendMessageW(Of(form.name), WM_CHAR, L'x', 0);
  EXPECT_EQ(form.name.Text(), L"x");
}

TEST_F(NativeDriving, ChecksMayBeSetFromOutside) {
  form.checkList.AddItem(L"Direction", 4);
  form.checkList.ItemCheck = [this](int item) { events.push_back(std::to_wstring(item)); };
  LVITEMW item = {};
  item.state = INDEXTOSTATEIMAGEMASK(2);
  item.stateMask = LVIS_STATEIMAGEMASK;
  SendMessageW(Of(form.checkList), LVM_SETITEMSTATE, 0, AsLParam(&item));
  EXPECT_EQ(events, (Events{L"0"}));
  EXPECT_TRUE(form.checkList.Selected(0));
  form.checkList.SetSelected(0, false);
  EXPECT_EQ(SendMessageW(Of(form.checkList), LVM_GETITEMSTATE, 0, LVIS_STATEIMAGEMASK),
            INDEXTOSTATEIMAGEMASK(1));
}

TEST_F(NativeDriving, TabsMayBeChosenFromOutside) {
  form.tabs.AddTab(L"Utilisateurs");
  form.tabs.AddTab(L"Groupes");
  form.tabs.Click = [this] { events.push_back(std::to_wstring(form.tabs.SelectedTab())); };
  SendMessageW(Of(form.tabs), TCM_SETCURFOCUS, 1, 0);
  EXPECT_EQ(events, (Events{L"1"}));
}

TEST_F(NativeDriving, TextsMayBeSetFromOutside) {
  form.name.Change = [this] { events.push_back(form.name.Text()); };
  SendMessageW(Of(form.name), WM_SETTEXT, 0, AsLParam(L"Durand"));
  SendMessageW(Of(form.name), WM_SETTEXT, 0, AsLParam(L"Durand"));
  EXPECT_EQ(events, (Events{L"Durand"}));
}

TEST_F(NativeDriving, AMaskedBoxShowsAsterisks) {
  EXPECT_EQ(SendMessageW(Of(form.password), EM_GETPASSWORDCHAR, 0, 0), L'*');
  EXPECT_EQ(SendMessageW(Of(form.name), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(NativeDriving, TheLoopOfAModalFormHandlesWhatIsPosted) {
  desktop.system.answers.ModalShown = nullptr;
  SmallForm dialog(desktop);
  dialog.ok.Click = [&] { dialog.Unload(); };
  dialog.OnLoad = [&] { PostMessageW(dialog.ok.BackEnd().window, BM_CLICK, 0, 0); };
  dialog.ShowModal(form);
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_TRUE(IsWindowEnabled(form.BackEnd().life.window));
  EXPECT_EQ(GetActiveWindow(), form.BackEnd().life.window);
  dialog.ShowModal(form);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(NativeDriving, TheLoopEndsWhenTheProgramIsToEnd) {
  desktop.system.answers.ModalShown = nullptr;
  SmallForm dialog(desktop);
  dialog.OnLoad = [] { PostQuitMessage(3); };
  dialog.ShowModal(form);
  EXPECT_FALSE(dialog.IsLoaded());
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3U);
}

TEST_F(NativeDriving, NoWindowIsLeftBehind) {
  const HWND window = form.BackEnd().life.window;
  form.more.Click = [this] { form.Unload(); };
  user.Click(form.more);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(NativeDriving, AFormMayBeLoadedAgainByTheClickThatUnloadedIt) {
  const HWND window = form.BackEnd().life.window;
  form.more.Click = [this] {
    form.Unload();
    form.Show();
  };
  user.Click(form.more);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(IsWindow(window));
  user.Click(form.more);
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(NativeDriving, HelpWithoutItsLibraryIsReportedAsMissing) {
  desktop.system.answers.HtmlHelp = nullptr;
  user.SetProgramFolder(L"C:\\nowhere");
  EXPECT_EQ(desktop.HtmlHelp(form, L"C:\\nowhere\\ORMEX.chm", 109), HelpOutcome::kLibraryMissing);
}

TEST_F(NativeDriving, ACheckListThatGetsTheFocusIsOnItsFirstItemAndReportsNothing) {
  form.checkList.AddItem(L"Direction");
  form.checkList.AddItem(L"Ventes");
  form.checkList.Click = [this] { events.push_back(L"click"); };
  form.checkList.SetFocus();
  EXPECT_EQ(form.checkList.ListIndex(), 0);
  EXPECT_EQ(events, Events{});
}

}  // namespace
}  // namespace controls_test
