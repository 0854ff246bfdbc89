#include "tests/support/walk/CommandRun.h"

#include <gtest/gtest.h>

#include "data/Text.h"
#include "data/TextFilter.h"
#include "tests/support/keys/Keys.h"

namespace test_support {
namespace {

// The permission of the samples that gives the right to administer users.
constexpr std::int32_t kAdministration = 1;

bool HasTheRight(const Tables& tables, std::int32_t user) {
  if (tables.userPermissions.contains({user, kAdministration})) return true;
  for (const auto& [id, group] : tables.groups) {
    if (!group.deleted && tables.memberships.contains({user, id}) &&
        tables.groupPermissions.contains({id, kAdministration})) {
      return true;
    }
  }
  return false;
}

}  // namespace

void CommandRun::Begin() {
  for (const int tree : kTrees) {
    open_[tree] = walk_.KeysOfNodes(tree, true);
    closed_[tree] = walk_.KeysOfNodes(tree, false);
    selected_[tree] = walk_.SelectedKey(tree);
  }
  target_ = ReadTarget(walk_.Tab(), selected_[walk_.Tab()]);
  ReadDatabase();
  confirmed_ = reported_ = told_ = dialog_ = warned_ = false;
}

void CommandRun::Reported(const std::wstring& report) {
  reported_ = true;
  const Tables::Accounts& accounts = target_.tree == kUsersTree ? before_.users : before_.groups;
  EXPECT_TRUE(report.starts_with(L"DeleteRecord Error [")) << data::ToUtf8(report);
  EXPECT_NE(accounts.at(target_.account).name.find(L'\''), std::wstring::npos);
}

// The question of a removal comes before this one, a dialog only asks this one.
void CommandRun::AnsweredOwnAccess(bool yes) {
  warned_ = yes;
  if (!yes) confirmed_ = false;
}

// Nobody loses his right without having been asked, and nobody is asked who keeps it. What somebody
// else has changed since the last refresh the program does not know.
void CommandRun::CheckOwnAccess(const Tables& now) const {
  if (expected_.isChangedOutside) return;
  const std::int32_t self = walk_.window.accounts.currentUserId;
  const bool lost = HasTheRight(before_, self) && !HasTheRight(now, self);
  EXPECT_TRUE(warned_ || !lost) << "nobody has asked";
  const bool asked = warned_ && !reported_;
  EXPECT_FALSE(asked && HasTheRight(now, self)) << "asked for nothing";
}

// What the status line says of the command, if it has done something.
void CommandRun::ExpectToBeTold(const Command& command) {
  constexpr const wchar_t* kWords[] = {L"modifié", L"supprimé", L"créé", L" à ", L""};
  // A command whose button is off does not even begin, and leaves what is said as it is.
  const std::wstring status = walk_.window.lblStatus.Caption();
  if (DidNothing() && status.find(expected_.done) != std::wstring::npos) return;
  expected_.done.clear();
  expected_.doneAt = {walk_.Tab(), walk_.SelectedKey(walk_.Tab())};
  const bool done = command.Removes() ? confirmed_ && !reported_ && !told_ : HasHandedBack();
  if (!done) return;
  expected_.done = kWords[static_cast<int>(command.verb)];
  if (command.verb == Verb::kAssign && walk_.window.exchange.membersRemoved) {
    expected_.done = L"n'a plus de membres";
  }
  if (command.verb == Verb::kRemove) {
    expected_.done =
        command.section == Section::kFirstLinks ? L"ne fait plus partie du groupe" : L"retirée à";
  }
}

// Without a dialog the window still has what an earlier one handed back.
bool CommandRun::HasHandedBack() const {
  return dialog_ && walk_.window.exchange.AddNode;
}

void CommandRun::Finish(const Command& command) {
  const Tables now = ReadTables(walk_.raw);
  EXPECT_FALSE(command.Removes() ? dialog_ : confirmed_);
  CheckOwnAccess(now);
  ExpectToBeTold(command);
  if (!command.Removes()) {
    CheckWritten(command, now);
  } else if (!confirmed_ || reported_) {
    EXPECT_EQ(now, before_);
  }
  if (now != before_) written_.insert(Name(target_.tree, command));
  if (command.section == Section::kAccount) {
    FinishAccount(command, now);
  } else {
    FinishLink(command, now);
  }
}

// AddNode says whether the dialog has written all that stood in it. Without it nothing at all was
// written: no write of a walk fails.
void CommandRun::CheckWritten(const Command& command, const Tables& now) const {
  if (!HasHandedBack()) {
    EXPECT_EQ(now, before_);
    return;
  }
  const bool isNew = command.verb == Verb::kNew;
  const std::int32_t id = isNew ? NewIdentifier(target_.tree, before_, now) : target_.account;
  Tables expected = AfterDialog(command, target_, id, actor_.Last(), before_);
  if (command.section == Section::kAccount && target_.tree == kUsersTree) {
    EXPECT_FALSE(now.users.at(id).password.empty());
    expected.users.at(id).password = now.users.at(id).password;
  }
  EXPECT_EQ(now.users, expected.users);
  EXPECT_EQ(now.groups, expected.groups);
  EXPECT_EQ(now.memberships, expected.memberships);
  EXPECT_EQ(now.userPermissions, expected.userPermissions);
  EXPECT_EQ(now.groupPermissions, expected.groupPermissions);
}

void CommandRun::FinishAccount(const Command& command, const Tables& now) {
  if (command.verb == Verb::kEdit) return FinishEdit(now);
  if (command.verb == Verb::kNew) return FinishNew(now);
  if (confirmed_ && !reported_) RemoveAccount(now);
}

void CommandRun::RemoveAccount(const Tables& now) {
  expected_.trees.Remove(target_.tree, target_.account);
  expected_.trees.ReadLinksOfAll(OtherTree(target_.tree), now);
}

void CommandRun::FinishNew(const Tables& now) {
  if (!HasHandedBack()) return;
  const int tree = target_.tree;
  const std::int32_t id = NewIdentifier(tree, before_, now);
  expected_.trees.ReadAccount(tree, id, now);
  expected_.trees.ReadLinksOfAll(OtherTree(tree), now);
  selected_[tree] = Keys::Account(tree, id);
  EXPECT_EQ(walk_.SelectedKey(tree), selected_[tree]);
  // A search that would hide it is over.
  const controls::TreeNodes& nodes = walk_.Nodes(tree);
  const controls::NodeId added = walk_.SelectedNode(tree);
  const std::wstring names = nodes.Text(added) + L" " + nodes.StoredName(added);
  if (!data::TextFilter(expected_.found[tree]).Matches(data::FoldedText(names))) {
    expected_.found[tree].clear();
    expected_.kept[tree].clear();
  }
  // The way to it is opened.
  closed_[tree].erase(Keys::Root());
}

void CommandRun::FinishEdit(const Tables& now) {
  const int tree = target_.tree;
  if (told_) return RemoveAccount(now);
  if (!HasHandedBack()) return;
  if (tree == kUsersTree) {
    ReadFolders({kGroupsFolder, kOwnFolder, kAllFolder}, now);
  } else {
    ReadFolders({kMembersFolder, kGroupPermissionsFolder}, now);
  }
  if (tree == kUsersTree && target_.account == walk_.window.accounts.adminUserId) {
    return FinishEditOfAdmin(now);
  }
  const DialogState& dialog = actor_.Last();
  const std::wstring name(data::Trim(dialog.name));
  const std::wstring addition(data::Trim(dialog.addition));
  expected_.trees.SetText(tree, target_.account, NodeText(name, addition),
                          (tree == kUsersTree ? now.users : now.groups).at(target_.account).name);
  // Until it is read again, the node shows what was typed, without blanks around it and unmapped.
  expected_.differing.insert(Keys::Account(tree, target_.account));
  expected_.trees.ReadLinksOfAll(OtherTree(tree), now);
}

// Neither the text of "Admin" nor the groups tree follows his editing.
void CommandRun::FinishEditOfAdmin(const Tables& now) {
  for (const auto& [id, record] : now.groups) {
    expected_.differing.insert(Keys::MemberOfGroup(id, target_.account));
  }
}

void CommandRun::FinishLink(const Command& command, const Tables& now) {
  const int folder = command.section == Section::kFirstLinks ? 0 : 1;
  if (command.Removes()) {
    if (!confirmed_ || reported_) return;
    FinishRemoval(folder, now);
  } else {
    if (!HasHandedBack()) return;
    ReadFolders({folder}, now);
  }
  if (target_.tree == kUsersTree) {
    ReadFolders({kAllFolder}, now);
    if (!command.Removes() && folder == kGroupsFolder) {
      expected_.trees.ReadLinksOfAll(kGroupsTree, now);
    }
  } else if (folder == kMembersFolder) {
    expected_.trees.ReadLinksOfAll(kUsersTree, now);
  } else {
    expected_.trees.ReadAllPermissions(now);
  }
}

// The leaf goes; where somebody else had taken the link already, its folder is read again.
void CommandRun::FinishRemoval(int folder, const Tables& now) {
  const bool existed = Existed(folder);
  EXPECT_EQ(told_, !existed);
  if (!existed) return ReadFolders({folder}, now);
  expected_.trees.RemoveLeaf(target_.tree, target_.account, folder, target_.leaf);
  if (target_.tree == kUsersTree && folder == kGroupsFolder) {
    // The group goes on listing the user until its members are read again.
    const std::wstring key = Keys::MemberOfGroup(target_.leaf, target_.account);
    expected_.differing.insert(key);
    if (!expected_.isChangedOutside && expected_.trees.Lines(kGroupsTree).contains(key)) {
      EXPECT_NE(walk_.Nodes(kGroupsTree).Find(key), controls::kNoNode);
    }
  }
}

bool CommandRun::Existed(int folder) const {
  const std::pair link(target_.account, target_.leaf);
  if (folder == 1) {
    return (target_.tree == kUsersTree ? before_.userPermissions : before_.groupPermissions)
        .contains(link);
  }
  return before_.memberships.contains(
      target_.tree == kUsersTree ? link : std::pair(target_.leaf, target_.account));
}

void CommandRun::ReadFolders(std::initializer_list<int> folders, const Tables& now) {
  for (const int folder : folders)
    expected_.trees.ReadFolder(target_.tree, target_.account, folder, now);
}

// Who gets his first children may be open or closed.
void CommandRun::CheckKept() const {
  for (const int tree : kTrees) {
    const controls::TreeNodes& nodes = walk_.Nodes(tree);
    const auto expect = [&](const Walk::KeySet& keys, bool open) {
      for (const std::wstring& key : keys) {
        const controls::NodeId node = nodes.Find(key);
        if (node == controls::kNoNode || !nodes.HasChildren(node)) continue;
        EXPECT_EQ(nodes.Expanded(node), open) << data::ToUtf8(key);
      }
    };
    expect(open_[tree], true);
    expect(closed_[tree], false);
    if (nodes.Find(selected_[tree]) != controls::kNoNode) {
      EXPECT_EQ(walk_.SelectedKey(tree), selected_[tree]);
    }
  }
}

}  // namespace test_support
