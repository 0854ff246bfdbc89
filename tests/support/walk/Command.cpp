#include "tests/support/walk/Command.h"

#include "data/NodeKey.h"
#include "data/Text.h"
#include "tests/support/keys/Keys.h"

namespace test_support {
namespace {

using IdSet = std::set<std::int32_t>;

std::wstring Trimmed(const std::wstring& text) {
  return std::wstring(data::Trim(text));
}

void SetLinks(Tables::Links& links, std::int32_t owner, const IdSet& ids) {
  std::erase_if(links, [owner](const auto& link) { return link.first == owner; });
  for (const std::int32_t id : ids) links.emplace(owner, id);
}

void SetMembers(Tables::Links& links, std::int32_t group, const IdSet& users) {
  std::erase_if(links, [group](const auto& link) { return link.second == group; });
  for (const std::int32_t user : users) links.emplace(user, group);
}

void WriteUser(Tables& tables, bool isNew, std::int32_t id, const DialogState& dialog) {
  AccountRecord& record = tables.users[id];
  record.name = Trimmed(dialog.name);
  record.addition = Trimmed(dialog.addition);
  // An edited full name is stored as it was typed.
  if (!isNew && !record.addition.empty()) record.addition = dialog.addition;
  SetLinks(tables.memberships, id, dialog.first);
  SetLinks(tables.userPermissions, id, dialog.second);
}

void WriteGroup(Tables& tables, bool isNew, std::int32_t id, const DialogState& dialog) {
  AccountRecord& record = tables.groups[id];
  record.name = Trimmed(dialog.name);
  for (const wchar_t* kept : {L"Administrators", L"Everyone"}) {
    if (record.name == tables.Display(104, kept)) record.name = kept;
  }
  record.addition = Trimmed(dialog.addition);
  if (!record.addition.empty()) {
    record.addition = isNew ? dialog.addition : tables.Display(0, record.addition);
  }
  SetMembers(tables.memberships, id, dialog.first);
  SetLinks(tables.groupPermissions, id, dialog.second);
}

}  // namespace

std::string Name(int tree, const Command& command) {
  constexpr const char* kSections[] = {"account", "first links", "second links"};
  constexpr const char* kVerbs[] = {"edit", "delete", "new", "assign", "remove"};
  return std::string(tree == kUsersTree ? "users, " : "groups, ") +
         kSections[static_cast<int>(command.section)] + ": " +
         kVerbs[static_cast<int>(command.verb)];
}

Target ReadTarget(int tree, const std::wstring& key) {
  Target target{tree, key, data::GetTypeNode(key)};
  if (target.tag == L"RT") return target;
  target.account = tree == kUsersTree ? data::GetUserID(key) : data::GetGroupID(key);
  if (target.tag == L"GU") target.leaf = data::GetGroupID(key);
  if (target.tag == L"UG") target.leaf = data::GetUserID(key);
  if (target.tag[0] == L'P') target.leaf = data::GetPermID(key);
  return target;
}

std::optional<Command> CommandOfDelete(const Target& target) {
  if (target.tag == L"US" || target.tag == L"GR") return Command{Section::kAccount, Verb::kDelete};
  if (target.tag == L"GU" || target.tag == L"UG") {
    return Command{Section::kFirstLinks, Verb::kRemove};
  }
  if (target.tag == L"PU" || target.tag == L"PG" || target.tag == L"PA") {
    return Command{Section::kSecondLinks, Verb::kRemove};
  }
  return std::nullopt;
}

Tables AfterDialog(const Command& command, const Target& target, std::int32_t id,
                   const DialogState& dialog, const Tables& before) {
  Tables after = before;
  if (command.section == Section::kAccount) {
    const bool isNew = command.verb == Verb::kNew;
    target.tree == kUsersTree ? WriteUser(after, isNew, id, dialog)
                              : WriteGroup(after, isNew, id, dialog);
  } else if (command.section == Section::kSecondLinks) {
    Tables::Links& links =
        target.tree == kUsersTree ? after.userPermissions : after.groupPermissions;
    for (const std::int32_t permission : dialog.first) links.emplace(id, permission);
  } else if (target.tree == kUsersTree) {
    for (const std::int32_t group : dialog.first) after.memberships.emplace(id, group);
  } else if (dialog.first.empty()) {
    SetMembers(after.memberships, id, {});
  } else {
    for (const std::int32_t user : dialog.first) after.memberships.emplace(user, id);
  }
  return after;
}

std::int32_t NewIdentifier(int tree, const Tables& before, const Tables& after) {
  const Tables::Accounts& known = tree == kUsersTree ? before.users : before.groups;
  for (const auto& [id, record] : tree == kUsersTree ? after.users : after.groups) {
    if (!known.contains(id)) return id;
  }
  return -1;
}

}  // namespace test_support
