// A user from his first day to his last, by mouse and keyboard.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using Lines = std::vector<std::string>;

constexpr const wchar_t* kNewUser = L"Zola (Émile Zola)";
constexpr const wchar_t* kEditedUser = L"Zola (Émile Édouard Zola)";
constexpr const wchar_t* kPassword = L"Germinal-85";

class UserLife : public ProgramTest {
 protected:
  std::wstring Id() { return Box().Database().Text(L"SELECT MAX(USERID) FROM QRUSER"); }
  Lines Row() {
    return Box().Database().Lines(L"SELECT NAME, FULLNAME, VFLG FROM QRUSER WHERE USERID = " +
                                  Id());
  }
  Lines Groups() {
    return Box().Database().Lines(
        L"SELECT NAME FROM QRGROUP WHERE GROUPID IN (SELECT GROUPID FROM QRUSGP WHERE USERID = " +
        Id() + L") ORDER BY GROUPID");
  }
  Lines Permissions() {
    return Box().Database().Lines(
        L"SELECT NAME FROM QRPERM WHERE PERMID IN (SELECT PERMID FROM QRUPRM WHERE USERID = " +
        Id() + L") ORDER BY PERMID");
  }

  void Create(const MainWindow& window) {
    window.Click(kNewUserButton);
    const DialogWindow dialog(Program(), String(app::kNewUserTitle));
    dialog.AwaitFocus(IDC_TXT_USER_NAME);
    dialog.Type(L"Zola");
    dialog.TabTo(IDC_TXT_FULL_NAME);
    dialog.Type(L"Émile Zola");
    dialog.TabTo(IDC_TXT_PASSWORD);
    dialog.Type(kPassword);
    dialog.TabTo(IDC_TXT_VERIFY);
    dialog.Type(kPassword);
    EXPECT_EQ(std::vector<std::wstring>{L"Tout le monde"},
              dialog.Checks(kGroupsOfUserList).Checked());
    EXPECT_TRUE(dialog.Checks(kPermissionsOfUserList).Checked().empty());
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  // F2 on the account. Only what is changed is touched.
  void Edit(const MainWindow& window) {
    window.Key(VK_F2);
    const DialogWindow dialog(Program(), String(app::kEditUserTitle));
    EXPECT_EQ(L"Zola", dialog.Box(IDC_TXT_USER_NAME).Text());
    EXPECT_TRUE(dialog.Box(IDC_TXT_PASSWORD).IsMasked());
    dialog.TabTo(IDC_TXT_FULL_NAME);
    dialog.Type(L"Émile Édouard Zola");
    dialog.TabTo(kGroupsOfUserList);
    dialog.Toggle(L"Qualité");
    dialog.TabTo(kPermissionsOfUserList);
    dialog.Toggle(L"Émettre un avoir");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  // Checks one item in the chooser that an Assign button opens.
  void Assign(const MainWindow& window, const std::wstring& folder, int button,
              const std::wstring& title, const std::wstring& item) {
    window.ClickNode(kUsersTab, {kEditedUser, folder});
    window.Click(button);
    const DialogWindow dialog(Program(), title);
    driver::ListView list = dialog.Checks(IDC_LIST_LIST_ITEM);
    const int row = list.Find(item);
    driver::ClickAt(list.Control(), list.CheckPlace(row));
    driver::Await("the box to be checked", [&] { return list.Row(row).checked; });
    dialog.Click(IDC_OK);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  void Remove(const MainWindow& window, const std::wstring& folder, const std::wstring& leaf,
              int button, int question) {
    window.ClickNode(kUsersTab, {kEditedUser, folder, leaf});
    window.Click(button);
    ExpectQuestion(String(question), IDYES);
    window.AwaitUsable();
  }
};

TEST_F(UserLife, HeIsCreatedEditedGivenGroupsAndPermissionsAndDeleted) {
  const MainWindow window = Open(SampleSession());
  Create(window);
  EXPECT_EQ((Lines{"Zola|Émile Zola|"}), Row());
  EXPECT_EQ((Lines{"Everyone"}), Groups());
  EXPECT_EQ(Lines{}, Permissions());
  EXPECT_EQ(kNewUser, window.Tree(kUsersTab).Selected().text);
  ExpectAccountsAsStored(window, kUsersTab);
  ExpectAccountAsStored(window, kUsersTab, kNewUser);
  EXPECT_NO_THROW(Box().OpenSession(L"Zola", kPassword)) << "he cannot log in";

  window.ClickNode(kUsersTab, {kNewUser});
  Edit(window);
  EXPECT_EQ((Lines{"Zola|Émile Édouard Zola|"}), Row());
  EXPECT_EQ((Lines{"Everyone", "Qualité"}), Groups());
  EXPECT_EQ((Lines{"Émettre un avoir"}), Permissions());
  EXPECT_NO_THROW(Box().OpenSession(L"Zola", kPassword)) << "the password has not stayed";
  ExpectAccountAsStored(window, kUsersTab, kEditedUser);
  ExpectAccountAsStored(window, kGroupsTab, kQuality);

  Assign(window, String(app::kMemberOf), kAssignGroupsButton,
         String(app::kChoicesTitle) + String(app::kGroups), L"Achats");
  EXPECT_EQ((Lines{"Everyone", "Qualité", "Achats"}), Groups());
  ExpectAccountAsStored(window, kGroupsTab, L"Achats");
  Assign(window, String(app::kUserPermissions), kAssignUserPermissionsButton,
         String(app::kChoicesTitle) + String(app::kPermissions), L"Audit des sessions");
  EXPECT_EQ((Lines{"Émettre un avoir", "Session audit"}), Permissions());
  ExpectAccountAsStored(window, kUsersTab, kEditedUser);

  Remove(window, String(app::kUserPermissions), L"Émettre un avoir", kRemoveUserPermissionButton,
         app::kAskRemoveUserPermission);
  EXPECT_EQ((Lines{"Session audit"}), Permissions());
  Remove(window, String(app::kMemberOf), L"Achats", kRemoveGroupButton, app::kAskRemoveMembership);
  EXPECT_EQ((Lines{"Everyone", "Qualité"}), Groups());
  ExpectAccountAsStored(window, kUsersTab, kEditedUser);

  window.ClickNode(kUsersTab, {kEditedUser});
  window.Click(kDeleteUserButton);
  ExpectQuestion(String(app::kAskDeleteUser), IDNO);
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Zola|Émile Édouard Zola|"}), Row());
  window.Click(kDeleteUserButton);
  ExpectQuestion(String(app::kAskDeleteUser), IDYES);
  window.AwaitUsable();
  EXPECT_EQ((Lines{data::ToUtf8(L"Zola(" + Id() + L")|Émile Édouard Zola|D")}), Row());
  EXPECT_EQ((Lines{"Everyone", "Qualité"}), Groups()) << "his links are left as they are";
  ExpectAccountsAsStored(window, kUsersTab);
  ExpectAccountAsStored(window, kGroupsTab, kQuality);
}

}  // namespace
}  // namespace program
