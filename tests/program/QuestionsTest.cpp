// The questions of every day, answered by keyboard alone among thousands of users: who is that,
// what may she do and why, who else may, why may her colleague not, and the list of it all.

#include <filesystem>
#include <sstream>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"

namespace program {
namespace {

constexpr int kUsers = 3000;
constexpr const wchar_t* kLea = L"vidal9 (L\u00E9a Vidal)";

// Whoever may do something: himself, or by a group.
constexpr const wchar_t* kHolders =
    L"SELECT COUNT(*) FROM QRUSERV WHERE USERID IN (SELECT USERID FROM QRUPRM WHERE PERMID = %1 "
    L"UNION SELECT USERID FROM QRUSGPV WHERE GROUPID IN (SELECT GROUPID FROM QRGPRM WHERE PERMID = "
    L"%1))";
constexpr const wchar_t* kPermissionsOfBoth =
    L"SELECT COUNT(DISTINCT PERMID) FROM (SELECT PERMID FROM QRUPRM WHERE USERID IN (90009, 90008) "
    L"UNION SELECT PERMID FROM QRGPRM WHERE GROUPID IN (SELECT GROUPID FROM QRUSGPV WHERE USERID "
    L"IN (90009, 90008)))";

class Questions : public ProgramTest {
 protected:
  // The sample with thousands of users more, and two of the same name: one in the production.
  std::wstring SessionAmongMany() {
    const std::wstring session = SampleSession();
    Database database = Box().Database();
    database.Run(L"WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < " +
                 std::to_wstring(kUsers) +
                 L") INSERT INTO QRUSER (USERID, NAME) SELECT 100000 + I, 'u' || I FROM N");
    database.Run(
        L"INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (90009, 'vidal9', 'L\u00E9a "
        L"Vidal'), (90008, 'vidal8', 'Paul Vidal')");
    database.Run(
        L"INSERT INTO QRUSGP (USERID, GROUPID) SELECT 90009, GROUPID FROM QRGROUP WHERE "
        L"NAME = 'Production'");
    return session;
  }
  int Number(std::wstring statement, const std::wstring& value) {
    for (std::size_t at = 0; (at = statement.find(L"%1")) != std::wstring::npos;) {
      statement.replace(at, 2, value);
    }
    return Box().Database().Number(statement);
  }
  static std::wstring Selected(const MainWindow& window) {
    return window.Tree(kUsersTab).Selected().text;
  }
  // Presses a key until the selection is on another line of the tree.
  static void Step(const MainWindow& window, WORD key) {
    const std::wstring before = Selected(window);
    window.Key(key);
    driver::Await("the selection to move", [&] { return Selected(window) != before; });
  }

  void FindLea(const MainWindow& window) {
    window.Key('F', {VK_CONTROL});
    window.AwaitFocus(IDC_FIND_USERS);
    driver::TypeText(window.Form(), L"lea vid");
    driver::Await("one user to be found", [&] {
      return window.Status().starts_with(String(app::kShownOf, {L"1", L""}));
    });
    window.Key(VK_RETURN);
    driver::Await("her to be selected", [&] { return Selected(window) == kLea; });
    EXPECT_EQ(IDC_TREE_USERS, window.Focus());
  }
  // How many lines of a table name the user and the permission.
  static int Lines(const std::filesystem::path& file, const std::wstring& user,
                   const std::wstring& permission) {
    std::istringstream rows(FileBytes(file));
    int lines = 0;
    for (std::string line; std::getline(rows, line);) {
      lines += line.find(data::ToUtf8(user)) != std::string::npos &&
               line.find(data::ToUtf8(permission)) != std::string::npos;
    }
    return lines;
  }
  // Opens her account and all she may do, and goes to the first of it.
  void GoToFirstPermission(const MainWindow& window) {
    window.Key(VK_RIGHT);
    while (Selected(window) != String(app::kAllPermissions)) Step(window, VK_DOWN);
    window.Key(VK_RIGHT);
    Step(window, VK_DOWN);
  }
  void ExportTo(const MainWindow& window, const std::filesystem::path& file) {
    window.Key('E', {VK_CONTROL});
    driver::Window question;
    driver::Await("the question where to save", [&] {
      const auto shown = driver::TopWindows(Program().Id(), [](const driver::Window& top) {
        return top.IsVisible() && top.Text() == String(app::kExportTitle);
      });
      if (!shown.empty()) question = shown.front();
      return static_cast<bool>(question) && static_cast<bool>(driver::FocusIn(question));
    });
    driver::PressKey(question, VK_HOME);
    driver::PressKey(question, VK_END, {VK_SHIFT});
    driver::TypeText(question, file.c_str());
    driver::PressKey(question, VK_RETURN);
    const std::wstring told = String(app::kExported, {file.wstring()});
    driver::Await("the export to be told of", [&] { return window.Status() == told; });
  }
};

TEST_F(Questions, OfEveryDayAreAnsweredByKeyboardAlone) {
  const MainWindow window = Open(SessionAmongMany());
  FindLea(window);
  GoToFirstPermission(window);
  const std::wstring permission = Selected(window);
  EXPECT_EQ(data::ToUtf8(String(app::kByGroup, {L"Production"})),
            data::ToUtf8(window.Status().substr(window.Status().rfind(L" - ") + 3)));

  window.Key('Q', {VK_CONTROL});
  {
    const DialogWindow holders(Program(), String(app::kHoldersTitle));
    const std::wstring id =
        Box().Database().Text(L"SELECT PERMID FROM QRPERM WHERE NAME = '" + permission + L"'");
    EXPECT_EQ(Number(kHolders, id), holders.Checks(IDC_LIST_ROWS).Count());
    EXPECT_NO_THROW(holders.Checks(IDC_LIST_ROWS).Find(L"vidal9"));
    holders.Key(VK_ESCAPE);
    holders.AwaitClosed();
  }
  window.AwaitUsable();

  window.Key('K', {VK_CONTROL});
  {
    const DialogWindow others(Program(), String(app::kCompareTitle));
    others.Type(L"paul vidal");
    driver::Await("one row", [&] { return others.Checks(IDC_LIST_ROWS).Count() == 1; });
    others.Key(VK_RETURN);
    driver::Await("the comparison", [&] { return !others.IsOpen(); });
  }
  {
    const DialogWindow both(Program(), String(app::kCompareTitle));
    EXPECT_EQ(Number(kPermissionsOfBoth, {}), both.Checks(IDC_LIST_ROWS).Count());
    EXPECT_NO_THROW(both.Checks(IDC_LIST_ROWS).Find(permission));
    both.Key(VK_ESCAPE);
    both.AwaitClosed();
  }
  window.AwaitUsable();

  const std::filesystem::path file = Box().Folder() / L"droits.csv";
  ExportTo(window, file);
  EXPECT_EQ(1, Lines(file, L"L\u00E9a Vidal", permission));
  EXPECT_EQ(0, Lines(file, L"Paul Vidal", permission));
}

}  // namespace
}  // namespace program
