#include "dialogs/AccountNames.h"

#include <string>

#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "controls/SortKey.h"
#include "data/NodeKey.h"
#include "data/Text.h"

namespace dialogs {
namespace {

// The account's name as its node shows it: the text before the parentheses.
std::wstring_view NameInText(std::wstring_view text) {
  text = data::Trim(text);
  return data::Trim(text.substr(0, text.find(L'(')));
}

// Two texts have one sort key when they differ in nothing but case.
bool IsTaken(const controls::TreeNodes& nodes, std::wstring_view name, std::int32_t ownId,
             std::int32_t (*idOfKey)(std::wstring_view key)) {
  const int root = nodes.Root();
  if (root == controls::kNoNode) return false;
  const std::string wanted = controls::SortKey(name);
  for (int node = nodes.FirstChild(root); node != controls::kNoNode; node = nodes.Next(node)) {
    if (controls::SortKey(NameInText(nodes.Text(node))) != wanted) continue;
    if (idOfKey(nodes.Key(node)) != ownId) return true;
  }
  return false;
}

bool TellIf(bool taken, const app::mGlobal& global, int message) {
  if (taken) {
    global.desktop.MsgBox(global.LoadResString(message), controls::kInformation,
                          global.LoadResString(app::kTitle));
  }
  return taken;
}

}  // namespace

bool IsDuplicateUser(const app::mGlobal& global, const controls::TreeNodes& usersTree,
                     std::wstring_view name, std::int32_t userId) {
  return TellIf(IsTaken(usersTree, name, userId, data::GetUserID), global, app::kUserExists);
}

bool IsDuplicateGroup(const app::mGlobal& global, const controls::TreeNodes& groupsTree,
                      std::wstring_view name, std::int32_t groupId) {
  return TellIf(IsTaken(groupsTree, name, groupId, data::GetGroupID), global, app::kGroupExists);
}

bool IsReservedGroupName(std::wstring_view name) {
  return name == L"Administrators" || name == L"Everyone";
}

}  // namespace dialogs
