// What other programs, screen readers among them, find of the dialogs: native controls of the usual
// classes under names that say what they are.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

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
         {std::pair{IDC_OK, app::kOk}, {IDC_CANCEL, app::kCancel}, {IDC_HELP_BUTTON, app::kHelp}}) {
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
  const std::vector<Named> controls{{IDC_TXT_USER_NAME, WC_EDITW, app::kUserNameLabel},
                                    {IDC_TXT_FULL_NAME, WC_EDITW, app::kFullNameLabel},
                                    {IDC_TXT_PASSWORD, WC_EDITW, app::kPasswordLabel},
                                    {IDC_TXT_VERIFY, WC_EDITW, app::kConfirmationLabel},
                                    {kGroupsOfUserList, WC_LISTVIEWW, app::kMemberOf},
                                    {kPermissionsOfUserList, WC_LISTVIEWW, app::kUserPermissions}};
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {L"Blanc"});
  for (const auto& [button, title] :
       {std::pair{kNewUserButton, app::kNewUserTitle}, {kEditUserButton, app::kEditUserTitle}}) {
    window.Press(button);
    const DialogWindow dialog(Program(), String(title));
    ExpectNamed(dialog, controls);
    ExpectFrame(dialog, window.Form());
    Leave(dialog);
    window.AwaitUsable();
  }
  window.Select(kUsersTab, {L"Blanc", String(app::kMemberOf)});
  window.Press(kAssignGroupsButton);
  const DialogWindow chooser(Program(), String(app::kChoicesTitle) + String(app::kGroups));
  ExpectNamed(chooser, {{IDC_LIST_LIST_ITEM, WC_LISTVIEWW, app::kCheckItems}});
  ExpectFrame(chooser, window.Form());
}

TEST_F(DialogControls, ThoseOfTheGroupDialogsAreNative) {
  const std::vector<Named> controls{
      {IDC_TXT_GROUP_NAME, WC_EDITW, app::kGroupNameLabel},
      {IDC_TXT_GROUP_DESC, WC_EDITW, app::kDescriptionLabel},
      {kMembersOfGroupList, kList, app::kMembers},
      {kPermissionsOfGroupList, WC_LISTVIEWW, app::kGroupPermissions}};
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  window.Select(kGroupsTab, {L"Achats"});
  for (const auto& [button, title] : {std::pair{kNewGroupButton, app::kNewGroupTitle},
                                      {kEditGroupButton, app::kEditGroupTitle}}) {
    window.Press(button);
    const DialogWindow dialog(Program(), String(title));
    ExpectNamed(dialog, controls);
    ExpectFrame(dialog, window.Form());
    dialog.Press(kAddMembersOfGroupButton);
    const DialogWindow chooser(Program(),
                               String(app::kAddUsersTitle) + dialog.Box(IDC_TXT_GROUP_NAME).Text());
    ExpectNamed(chooser, {{kOutsideSearchBox, WC_EDITW, app::kAddUsersStep1},
                          {kOutsideList, kList, app::kAvailableUsers},
                          {kInsideSearchBox, WC_EDITW, app::kAddUsersStep1 + 2},
                          {kInsideList, kList, app::kSelectedUsers}});
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
    window.Select(kGroupsTab, {group});
    window.Press(kEditGroupButton);
    const DialogWindow dialog(Program(), String(app::kEditGroupTitle));
    const driver::Window list = dialog.Control(kPermissionsOfGroupList);
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
