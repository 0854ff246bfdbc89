// Measures what the user waits for when he looks for somebody: each key in the box above the tree,
// and each step of answering who that is, what he may do and why, who else may, and why a colleague
// may not, to the list for the auditor. Argument: the number of users; 30000 without one.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Program.h"
#include "bench/Row.h"
#include "browser/lists/frmList.h"
#include "browser/rules/TreeKeys.h"

namespace bench {
namespace {

using browser::frmUserGroupPerm;

constexpr int kRounds = 3;

// What is in the box after each key. The first narrows the tree a little, the last to a few.
const std::vector<std::wstring>& Typed() {
  static const std::vector<std::wstring> kTyped = {L"l",         L"l\u00E9",    L"l\u00E9a",
                                                   L"l\u00E9a ", L"l\u00E9a n", L"l\u00E9a no"};
  return kTyped;
}

double Key(frmUserGroupPerm& window, const std::wstring& text) {
  return SecondsOf([&] {
    window.Users.txtFind.SetText(text);
    window.Repaint();
  });
}

// Each key, and Escape, which brings all back: the longest of its rounds is not the machine's
// other work, so the median counts.
void MeasureKeys(frmUserGroupPerm& window) {
  std::vector<std::vector<double>> seconds(Typed().size() + 1);
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t i = 0; i < Typed().size(); ++i) {
      seconds[i].push_back(Key(window, Typed()[i]));
    }
    seconds.back().push_back(Key(window, {}));
  }
  std::vector<std::string> cells;
  for (std::vector<double>& times : seconds) {
    std::sort(times.begin(), times.end());
    cells.push_back(Milliseconds(times[times.size() / 2]));
  }
  PrintRow("milliseconds", cells);
}

double Press(frmUserGroupPerm& window, int keyCode) {
  return SecondsOf([&] {
    window.Form_KeyDown(keyCode);
    window.Repaint();
  });
}

// The permission that the user has first of all those he has.
controls::NodeId FirstPermission(const controls::TreeNodes& nodes, controls::NodeId user) {
  const controls::NodeId all = nodes.FindChild(user, browser::kAllPermissionsKey, 0);
  if (all == controls::kNoNode || !nodes.HasChildren(all)) {
    throw std::runtime_error("the user has no permissions");
  }
  return nodes.ChildrenInOrder(all).front();
}

// How long a list takes to stand there is how long the dialog keeps the key; what its user does in
// it is over at once.
void MeasureQuestions(Program& program, frmUserGroupPerm& window) {
  using controls::kKeyControl;
  program.AnswerDialogs([](controls::Form& form) {
    auto& list = dynamic_cast<browser::frmList&>(form);
    list.Repaint();
    if (list.cmdOK.Enabled() && list.Caption().starts_with(L"Comparer")) return list.cmdOK.Click();
    form.Unload();
  });
  const std::filesystem::path file =
      std::filesystem::path(program.DatabaseFile()).parent_path() / "rights.html";
  program.AnswerSaveFile([file] { return file.wstring(); });
  controls::TreeView& tree = window.Users.TreeView1;
  std::vector<double> seconds;
  seconds.push_back(SecondsOf([&] {
    for (const std::wstring& text : Typed()) Key(window, text);
    window.Users.txtFind.SetFocus();
    window.Form_KeyDown(controls::kKeyReturn);
    window.Repaint();
  }));
  const controls::NodeId user = tree.SelectedNode();
  seconds.push_back(SecondsOf([&] {
    tree.SetSelectedNode(FirstPermission(tree.Nodes(), user));
    window.Users.RefreshSelection();
    window.Repaint();
  }));
  tree.SetFocus();
  seconds.push_back(Press(window, kKeyControl + 'Q'));
  seconds.push_back(Press(window, kKeyControl + 'K'));
  seconds.push_back(Press(window, kKeyControl + 'E'));
  double all = 0;
  std::vector<std::string> cells;
  for (const double each : seconds) {
    all += each;
    cells.push_back(Milliseconds(each));
  }
  cells.push_back(Milliseconds(all));
  PrintRow("milliseconds", cells);
}

int Run(int users) {
  return ExitCodeOf([&] {
    Program program({users, kGroups, kPermissions});
    const auto window = program.Start();
    PrintRow("keys", {"l", "le", "lea", "lea ", "lea n", "lea no", "Escape"});
    MeasureKeys(*window);
    PrintRow("questions", {"find", "why", "who", "compare", "export", "all"});
    MeasureQuestions(program, *window);
    window->Unload();
  });
}

}  // namespace
}  // namespace bench

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  const int users = argc > 1 ? _wtoi(argv[1]) : 0;
#else
int main(int argc, char** argv) {
  const int users = argc > 1 ? std::atoi(argv[1]) : 0;
#endif
  return bench::Run(users > 0 ? users : 30000);
}
