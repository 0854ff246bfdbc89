// Measures commands on accounts and links, each from its button until the window is usable again,
// and the opening of the dialogs, against the same statements on the database alone. Argument: the
// number of users; 10000 without one.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "bench/Command.h"
#include "bench/Floor.h"
#include "bench/Program.h"
#include "bench/Row.h"
#include "data/Text.h"
#include "dialogs/frmEditUser.h"

namespace bench {
namespace {

using browser::frmUserGroupPerm;

constexpr int kPairs = 5;

// The accounts that the commands are tried on, well inside the sample.
constexpr int kUser = 500;
constexpr int kGroup = 50;

void Escape(controls::Form& form) {
  form.Unload();
}

Command RemovePermission(test_support::RawDatabase& raw) {
  const std::string group = Number(kGroup);
  const std::string permission =
      Number(raw.Number("SELECT MIN(PERMID) FROM QRGPRM WHERE GROUPID = " + group));
  Command command{"remove a permission from a group",
                  1,
                  "\\TPG \\G" + group + " \\P" + permission,
                  {},
                  {},
                  {},
                  {}};
  command.press = [](frmUserGroupPerm& window) { window.Groups.cmdGroupPermission_Click(1); };
  command.undo = {"INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (" + group + ", " + permission +
                  ")"};
  return command;
}

// The dialog takes all links away and writes them again.
std::vector<std::string> Links(test_support::RawDatabase& raw, const std::string& table,
                               const std::string& column) {
  std::vector<std::string> inserts;
  for (const auto& row : raw.Rows("SELECT " + column + " FROM " + table +
                                  " WHERE USERID = " + Number(kUser) + " ORDER BY 1")) {
    inserts.push_back("INSERT INTO " + table + " (USERID, " + column + ") VALUES (" +
                      Number(kUser) + ", " + row[0] + ")");
  }
  return inserts;
}

Command RenameUser(test_support::RawDatabase& raw) {
  const std::string user = Number(kUser);
  Command command{"rename a user", 0, "\\TUS \\U" + user, {}, {}, {}, {}};
  command.press = [](frmUserGroupPerm& window) { window.Users.cmdUser_Click(0); };
  command.answer = [](controls::Form& form) {
    auto& dialog = dynamic_cast<dialogs::frmEditUser&>(form);
    dialog.txtUserName.SetText(L"Zacharie");
    dialog.txtPassword.SetText(L"secret-1");
    dialog.txtVerify.SetText(L"secret-1");
    dialog.cmdOK.Click();
  };
  const std::string before = raw.Text("SELECT NAME FROM QRUSER WHERE USERID = " + user);
  command.writes = {
      "UPDATE QRUSER SET NAME = 'Zacharie', PASSWORD = hex(zeroblob(60)) WHERE "
      "USERID = " +
      user};
  for (const auto& insert : Links(raw, "QRUSGP", "GROUPID")) command.writes.push_back(insert);
  for (const auto& insert : Links(raw, "QRUPRM", "PERMID")) command.writes.push_back(insert);
  command.undo = {"UPDATE QRUSER SET NAME = '" + before +
                  "', PASSWORD = NULL WHERE USERID = " + user};
  return command;
}

// A quote in a name would make the statement of the deletion invalid.
Command DeleteGroup(test_support::RawDatabase& raw) {
  const std::string group = Number(
      raw.Number("SELECT MIN(GROUPID) FROM QRGROUP WHERE NAME NOT LIKE '%''%' AND GROUPID >= " +
                 Number(kGroup)));
  const std::string before = raw.Text("SELECT NAME FROM QRGROUP WHERE GROUPID = " + group);
  const std::string flag = raw.Text("SELECT VFLG FROM QRGROUP WHERE GROUPID = " + group);
  Command command{"delete a group", 1, "\\TGR \\G" + group, {}, {}, {}, {}};
  command.press = [](frmUserGroupPerm& window) { window.Groups.cmdGroup_Click(1); };
  command.undo = {"UPDATE QRGROUP SET NAME = '" + before + "', VFLG = '" + flag +
                  "' WHERE GROUPID = " + group};
  return command;
}

// Dialogs that are opened and closed again.
std::vector<Command> Openings() {
  const std::string user = "\\TUS \\U" + Number(kUser);
  const std::string group = "\\TGR \\G" + Number(kGroup);
  using Window = frmUserGroupPerm;
  return {
      {"open: edit user", 0, user, [](Window& w) { w.Users.cmdUser_Click(0); }, Escape, {}, {}},
      {"open: new user", 0, user, [](Window& w) { w.Users.cmdUser_Click(2); }, Escape, {}, {}},
      {"open: edit group", 1, group, [](Window& w) { w.Groups.cmdGroup_Click(0); }, Escape, {}, {}},
      {"open: new group", 1, group, [](Window& w) { w.Groups.cmdGroup_Click(2); }, Escape, {}, {}},
      {"open: add users", 1, group, [](Window& w) { w.Groups.cmdMember_Click(0); }, Escape, {}, {}},
      {"open: groups of a user",
       0,
       user,
       [](Window& w) { w.Users.cmdMemberOf_Click(0); },
       Escape,
       {},
       {}},
  };
}

void Measure(Program& program, const Command& command) {
  program.AnswerDialogs(command.answer);
  const auto select = [&](frmUserGroupPerm& window) { Select(window, command); };
  Floor floor(program.DatabaseFile(), program.Statements(select, command.press, command.writes));
  const auto undo = [&] {
    for (const std::string& sql : command.undo) floor.Execute(sql);
  };
  undo();
  const auto window = program.Start();
  floor.Run();
  undo();
  Comparison comparison;
  for (int pair = 0; pair < kPairs; ++pair) {
    select(*window);
    const double seconds = SecondsOf([&] {
      command.press(*window);
      Settle(*window);
    });
    undo();
    const double floorSeconds = floor.Run();
    undo();
    comparison.Add(seconds, floorSeconds);
    if (!command.undo.empty()) Refresh(*window);
  }
  PrintRow(command.name,
           {std::to_string(floor.Statements()), Milliseconds(comparison.FloorMedian()),
            Milliseconds(comparison.Median()), Times(comparison.Ratio())});
  window->Unload();
}

int Run(int users) {
  PrintRow("command, " + Number(users) + " users", {"statements", "floor", "program", "ratio"});
  return ExitCodeOf([&] {
    Program program({users, kGroups, kPermissions});
    test_support::RawDatabase raw = program.Raw();
    for (const auto& command :
         {AddMember(raw, kGroup), RemovePermission(raw), RenameUser(raw), DeleteGroup(raw)}) {
      Measure(program, command);
    }
    for (const Command& opening : Openings()) Measure(program, opening);
  });
}

}  // namespace
}  // namespace bench

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  const int users = argc > 1 ? _wtoi(argv[1]) : 10000;
#else
int main(int argc, char** argv) {
  const int users = argc > 1 ? std::atoi(argv[1]) : 10000;
#endif
  return bench::Run(users);
}
