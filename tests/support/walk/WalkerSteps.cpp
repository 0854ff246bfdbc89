// What the random administrator does in the main window, and what somebody else does meanwhile.

#include <gtest/gtest.h>

#include "controls/Desktop.h"
#include "controls/PopupMenu.h"
#include "data/Text.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/walk/Walker.h"

namespace test_support {
namespace {

// Where the lines of the menu stand that are buttons as well, in the order of the buttons.
constexpr std::size_t kButtonLines[] = {0, 1, 2, 4, 5, 7, 8};

}  // namespace

void Walker::Step() {
  switch (dice_.Below(20)) {
    case 0:
      return ChooseTab();
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      return SelectSome();
    case 6:
      return ToggleSome();
    case 7:
    case 8:
    case 9:
      return PressSomeKey();
    case 10:
    case 11:
      return AskForMenu();
    case 12:
      return dice_.OneIn(2) ? Refresh(dice_.OneIn(2)) : SomebodyElse();
    default:
      return ClickSome();
  }
}

void Walker::ChooseTab() {
  const int tab = dice_.Below(2);
  Note("tab " + std::to_string(tab));
  user_.TryChooseTab(window_.TabStrip1, tab);
  EXPECT_EQ(Tab(), tab);
  Check(false);
}

// Any kind of node is as likely as any other, however many leaves there are.
int Walker::SomeNode() {
  const Nodes& nodes = NodesOf(Tab());
  int node = nodes.Root();
  for (int depth = 0; depth < 3 && !dice_.OneIn(depth == 0 ? 12 : 4); ++depth) {
    const int children = nodes.Children(node);
    if (children == 0) break;
    node = nodes.FirstChild(node);
    for (int skip = dice_.Below(children); skip > 0; --skip) node = nodes.Next(node);
  }
  return node;
}

void Walker::SelectSome() {
  const int node = SomeNode();
  Note("select " + data::ToUtf8(NodesOf(Tab()).Key(node)));
  EXPECT_TRUE(user_.TrySelect(window_.TreeView1[Tab()], node));
  EXPECT_EQ(window_.TreeView1[Tab()].SelectedNode(), node);
  Check(false);
}

void Walker::ToggleSome() {
  const int node = SomeNode();
  controls::TreeView& tree = window_.TreeView1[Tab()];
  Note("open or close " + data::ToUtf8(tree.Nodes().Key(node)));
  if (!user_.TryExpand(tree, node)) user_.TryCollapse(tree, node);
  Check(false);
}

std::vector<controls::CommandButton*> Walker::Buttons(int tree) {
  const auto all = [](auto& account, auto& first, auto& second) {
    return std::vector<controls::CommandButton*>{&account[0], &account[1], &account[2], &first[0],
                                                 &first[1],   &second[0],  &second[1]};
  };
  return tree == 0 ? all(window_.cmdUser, window_.cmdMemberOf, window_.cmdUserPermission)
                   : all(window_.cmdGroup, window_.cmdMember, window_.cmdGroupPermission);
}

Command Walker::CommandOf(int place) {
  if (place < 3) return {Section::kAccount, place};
  return place < 5 ? Command{Section::kFirstLinks, place - 3}
                   : Command{Section::kSecondLinks, place - 5};
}

void Walker::ClickSome() {
  const int place = dice_.Below(7);
  controls::CommandButton& button = *Buttons(Tab())[static_cast<std::size_t>(place)];
  if (!button.Enabled()) return SelectSome();
  StartCommand();
  Note("click " + data::ToUtf8(button.Caption()) + " (" + std::to_string(place) + ") at " +
       data::ToUtf8(target_.key));
  EXPECT_TRUE(user_.TryClick(button));
  Follow(CommandOf(place));
}

std::optional<Command> Walker::CommandOfDelete(const Target& target) {
  if (target.tag == L"US" || target.tag == L"GR") return Command{Section::kAccount, 1};
  if (target.tag == L"GU" || target.tag == L"UG") return Command{Section::kFirstLinks, 1};
  if (target.tag == L"PU" || target.tag == L"PG") return Command{Section::kSecondLinks, 1};
  return std::nullopt;
}

// A key whose button is off does nothing; Follow then finds that nothing has happened.
void Walker::PressSomeKey() {
  constexpr int kKeys[] = {controls::kKeyF2,
                           controls::kKeyDelete,
                           controls::kKeyF2,
                           controls::kKeyDelete,
                           controls::kKeyF1,
                           kKeyTab,
                           kKeyC};
  const int key = dice_.Pick(kKeys);
  controls::TreeView& tree = window_.TreeView1[Tab()];
  if (!dice_.OneIn(6)) user_.TryFocus(tree);
  StartCommand();
  Note("key " + std::to_string(key) + " at " + data::ToUtf8(target_.key));
  std::optional<Command> command;
  if (key == controls::kKeyF2) command = Command{Section::kAccount, 0};
  if (key == controls::kKeyDelete) command = CommandOfDelete(target_);
  if (!tree.HasFocus()) command.reset();
  if (key == kKeyC) {
    user_.PressCtrl(window_, key);
  } else {
    user_.TryPressKey(window_, key);
  }
  if (command) {
    Follow(*command);
  } else {
    EXPECT_FALSE(dialog_ || confirmed_);
    Check(true);
  }
}

std::optional<Command> Walker::CommandOfMenuLine(std::size_t line) {
  for (int place = 0; place < 7; ++place) {
    if (kButtonLines[place] == line) return CommandOf(place);
  }
  return std::nullopt;
}

void Walker::AskForMenu() {
  controls::TreeView& tree = window_.TreeView1[Tab()];
  std::optional<Command> command;
  bool shown = false;
  window_.OwnerDesktop().Instead.PopupMenu = [&](const std::vector<controls::MenuItem>& items) {
    shown = true;
    const auto buttons = Buttons(Tab());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      EXPECT_EQ(items[kButtonLines[i]].enabled, buttons[i]->Enabled());
    }
    // What is selected has changed with the click.
    StartCommand();
    const auto line = static_cast<std::size_t>(dice_.Below(static_cast<int>(items.size())));
    if (items[line].command == 0 || !items[line].enabled) return 0;
    Note("  line " + data::ToUtf8(items[line].caption) + " at " + data::ToUtf8(target_.key));
    command = CommandOfMenuLine(line);
    return items[line].command;
  };
  const int node = SomeNode();
  Note("menu of " + data::ToUtf8(tree.Nodes().Key(node)));
  user_.TryRightClick(tree, node);
  EXPECT_TRUE(shown);
  window_.OwnerDesktop().Instead.PopupMenu = nullptr;
  if (command) {
    Follow(*command);
  } else {
    Check(false);
  }
}

void Walker::Refresh(bool byKey) {
  Note(byKey ? "F5" : "refresh");
  if (byKey) {
    user_.TryPressKey(window_, controls::kKeyF5);
  } else {
    user_.TryClick(window_.cmdBtn[0]);
  }
  before_ = ReadTables(raw_);
  wanted_.Refresh(before_);
  meant_.clear();
  foreign_ = false;
  for (const int tree : {0, 1}) EXPECT_EQ(SelectedKey(tree), Keys::Root());
  Check(false);
}

// Another administrator keeps to the rules, too: what is protected stays.
void Walker::SomebodyElse() {
  constexpr const char* kChanges[] = {
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
  const char* change = dice_.Pick(kChanges);
  Note(std::string("somebody else: ") + change);
  raw_.Execute(change);
  foreign_ = true;
  before_ = ReadTables(raw_);
  Check(false);
}

}  // namespace test_support
