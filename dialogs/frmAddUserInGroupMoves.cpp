// How the chooser finds users by the first letters of their names, and moves them.

#include <algorithm>

#include "app/MQVXMsgBox.h"
#include "data/Collation.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"

namespace dialogs {

using controls::ListBox;

namespace {

// The key of a name with a sign after it, so that the name comes after every beginning of it.
std::string KeyAfter(const std::wstring& name) {
  return data::CollationKey(std::wstring(data::Trim(name)) + L"*");
}

// The first item that begins with the typed text, or else the first that follows it. Where none
// follows, the last one that at least begins with the same letter: a user who types "mz" is shown
// the end of the names in M. -1 for none.
int FindByFirstLetters(const ListBox& list, std::wstring_view typed) {
  const std::string wanted = data::CollationKey(typed);
  const std::string letter = data::CollationKey(typed.substr(0, 1));
  int found = -1;
  for (int i = 0; i < list.ListCount(); ++i) {
    const std::wstring name = list.List(i);
    if (KeyAfter(name) > wanted) return i;
    if (data::CollationKey(data::Trim(name).substr(0, 1)) == letter) found = i;
  }
  return found;
}

// Adds items to the end of a list and selects them alone.
void AddSelected(ListBox& list, const std::vector<ListItem>& items) {
  const ListBox::Update update(list);
  SelectNone(list);
  for (const ListItem& item : items) {
    list.SetSelected(list.AddItem(item.text, item.itemData), true);
  }
  list.SetListIndex(list.ListCount() - 1);
}

}  // namespace

// Enter in a search box moves the user that was found; in an empty one, and everywhere else, it is
// OK.
void frmAddUserInGroup::ChooseDefaultButton() {
  for (const List index : {kOthers, kMembers}) {
    const std::wstring text = txtUserName[index].Text();
    if (txtUserName[index].HasFocus() && !data::Trim(text).empty()) {
      SetDefaultButton(cmdBtn[MoveButton(index)]);
      return;
    }
  }
  SetDefaultButton(cmdOK);
}

// A list with a single item is never searched.
void frmAddUserInGroup::txtUserName_Change(List index) {
  ChooseDefaultButton();
  static_cast<void>(Reported(L"txtUserName_Change", [&] {
    ListBox& list = List1[index];
    if (list.ListCount() < 2) return;
    const std::wstring text = txtUserName[index].Text();
    const int found = FindByFirstLetters(list, data::Trim(text));
    if (found >= 0) SelectOnly(list, found);
  }));
}

void frmAddUserInGroup::cmdBtn_Click(int Index) {
  static_cast<void>(Reported(L"cmdBtn_Click", [&] {
    switch (Index) {
      case kAdd:
        MoveSelected(kOthers);
        break;
      case kAddAll:
        MoveAll(L"AddAllItem", kOthers);
        break;
      case kRemove:
        MoveSelected(kMembers);
        break;
      case kRemoveAll:
        MoveAll(L"RemoveAllItem", kMembers);
        break;
    }
    List1_Click();
  }));
}

void frmAddUserInGroup::MoveAll(const wchar_t* procedure, List from) {
  static_cast<void>(Reported(procedure, [&] {
    Move(from, std::vector<bool>(static_cast<std::size_t>(List1[from].ListCount()), true));
  }));
}

void frmAddUserInGroup::MoveSelected(List from) {
  std::vector<bool> chosen(static_cast<std::size_t>(List1[from].ListCount()));
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    chosen[i] = List1[from].Selected(static_cast<int>(i));
  }
  Move(from, chosen);
}

// Moves the chosen items, in their order, to the end of the other list and selects them there.
void frmAddUserInGroup::Move(List from, const std::vector<bool>& chosen) {
  const Parting users = Part(from, chosen);
  if (!users.moved.empty()) {
    TakeOut(List1[from], users);
    AddSelected(List1[OtherList(from)], users.moved);
    bChanged = true;
  }
  if (users.refused >= 0) {
    app::MQVXMsgBox(exchange_.global)
        .ShowCannotRemoveUserFromGroup(users.left[static_cast<std::size_t>(users.refused)].text);
  }
}

frmAddUserInGroup::Parting frmAddUserInGroup::Part(List from,
                                                   const std::vector<bool>& chosen) const {
  Parting parting;
  const std::vector<ListItem> users = Items(List1[from]);
  for (std::size_t i = 0; i < users.size(); ++i) {
    const bool isRefused = chosen[i] && IsKept(from, users[i]);
    if (chosen[i] && !isRefused) {
      if (parting.moved.empty()) parting.firstMoved = static_cast<int>(i);
      parting.moved.push_back(users[i]);
    } else {
      if (isRefused) parting.refused = static_cast<int>(parting.left.size());
      parting.left.push_back(users[i]);
    }
  }
  return parting;
}

// What is left keeps a selection as long as there is something to select: the user who was refused,
// or else the one after the first that is gone. The list is filled again when several items leave
// it: taken out one by one, thousands of them would move the others each time.
void frmAddUserInGroup::TakeOut(ListBox& list, const Parting& users) {
  const ListBox::Update update(list);
  if (users.moved.size() == 1) {
    list.RemoveItem(users.firstMoved);
  } else {
    SetItems(list, users.left);
  }
  SelectOnly(list,
             users.refused >= 0 ? users.refused : std::min(users.firstMoved, list.ListCount() - 1));
}

// Whether a user may not leave a list for the other one: Admin, where the group must keep him.
bool frmAddUserInGroup::IsKept(List from, const ListItem& user) const {
  return from == kMembers && !IsRemoveAdmin && data::IsProtectedId(adminUserId, user.itemData);
}

}  // namespace dialogs
