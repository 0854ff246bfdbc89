// Pictures of the windows, kept where there is a display to take them from.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <utility>

#include "app/StringIds.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/JournalFolder.h"
#include "tests/program/Outline.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Mouse.h"
#include "tests/program/driver/PopupMenu.h"
#include "tests/program/driver/Screenshot.h"
#include "tests/program/driver/ToolTip.h"

namespace program {
namespace {

// Half as long as a caret stays between two blinks.
constexpr std::chrono::milliseconds kStill{250};

class Pictures : public ProgramTest {
 protected:
  // Opens an account with all its folders, so that every kind of node is in sight.
  static void OpenAccount(driver::TreeView& tree, const std::wstring& start) {
    for (const driver::TreeNode& account : tree.Children(tree.Root().item)) {
      if (!account.text.starts_with(start)) continue;
      ReadOutline(tree, account);
      tree.Control().Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(account.item));
      return;
    }
    FAIL() << "no such account";
  }

  static bool IsPainted(const driver::Window& window) {
    if (window.IsVisible() && GetUpdateRect(window.Handle(), nullptr, FALSE)) return false;
    const std::vector<driver::Window> children = window.Children();
    return std::all_of(children.begin(), children.end(), IsPainted);
  }

  // What has been painted, by the window manager among others, may still be on its way to the
  // screen.
  static void Keep(const driver::Window& window, const wchar_t* name) {
    std::filesystem::create_directories(PicturesFolder());
    const std::filesystem::path file = PicturesFolder() / name;
    std::filesystem::remove(file);
    std::string seen;
    auto since = std::chrono::steady_clock::now();
    driver::Await("the picture to stand still", [&] {
      if (!IsPainted(window)) return false;
      driver::SaveScreenshot(window.Rectangle(), file);
      std::string now = FileBytes(file);
      if (now != seen) since = std::chrono::steady_clock::now();
      seen = std::move(now);
      return std::chrono::steady_clock::now() - since >= kStill;
    });
  }

  static void Leave(const DialogWindow& dialog, const MainWindow& window) {
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }
};

TEST_F(Pictures, BothTabsCanBeSeenOpenedToTheirLeaves) {
  const MainWindow window = Open(SampleSession());
  driver::BringToFront(window.Form());
  driver::TreeView users = window.Tree(kUsersTab);
  OpenAccount(users, L"Admin");
  EXPECT_EQ(3u, users.KnownChildren(users.Find({kAdmin}).item).size());
  Keep(window.Form(), L"users.bmp");
  window.SelectTab(kGroupsTab);
  driver::TreeView groups = window.Tree(kGroupsTab);
  OpenAccount(groups, L"Administrateurs");
  Keep(window.Form(), L"groups.bmp");
}

TEST_F(Pictures, TheDialogsOfTheUsersTabCanBeSeen) {
  const MainWindow window = Open(SampleSession());
  window.Press(kNewUserButton);
  const DialogWindow newUser(Program(), String(app::kNewUserTitle));
  Keep(newUser.Form(), L"new-user.bmp");
  Leave(newUser, window);
  window.Select(kUsersTab, {kMartin});
  window.Press(kEditUserButton);
  const DialogWindow editUser(Program(), String(app::kEditUserTitle));
  Keep(editUser.Form(), L"edit-user.bmp");
  Leave(editUser, window);
  window.Select(kUsersTab, {kMartin, String(app::kMemberOf)});
  window.Press(kAssignGroupsButton);
  const DialogWindow groups(Program(), String(app::kChoicesTitle) + String(app::kGroups));
  groups.Toggle(L"Méthodes");
  groups.Toggle(L"Qualité");
  Keep(groups.Form(), L"list-item.bmp");
}

TEST_F(Pictures, TheDialogsOfTheGroupsTabCanBeSeen) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  window.Press(kNewGroupButton);
  const DialogWindow newGroup(Program(), String(app::kNewGroupTitle));
  Keep(newGroup.Form(), L"new-group.bmp");
  Leave(newGroup, window);
  window.Select(kGroupsTab, {kQuality});
  window.Press(kEditGroupButton);
  const DialogWindow editGroup(Program(), String(app::kEditGroupTitle));
  Keep(editGroup.Form(), L"edit-group.bmp");
  Leave(editGroup, window);
  window.Select(kGroupsTab, {kQuality, String(app::kMembers)});
  window.Press(kAssignMembersButton);
  const DialogWindow members(Program(), String(app::kAddUsersTitle) + kQuality);
  members.Type(L"ma");
  Keep(members.Form(), L"add-users.bmp");
}

TEST_F(Pictures, TheListsCanBeSeen) {
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {kMartin, String(app::kAllPermissions), L"Consulter le stock"});
  window.Key('Q', {VK_CONTROL});
  const DialogWindow holders(Program(), String(app::kHoldersTitle));
  holders.TabTo(IDC_LIST_ROWS);
  Keep(holders.Form(), L"who-has-it.bmp");
  Leave(holders, window);
  window.Select(kUsersTab, {kMartin});
  window.Key('K', {VK_CONTROL});
  const DialogWindow others(Program(), String(app::kCompareTitle));
  others.Type(L"bernard");
  others.Key(VK_RETURN);
  driver::Await("the comparison", [&] { return !others.IsOpen(); });
  const DialogWindow comparison(Program(), String(app::kCompareTitle));
  comparison.TabTo(IDC_LIST_ROWS);
  Keep(comparison.Form(), L"compare.bmp");
}

// A morning's work, as the program would have written it.
constexpr const char* kJournal =
    R"({"time":"2026-11-20T08:02:11.120Z","computer":"POSTE-12","user":"LABO\\lea.moreau","session":"Moreau","what":"Utilisateur Zola créé","complete":true,"rows":4,"changes":[{"change":"added","kind":"user","user":35,"name":"Zola","fullName":"Émile Zola","rows":1}]}
{"time":"2026-11-20T08:05:40.003Z","computer":"POSTE-12","user":"LABO\\lea.moreau","session":"Moreau","what":"2 groupes affectés à Zola","complete":true,"account":{"kind":"user","id":35,"name":"Zola"},"rows":2,"changes":[]}
{"time":"2026-11-20T09:30:59.450Z","computer":"POSTE-07","user":"LABO\\j.martin","session":"Admin","what":"Martin ne fait plus partie du groupe Laboratoire","complete":true,"account":{"kind":"user","id":9,"name":"Martin"},"rows":1,"changes":[]}
{"time":"2026-11-20T09:31:20.000Z","computer":"POSTE-07","user":"LABO\\j.martin","session":"Admin","what":"Modification du groupe Qualité","complete":false,"account":{"kind":"group","id":6,"name":"Qualité"},"rows":0,"error":{"number":-2147467259,"text":"La base est verrouillée"},"changes":[]}
{"time":"2026-11-20T09:33:02.700Z","computer":"POSTE-07","user":"LABO\\j.martin","session":"Admin","what":"Groupe Qualité modifié","complete":true,"account":{"kind":"group","id":6,"name":"Qualité"},"rows":3,"changes":[]}
{"time":"2026-11-20T10:14:45.310Z","computer":"POSTE-12","user":"LABO\\lea.moreau","session":"Moreau","what":"Permission Consulter le stock retirée à Martin","complete":true,"account":{"kind":"user","id":9,"name":"Martin"},"rows":1,"changes":[]}
)";

TEST_F(Pictures, TheJournalCanBeSeen) {
  const std::filesystem::path folder =
      std::filesystem::path(_wgetenv(L"ProgramData")) / L"User Administration tests";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / L"journal-2026-11.jsonl", std::ios::binary | std::ios::trunc) << kJournal;
  {
    const JournalFolder kept(folder);
    const MainWindow window = Open(SampleSession());
    window.Select(kUsersTab, {kMartin});
    window.Key('J', {VK_CONTROL});
    const DialogWindow journal(Program(), String(app::kJournalTitle));
    journal.TabTo(IDC_LIST_ROWS);
    Keep(journal.Form(), L"journal.bmp");
    Leave(journal, window);
  }
  std::filesystem::remove_all(folder);
}

TEST_F(Pictures, AMenuAndATipCanBeSeen) {
  const MainWindow window = Open(SampleSession());
  // A window manager may still be moving the window, and the mouse has to find it.
  Keep(window.Form(), L"window.bmp");
  driver::TreeView tree = window.Tree(kUsersTab);
  const HTREEITEM folder = tree.Find({kMartin, String(app::kAllPermissions)}).item;
  const HTREEITEM leaf =
      tree.Find({kMartin, String(app::kAllPermissions), L"Consulter le stock"}).item;
  window.Select(kUsersTab, {kMartin});
  tree.Reveal(tree.KnownChildren(folder).back().item);
  driver::PointAt(tree.Control(), tree.Reveal(leaf));
  driver::AwaitTip(Program().Id());
  Keep(window.Form(), L"why-tip.bmp");
  const driver::Window off = window.Control(kRemoveUserPermissionButton);
  RECT place = {};
  GetClientRect(off.Handle(), &place);
  driver::PointAt(off, driver::Middle(place));
  const std::wstring why = String(app::kSelectToRemovePermission);
  driver::Await("the tip of a button", [&] {
    const driver::Window tip = driver::ShownTip(Program().Id());
    return tip && tip.Text().starts_with(why);
  });
  Keep(window.Form(), L"why-not-tip.bmp");
  // With the folder on the topmost line there is room for the whole menu below it.
  tree.Reveal(tree.KnownChildren(tree.Root().item).back().item);
  driver::RightClickAt(tree.Control(), tree.Reveal(folder));
  driver::AwaitMenu(Program().Id());
  Keep(window.Form(), L"context-menu.bmp");
  window.Key(VK_ESCAPE);
  driver::AwaitNoMenu(Program().Id());
}

}  // namespace
}  // namespace program
