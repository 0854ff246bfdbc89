// What other programs, screen readers among them, find of the dialogs: native controls of the usual
// classes under names that say what they are.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Button.h"

namespace program {
namespace {

using data::ToUtf8;

constexpr const wchar_t* kList = L"ListBox";

struct Named {
  int control;
  const wchar_t* kind;
  int text;  // of what stands directly before it
};

class DialogControls : public ProgramTest {
 protected:
  static void Select(const MainWindow& window, Tab tab, const std::vector<std::wstring>& path) {
    driver::TreeView tree = window.Tree(tab);
    tree.Select(tree.Find(path).item);
  }

  static void ExpectNamed(const DialogWindow& dialog, const std::vector<Named>& controls) {
    const std::vector<driver::Window> all = dialog.Form().Children();
    for (const Named& named : controls) {
      const auto found = std::ranges::find(all, named.control, &driver::Window::Id);
      ASSERT_TRUE(found != all.end() && found != all.begin()) << named.control;
      EXPECT_EQ(ToUtf8(named.kind), ToUtf8(found->Class())) << named.control;
      EXPECT_EQ(ToUtf8(String(named.text)), ToUtf8((found - 1)->Text())) << named.control;
      if (named.kind == std::wstring_view(WC_LISTVIEWW)) ExpectCheckBoxes(*found);
    }
  }

  static void ExpectCheckBoxes(const driver::Window& list) {
    const LRESULT styles = list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE);
    EXPECT_EQ(LVS_EX_CHECKBOXES, styles & LVS_EX_CHECKBOXES) << list.Id();
  }

  // OK, Cancel and Help are buttons; the dialog stands over the main window, which waits for it.
  static void ExpectFrame(const DialogWindow& dialog, const driver::Window& owner) {
    for (const auto& [button, text] :
         {std::pair{IDC_OK, 101}, {IDC_CANCEL, 102}, {IDC_HELP_BUTTON, 104}}) {
      EXPECT_EQ(L"Button", dialog.Control(button).Class());
      EXPECT_EQ(ToUtf8(String(text)), ToUtf8(dialog.Control(button).Text()));
    }
    EXPECT_EQ(owner.Handle(), GetWindow(dialog.Form().Handle(), GW_OWNER));
    EXPECT_FALSE(owner.IsEnabled());
  }

  static void Leave(const DialogWindow& dialog) {
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
  }
};

TEST_F(DialogControls, ThoseOfTheUserDialogsAreNative) {
  const std::vector<Named> controls{
      {IDC_TXT_USER_NAME, WC_EDITW, 319},     {IDC_TXT_FULL_NAME, WC_EDITW, 320},
      {IDC_TXT_PASSWORD, WC_EDITW, 321},      {IDC_TXT_VERIFY, WC_EDITW, 322},
      {IDC_LIST_USER + 1, WC_LISTVIEWW, 304}, {IDC_LIST_USER + 2, WC_LISTVIEWW, 305}};
  const MainWindow window = Open(SampleSession());
  Select(window, kUsersTab, {L"Blanc"});
  for (const auto& [button, title] : {std::pair{IDC_CMD_USER + 2, 204}, {IDC_CMD_USER, 205}}) {
    driver::Press(window.Control(button));
    const DialogWindow dialog(Program(), String(title));
    ExpectNamed(dialog, controls);
    ExpectFrame(dialog, window.Form());
    Leave(dialog);
    window.AwaitUsable();
  }
  Select(window, kUsersTab, {L"Blanc", String(304)});
  driver::Press(window.Control(IDC_CMD_MEMBER_OF));
  const DialogWindow chooser(Program(), String(206) + String(308));
  ExpectNamed(chooser, {{IDC_LIST_LIST_ITEM, WC_LISTVIEWW, 323}});
  ExpectFrame(chooser, window.Form());
}

TEST_F(DialogControls, ThoseOfTheGroupDialogsAreNative) {
  const std::vector<Named> controls{{IDC_TXT_GROUP_NAME, WC_EDITW, 317},
                                    {IDC_TXT_GROUP_DESC, WC_EDITW, 318},
                                    {IDC_LIST_GROUP + 1, kList, 309},
                                    {IDC_LIST_GROUP + 2, WC_LISTVIEWW, 310}};
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  Select(window, kGroupsTab, {L"Achats"});
  for (const auto& [button, title] : {std::pair{IDC_CMD_GROUP + 2, 202}, {IDC_CMD_GROUP, 203}}) {
    driver::Press(window.Control(button));
    const DialogWindow dialog(Program(), String(title));
    ExpectNamed(dialog, controls);
    ExpectFrame(dialog, window.Form());
    driver::Press(dialog.Control(IDC_CMD_GROUP_BTN + 11));
    const DialogWindow chooser(Program(), String(201) + dialog.Box(IDC_TXT_GROUP_NAME).Text());
    ExpectNamed(chooser, {{IDC_TXT_ADD_USER + 1, WC_EDITW, 313},
                          {IDC_LIST_ADD_USER + 1, kList, 311},
                          {IDC_TXT_ADD_USER + 2, WC_EDITW, 315},
                          {IDC_LIST_ADD_USER + 2, kList, 312}});
    ExpectFrame(chooser, dialog.Form());
    Leave(chooser);
    Leave(dialog);
    window.AwaitUsable();
  }
}

TEST_F(DialogControls, ACheckListThatIsOffLooksIt) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  const auto stateOf = [&](const std::wstring& group) {
    Select(window, kGroupsTab, {group});
    driver::Press(window.Control(IDC_CMD_GROUP));
    const DialogWindow dialog(Program(), String(203));
    const driver::Window list = dialog.Control(IDC_LIST_GROUP + 2);
    const auto colour = static_cast<COLORREF>(list.Send(LVM_GETTEXTCOLOR));
    const std::pair seen{list.IsEnabled(), colour != GetSysColor(COLOR_GRAYTEXT)};
    Leave(dialog);
    window.AwaitUsable();
    return seen;
  };
  EXPECT_EQ((std::pair{false, false}),
            stateOf(L"Administrateurs (Contrôle total de l'application)"));
  EXPECT_EQ((std::pair{true, true}), stateOf(L"Achats"));
}

}  // namespace
}  // namespace program
