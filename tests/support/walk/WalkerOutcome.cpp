// What a command of the random administrator has to leave behind, in the database and in the trees.

#include <gtest/gtest.h>

#include "data/Text.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/walk/Walker.h"

namespace test_support {

void Walker::StartCommand() {
  for (const int tree : {0, 1}) {
    open_[tree] = OpenKeys(tree);
    closed_[tree] = ClosedKeys(tree);
    selected_[tree] = SelectedKey(tree);
  }
  target_ = ReadTarget(Tab(), selected_[Tab()]);
  before_ = ReadTables(raw_);
  confirmed_ = reported_ = told_ = dialog_ = false;
}

// Without a dialog the window still has what an earlier one handed back.
bool Walker::HandedBack() const {
  return dialog_ && window_.exchange.AddNode;
}

void Walker::Follow(const Command& command) {
  const Tables now = ReadTables(raw_);
  const bool removes = command.index == 1;
  EXPECT_FALSE(removes && dialog_);
  EXPECT_FALSE(!removes && confirmed_);
  if (!removes) {
    CheckWritten(command, now);
  } else if (!confirmed_ || reported_) {
    EXPECT_EQ(now, before_);
  }
  if (now != before_) {
    written_.insert(std::to_string(target_.tree) + " " +
                    std::to_string(static_cast<int>(command.section)) + " " +
                    std::to_string(command.index));
  }
  if (command.section == Section::kAccount) {
    FollowAccount(command, now);
  } else {
    FollowLink(command, now);
  }
  Check(true);
}

// AddNode says whether the dialog has written all that stood in it. Without it nothing at all was
// written: no write of a walk fails.
void Walker::CheckWritten(const Command& command, const Tables& now) {
  if (!HandedBack()) {
    EXPECT_EQ(now, before_);
    return;
  }
  const bool isNew = command.section == Section::kAccount && command.index == 2;
  const std::int32_t id = isNew ? NewIdentifier(target_.tree, before_, now) : target_.account;
  Tables expected = AfterDialog(command, target_, id, actor_.Last(), before_);
  if (command.section == Section::kAccount && target_.tree == 0) {
    EXPECT_FALSE(now.users.at(id).password.empty());
    expected.users.at(id).password = now.users.at(id).password;
  }
  EXPECT_EQ(now.users, expected.users);
  EXPECT_EQ(now.groups, expected.groups);
  EXPECT_EQ(now.memberships, expected.memberships);
  EXPECT_EQ(now.userPermissions, expected.userPermissions);
  EXPECT_EQ(now.groupPermissions, expected.groupPermissions);
}

void Walker::FollowAccount(const Command& command, const Tables& now) {
  const int tree = target_.tree;
  if (command.index == 0) return FollowEdit(now);
  if (command.index == 1) {
    if (!confirmed_ || reported_) return;
    wanted_.Remove(tree, target_.account);
    wanted_.ReadLinksOfAll(1 - tree, now);
    return;
  }
  if (!HandedBack()) return;
  const std::int32_t id = NewIdentifier(tree, before_, now);
  wanted_.ReadAccount(tree, id, now);
  wanted_.ReadLinksOfAll(1 - tree, now);
  selected_[tree] = tree == 0 ? Keys::User(id) : Keys::Group(id);
  EXPECT_EQ(SelectedKey(tree), selected_[tree]);
  // The way to it is opened.
  closed_[tree].erase(Keys::Root());
}

void Walker::FollowEdit(const Tables& now) {
  const int tree = target_.tree;
  if (told_) {
    wanted_.Remove(tree, target_.account);
    wanted_.ReadLinksOfAll(1 - tree, now);
    return;
  }
  if (!HandedBack()) return;
  if (tree == 0) {
    ReadFolders({kGroupsFolder, kOwnFolder, kAllFolder}, now);
  } else {
    ReadFolders({kMembersFolder, kGroupPermissionsFolder}, now);
  }
  // Neither the text of "Admin" nor the groups tree follows his editing.
  if (tree == 0 && target_.account == window_.accounts.adminUserId) {
    for (const auto& [id, record] : now.groups) {
      meant_.insert(Keys::MemberOfGroup(id, target_.account));
    }
    return;
  }
  const DialogState& dialog = actor_.Last();
  const std::wstring name(data::Trim(dialog.name));
  const std::wstring addition(data::Trim(dialog.addition));
  wanted_.SetText(tree, target_.account, NodeText(name, addition),
                  (tree == 0 ? now.users : now.groups).at(target_.account).name);
  // The node shows what was typed, without blanks around it and unmapped, until it is read anew.
  meant_.insert(tree == 0 ? Keys::User(target_.account) : Keys::Group(target_.account));
  wanted_.ReadLinksOfAll(1 - tree, now);
}

void Walker::FollowLink(const Command& command, const Tables& now) {
  const int folder = command.section == Section::kFirstLinks ? 0 : 1;
  if (command.index == 1) {
    if (!confirmed_ || reported_) return;
    FollowRemoval(folder, now);
  } else {
    if (!HandedBack()) return;
    ReadFolders({folder}, now);
  }
  if (target_.tree == 0) {
    ReadFolders({kAllFolder}, now);
    if (command.index == 0 && folder == kGroupsFolder) wanted_.ReadLinksOfAll(1, now);
  } else if (folder == kMembersFolder) {
    wanted_.ReadLinksOfAll(0, now);
  } else {
    wanted_.ReadAllPermissions(now);
  }
}

// The leaf goes; where somebody else had taken the link already, its folder is read again.
void Walker::FollowRemoval(int folder, const Tables& now) {
  const bool existed = Existed(folder);
  EXPECT_EQ(told_, !existed);
  if (!existed) return ReadFolders({folder}, now);
  wanted_.RemoveLeaf(target_.tree, target_.account, folder, target_.leaf);
  if (target_.tree == 0 && folder == kGroupsFolder) {
    // The group goes on listing the user until its members are read again.
    const std::wstring key = Keys::MemberOfGroup(target_.leaf, target_.account);
    meant_.insert(key);
    if (!foreign_ && wanted_.Lines(1).contains(key)) {
      EXPECT_NE(NodesOf(1).Find(key), controls::kNoNode);
    }
  }
}

bool Walker::Existed(int folder) const {
  const std::pair link(target_.account, target_.leaf);
  if (folder == 1) {
    return (target_.tree == 0 ? before_.userPermissions : before_.groupPermissions).contains(link);
  }
  return before_.memberships.contains(target_.tree == 0 ? link
                                                        : std::pair(target_.leaf, target_.account));
}

void Walker::ReadFolders(std::initializer_list<int> folders, const Tables& now) {
  for (const int folder : folders) wanted_.ReadFolder(target_.tree, target_.account, folder, now);
}

}  // namespace test_support
