#include "tests/support/walk/Actions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <numeric>
#include <optional>

#include "controls/Desktop.h"
#include "controls/PopupMenu.h"
#include "controls/TreeModel.h"
#include "data/Text.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"

namespace test_support {
namespace {

// Where the menu has the lines that are buttons as well, in the order of the buttons.
constexpr std::size_t kButtonLines[] = {0, 1, 2, 4, 5, 7, 8};

// And where it has the command that begins a new user with what another one has.
constexpr std::size_t kDuplicateLine = 17;

constexpr ListCommand kListCommands[] = {ListCommand::kHolders, ListCommand::kMembers,
                                         ListCommand::kCompare, ListCommand::kJournal};

// The lines that show a list have its key in them.
std::optional<ListCommand> ListOfMenuLine(const std::wstring& caption) {
  for (const ListCommand command : kListCommands) {
    const auto letter = static_cast<wchar_t>(command);
    if (caption.ends_with(std::wstring(L"\tCtrl+") + letter)) return command;
  }
  return std::nullopt;
}

std::optional<Command> CommandOfMenuLine(int tree, std::size_t line) {
  if (tree == kUsersTree && line == kDuplicateLine) return Command{Section::kAccount, Verb::kNew};
  for (std::size_t place = 0; place < kCommands.size(); ++place) {
    if (kButtonLines[place] == line) return kCommands[place];
  }
  return std::nullopt;
}

// Another administrator keeps to the rules, too: what is protected stays.
constexpr const char* kOutsideChanges[] = {
    "DELETE FROM QRUSGP WHERE USERID > 2 AND GROUPID > 2 AND (USERID + GROUPID) % 3 = 0",
    "DELETE FROM QRUPRM WHERE USERID % 2 = 1",
    "DELETE FROM QRGPRM WHERE GROUPID > 2 AND PERMID % 2 = 0",
    "INSERT OR IGNORE INTO QRUSGP SELECT USERID, 7 FROM QRUSERV WHERE USERID % 2 = 0",
    "INSERT OR IGNORE INTO QRUPRM SELECT USERID, 14 FROM QRUSERV WHERE USERID % 2 = 1",
    "INSERT OR IGNORE INTO QRGPRM SELECT GROUPID, 20 FROM QRGROUPV WHERE GROUPID > 1",
    "UPDATE QRUSER SET FULLNAME = 'Nom ' || USERID WHERE USERID > 2",
    "UPDATE QRGROUP SET DESCR = 'Service ' || GROUPID WHERE GROUPID > 2",
    "UPDATE QRUSER SET VFLG = 'D', NAME = NAME || '(' || USERID || ')' WHERE USERID IN (SELECT "
    "MAX(USERID) FROM QRUSERV WHERE USERID > 2)",
    "UPDATE QRGROUP SET VFLG = 'D', NAME = NAME || '(' || GROUPID || ')' WHERE GROUPID IN "
    "(SELECT MAX(GROUPID) FROM QRGROUPV WHERE GROUPID > 2)",
};

}  // namespace

const std::vector<Actions::Action>& Actions::All() {
  static const std::vector<Action> actions{
      {4, &Actions::ChooseTab},       {20, &Actions::SelectNode},  {4, &Actions::OpenOrCloseNode},
      {28, &Actions::ClickButton},    {12, &Actions::PressKey},    {8, &Actions::UseMenu},
      {1, &Actions::RefreshByButton}, {1, &Actions::RefreshByKey}, {2, &Actions::ChangeFromOutside},
      {6, &Actions::FollowLeaf},      {3, &Actions::Duplicate},    {4, &Actions::Search},
      {1, &Actions::Export},          {6, &Actions::ShowList},
  };
  return actions;
}

void Actions::DoOne() {
  const auto add = [](int sum, const Action& action) { return sum + action.chance; };
  int left = walk_.dice.Below(std::accumulate(All().begin(), All().end(), 0, add));
  for (const Action& action : All()) {
    left -= action.chance;
    if (left < 0) return (this->*action.Do)();
  }
}

void Actions::ChooseTab() {
  const int tab = walk_.dice.Below(2);
  walk_.Note("tab " + std::to_string(tab));
  walk_.user.Try().ChooseTab(walk_.window.TabStrip1, tab);
  EXPECT_EQ(walk_.Tab(), tab);
  checks_.AfterStep();
}

// Any kind of node is as likely as any other, however many leaves there are.
controls::NodeId Actions::SomeNode() {
  controls::TreeModel& tree = controls::ModelOf(walk_.TreeOf(walk_.Tab()));
  controls::NodeId node = tree.Nodes().Root();
  for (int depth = 0; depth < 3 && !walk_.dice.OneIn(depth == 0 ? 12 : 4); ++depth) {
    const std::vector<controls::NodeId> children = tree.ChildrenOnView(node);
    if (children.empty()) break;
    node = children[static_cast<std::size_t>(walk_.dice.Below(static_cast<int>(children.size())))];
  }
  return node;
}

void Actions::SelectNode() {
  const controls::NodeId node = SomeNode();
  const int tab = walk_.Tab();
  walk_.Note("select " + data::ToUtf8(walk_.Nodes(tab).Key(node)));
  EXPECT_TRUE(walk_.user.Try().Select(walk_.TreeOf(tab), node));
  EXPECT_EQ(walk_.SelectedNode(tab), node);
  checks_.AfterStep();
}

void Actions::OpenOrCloseNode() {
  const controls::NodeId node = SomeNode();
  controls::TreeView& tree = walk_.TreeOf(walk_.Tab());
  walk_.Note("open or close " + data::ToUtf8(tree.Nodes().Key(node)));
  if (!walk_.user.Try().Expand(tree, node)) walk_.user.Try().Collapse(tree, node);
  checks_.AfterStep();
}

void Actions::ClickButton() {
  const int place = walk_.dice.Below(static_cast<int>(kCommands.size()));
  controls::CommandButton& button = *walk_.Buttons(walk_.Tab())[static_cast<std::size_t>(place)];
  if (!button.Enabled()) return SelectNode();
  run_.Begin();
  walk_.Note("click " + data::ToUtf8(button.Caption()) + " (" + std::to_string(place) + ") at " +
             data::ToUtf8(run_.At().key));
  EXPECT_TRUE(walk_.user.Try().Click(button));
  FinishCommand(kCommands[static_cast<std::size_t>(place)]);
}

// What a command's button says of itself, empty while it is on.
std::wstring Actions::WhyOff(const Command& command) const {
  const auto place = std::find(kCommands.begin(), kCommands.end(), command) - kCommands.begin();
  return walk_.Buttons(walk_.Tab())[static_cast<std::size_t>(place)]->WhyDisabled();
}

// In the status line, as long as the same node stays selected.
void Actions::ExpectToBeTold(const std::wstring& why) {
  expected_.done = why;
  expected_.doneAt = {walk_.Tab(), walk_.SelectedKey(walk_.Tab())};
}

// A key whose button is off does nothing but have the status line say why.
void Actions::PressKey() {
  constexpr int kKeys[] = {controls::kKeyF2,
                           controls::kKeyDelete,
                           controls::kKeyF2,
                           controls::kKeyDelete,
                           controls::kKeyF1,
                           kKeyTab,
                           kKeyC};
  const int key = walk_.dice.Pick(kKeys);
  controls::TreeView& tree = walk_.TreeOf(walk_.Tab());
  // In the box above the tree a key may change what is searched for.
  const bool inBox = walk_.window.Page(walk_.Tab()).txtFind.HasFocus();
  if (inBox || !walk_.dice.OneIn(6)) walk_.user.Try().Focus(tree);
  run_.Begin();
  walk_.Note("key " + std::to_string(key) + " at " + data::ToUtf8(run_.At().key));
  std::optional<Command> command;
  if (key == controls::kKeyF2) command = Command{Section::kAccount, Verb::kEdit};
  if (key == controls::kKeyDelete) command = CommandOfDelete(run_.At());
  if (!tree.HasFocus()) command.reset();
  const std::wstring why = command ? WhyOff(*command) : std::wstring();
  if (key == kKeyC) {
    walk_.user.PressCtrl(walk_.window, key);
  } else {
    walk_.user.Try().PressKey(walk_.window, key);
  }
  if (!why.empty()) {
    ExpectToBeTold(why);
  } else if (command) {
    return FinishCommand(*command);
  }
  EXPECT_TRUE(run_.DidNothing());
  checks_.AfterStep();
  run_.CheckKept();
}

void Actions::UseMenu() {
  controls::TreeView& tree = walk_.TreeOf(walk_.Tab());
  std::optional<Command> command;
  bool shown = false;
  bool exported = false;
  bool listed = false;
  auto& popupMenu = walk_.user.System().answers.PopupMenu;
  popupMenu = [&](const std::vector<controls::MenuItem>& items) {
    shown = true;
    const auto buttons = walk_.Buttons(walk_.Tab());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      EXPECT_EQ(items[kButtonLines[i]].enabled, buttons[i]->Enabled());
    }
    // What is selected has changed with the click.
    run_.Begin();
    expected_.Selected(walk_.Tab(), walk_.SelectedKey(walk_.Tab()));
    const auto line = static_cast<std::size_t>(walk_.dice.Below(static_cast<int>(items.size())));
    const auto list = ListOfMenuLine(items[line].caption);
    EXPECT_TRUE(!list || items[line].enabled == lists_.Answers(*list, run_.At()));
    if (items[line].command == 0 || !items[line].enabled) return 0;
    walk_.Note("  line " + data::ToUtf8(items[line].caption) + " at " +
               data::ToUtf8(run_.At().key));
    command = CommandOfMenuLine(walk_.Tab(), line);
    exported = items[line].caption.ends_with(L"Ctrl+E");
    listed = list.has_value();
    if (list) lists_.Expect(*list, run_.At());
    return items[line].command;
  };
  const controls::NodeId node = SomeNode();
  walk_.Note("menu of " + data::ToUtf8(tree.Nodes().Key(node)));
  walk_.user.Try().RightClick(tree, node);
  popupMenu = nullptr;
  EXPECT_TRUE(shown);
  if (exported) return FinishExport();
  if (listed) return FinishList();
  if (command) return FinishCommand(*command);
  checks_.AfterStep();
}

// Whether Enter on the leaf may lead to that node: to the member or the group that it lists, and
// from a permission to who gives or holds it.
bool Actions::IsReachedFrom(const Target& leaf, int tree, const std::wstring& key) const {
  if (leaf.tag == L"GU" || leaf.tag == L"UG") {
    return tree == OtherTree(leaf.tree) && key == Keys::Account(tree, leaf.leaf);
  }
  if (tree == leaf.tree) return key == Keys::Account(tree, leaf.account);
  const Target group = ReadTarget(tree, key);
  const auto has = [this](int side, const std::wstring& node) {
    return expected_.trees.Lines(side).contains(node);
  };
  return leaf.tag == L"PA" && group.tag == L"GR" &&
         has(kUsersTree, Keys::GroupOfUser(leaf.account, group.account)) &&
         has(kGroupsTree, Keys::GroupPermission(group.account, leaf.leaf));
}

// Enter, and mostly Backspace after it.
void Actions::FollowLeaf() {
  const controls::NodeId node = SomeNode();
  const int from = walk_.Tab();
  const Target leaf = ReadTarget(from, walk_.Nodes(from).Key(node));
  walk_.Note("follow " + data::ToUtf8(leaf.key));
  EXPECT_TRUE(walk_.user.Try().Select(walk_.TreeOf(from), node));
  checks_.AfterStep();
  walk_.user.Try().PressKey(walk_.window, controls::kKeyReturn);
  const int to = walk_.Tab();
  checks_.AfterStep();
  if (walk_.SelectedKey(to) == leaf.key) {
    const bool link = leaf.tag == L"GU" || leaf.tag == L"UG";
    EXPECT_TRUE(leaf.leaf == -1 || (link && !expected_.trees.Has(OtherTree(leaf.tree), leaf.leaf)));
    return;
  }
  EXPECT_TRUE(IsReachedFrom(leaf, to, walk_.SelectedKey(to)))
      << data::ToUtf8(walk_.SelectedKey(to));
  if (walk_.dice.OneIn(3)) return;
  walk_.user.Try().PressKey(walk_.window, controls::kKeyBack);
  EXPECT_EQ(walk_.Tab(), from);
  EXPECT_EQ(walk_.SelectedKey(from), leaf.key);
  checks_.AfterStep();
}

// A new user with what another one has.
void Actions::Duplicate() {
  if (walk_.Tab() != kUsersTree) return ChooseTab();
  controls::TreeView& tree = walk_.TreeOf(kUsersTree);
  walk_.user.Try().Focus(tree);
  run_.Begin();
  walk_.Note("duplicate at " + data::ToUtf8(run_.At().key));
  walk_.user.PressCtrl(walk_.window, 'D');
  EXPECT_EQ(run_.HasDialog(), run_.At().account != -1);
  if (run_.HasDialog()) return FinishCommand({Section::kAccount, Verb::kNew});
  ExpectToBeTold(L"d'abord un utilisateur");
  checks_.AfterStep();
}

// Types a word or two into the box above the tree, or ends the search, and mostly goes to what is
// found.
void Actions::Search() {
  constexpr const wchar_t* kWords[] = {L"a",    L"ad", L"e",      L"N", L"service 7", L"zz",
                                       L"\xE9", L"(",  L"moreau", L" ", L"'",         L"nom 1"};
  const int tab = walk_.Tab();
  controls::TextBox& box = walk_.window.Page(tab).txtFind;
  const std::wstring selected = walk_.SelectedKey(tab);
  if (!expected_.found[tab].empty() && walk_.dice.OneIn(2)) {
    walk_.Note("end of the search");
    walk_.user.PressCtrl(walk_.window, 'F');
    walk_.user.Try().PressKey(walk_.window, kKeyEscape);
    expected_.Searches(tab, {});
  } else {
    const std::wstring text = walk_.dice.Pick(kWords);
    walk_.Note("search for " + data::ToUtf8(text));
    walk_.user.PressCtrl(walk_.window, 'F');
    EXPECT_TRUE(walk_.user.Try().Type(box, text));
    expected_.Searches(tab, text);
  }
  EXPECT_EQ(walk_.SelectedKey(tab), selected);
  checks_.AfterStep();
  if (walk_.dice.OneIn(3)) return;
  const controls::NodeId first = walk_.TreeOf(tab).FirstMatch();
  const bool searches = walk_.TreeOf(tab).IsFiltered();
  walk_.user.Try().PressKey(walk_.window, controls::kKeyDown);
  EXPECT_EQ(walk_.TreeOf(tab).HasFocus(), !searches || first != controls::kNoNode);
  const bool goes = searches && first != controls::kNoNode;
  EXPECT_EQ(walk_.SelectedKey(tab), goes ? walk_.Nodes(tab).Key(first) : selected);
  checks_.AfterStep();
}

// The table has a row for each permission that a user's folder of all of them lists.
void Actions::Export() {
  controls::TreeView& tree = walk_.TreeOf(walk_.Tab());
  walk_.user.Try().Focus(tree);
  walk_.Note("export");
  walk_.user.PressCtrl(walk_.window, 'E');
  FinishExport();
  const TreeLines lines = expected_.trees.Lines(kUsersTree);
  const auto rows = std::ranges::count_if(
      lines, [](const auto& line) { return line.first.starts_with(L"\\TPA "); });
  std::ifstream file(walk_.ExportedFile(), std::ios::binary);
  const std::string table((std::istreambuf_iterator<char>(file)), {});
  // Two accounts or permissions of the sample never have line breaks in their names.
  EXPECT_EQ(std::ranges::count(table, '\n'), rows + 1);
}

// One of the lists, where it means something at the selected node; elsewhere its key has the status
// line say what to select.
void Actions::ShowList() {
  const ListCommand command = walk_.dice.Pick(kListCommands);
  walk_.user.Try().Focus(walk_.TreeOf(walk_.Tab()));
  run_.Begin();
  walk_.Note(std::string("list ") + static_cast<char>(command) + " at " +
             data::ToUtf8(run_.At().key));
  const bool answers = lists_.Answers(command, run_.At());
  if (answers) lists_.Expect(command, run_.At());
  walk_.user.PressCtrl(walk_.window, static_cast<int>(command));
  if (!answers) ExpectToBeTold(L"Sélectionnez d'abord ");
  FinishList();
}

// A list changes nothing. It may have led to a user; then one may come back from there.
void Actions::FinishList() {
  const Target at = run_.At();
  const std::optional<std::int32_t> user = lists_.Finish();
  EXPECT_TRUE(run_.DidNothing());
  EXPECT_EQ(walk_.Tab(), user ? kUsersTree : at.tree);
  EXPECT_EQ(walk_.SelectedKey(walk_.Tab()), user ? Keys::User(*user) : at.key);
  checks_.AfterStep();
  if (!user || walk_.dice.OneIn(2)) return;
  walk_.user.Try().PressKey(walk_.window, controls::kKeyBack);
  EXPECT_EQ(walk_.Tab(), at.tree);
  EXPECT_EQ(walk_.SelectedKey(at.tree), at.key);
  checks_.AfterStep();
}

void Actions::FinishExport() {
  expected_.done = L"Droits exportés dans ";
  expected_.doneAt = {walk_.Tab(), walk_.SelectedKey(walk_.Tab())};
  checks_.AfterStep();
}

void Actions::RefreshByButton() {
  walk_.Note("refresh");
  walk_.user.Try().Click(walk_.window.cmdBtn[kRefreshButton]);
  FinishRefresh();
}

void Actions::RefreshByKey() {
  walk_.Note("F5");
  walk_.user.Try().PressKey(walk_.window, controls::kKeyF5);
  FinishRefresh();
}

void Actions::ChangeFromOutside() {
  const char* change = walk_.dice.Pick(kOutsideChanges);
  walk_.Note(std::string("somebody else: ") + change);
  walk_.ChangeFromOutside(change);
  expected_.isChangedOutside = true;
  checks_.AfterStep();
}

void Actions::FinishCommand(const Command& command) {
  run_.Finish(command);
  checks_.AfterStep();
  run_.CheckKept();
}

void Actions::FinishRefresh() {
  expected_.Refreshed(ReadTables(walk_.raw));
  for (const int tree : kTrees) EXPECT_EQ(walk_.SelectedKey(tree), Keys::Root());
  checks_.AfterStep();
}

}  // namespace test_support
