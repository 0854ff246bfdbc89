#include "dialogs/AccountNames.h"

#include <algorithm>
#include <string>

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
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

// Two texts have one sort key when they differ in nothing but case. Keys take long for ten thousand
// names, and those of plain letters and digits, or that begin with different ones, can be told
// apart without them. Other characters may count for several, or for none; and languages differ in
// what they take for one letter.
class SameButForCase {
 public:
  explicit SameButForCase(std::wstring_view name)
      : name_(name), isPlain_(IsPlain(name)), key_(controls::SortKey(name)) {}

  bool operator()(std::wstring_view other) const {
    if (BeginsOtherwise(other)) return false;
    if (isPlain_ && IsPlain(other) && !std::ranges::equal(name_, other, {}, Folded, Folded)) {
      return false;
    }
    return controls::SortKey(other) == key_;
  }

 private:
  static wchar_t Folded(wchar_t character) {
    return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A')
                                                  : character;
  }
  static bool IsPlainCharacter(wchar_t character) {
    const wchar_t folded = Folded(character);
    return (folded >= L'A' && folded <= L'Z') || (folded >= L'0' && folded <= L'9');
  }
  static bool IsPlain(std::wstring_view text) {
    return std::ranges::all_of(text, IsPlainCharacter);
  }
  bool BeginsOtherwise(std::wstring_view other) const {
    return !name_.empty() && !other.empty() && IsPlainCharacter(name_.front()) &&
           IsPlainCharacter(other.front()) && Folded(name_.front()) != Folded(other.front());
  }

  std::wstring_view name_;
  bool isPlain_;
  std::string key_;
};

// A protected group has two names: the one it is stored under and the one it is shown under.
bool IsNameOf(const controls::TreeNodes& nodes, controls::NodeId account,
              const SameButForCase& isSame) {
  const std::wstring& text = nodes.Text(account);
  const std::wstring stored = nodes.StoredName(account);
  const std::wstring_view shown = NameInText(text);
  return isSame(shown) || (shown != stored && isSame(data::Trim(stored)));
}

bool IsTaken(const controls::TreeNodes& nodes, std::wstring_view name, std::int32_t ownId,
             std::int32_t (*idOfKey)(std::wstring_view key)) {
  const controls::NodeId root = nodes.Root();
  if (root == controls::kNoNode) return false;
  const SameButForCase isSame(name);
  for (controls::NodeId node = nodes.AnyChild(root); node != controls::kNoNode;
       node = nodes.OtherSibling(node)) {
    if (IsNameOf(nodes, node, isSame) && idOfKey(nodes.Key(node)) != ownId) return true;
  }
  return false;
}

bool TellIf(bool taken, const app::mGlobal& global, int message) {
  if (taken) {
    app::MQVXMsgBox(global).ShowInformation(global.LoadResString(message));
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
