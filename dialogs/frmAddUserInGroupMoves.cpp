// How the chooser finds users by the first letters of their names, and moves them.

#include <algorithm>

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "controls/SortKey.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"

namespace dialogs {

using controls::ListBox;

namespace {

// The key of a name, with a sign behind it that puts it behind every beginning of it.
std::string KeyBehind(const std::wstring& name) {
  return controls::SortKey(std::wstring(data::Trim(name)) + L"*");
}

// The first item that begins with the typed text, or else the first that follows it. Where none
// follows, the last one that at least begins with the same letter: who types "mz" is shown the end
// of the names in M. -1 for none.
int FindByFirstLetters(const ListBox& list, std::wstring_view typed) {
  const std::string wanted = controls::SortKey(typed);
  const std::string letter = controls::SortKey(typed.substr(0, 1));
  int found = -1;
  for (int i = 0; i < list.ListCount(); ++i) {
    const std::wstring name = list.List(i);
    if (KeyBehind(name) > wanted) return i;
    if (controls::SortKey(data::Trim(name).substr(0, 1)) == letter) found = i;
  }
  return found;
}

// Adds items to the end of a list and selects them alone.
void AddSelected(ListBox& list, const std::vector<ListItem>& items) {
  const ListBox::Update update(list);
  for (int i = 0; list.SelCount() > 0; ++i) list.SetSelected(i, false);
  for (const ListItem& item : items) {
    list.SetSelected(list.AddItem(item.text, item.itemData), true);
  }
  list.SetListIndex(list.ListCount() - 1);
}

}  // namespace

// A list with a single item is never searched.
void frmAddUserInGroup::txtUserName_Change(int Index) {
  try {
    ListBox& list = List1[Index];
    if (list.ListCount() < 2) return;
    const std::wstring text = txtUserName[Index].Text();
    const int found = FindByFirstLetters(list, data::Trim(text));
    if (found >= 0) SelectOnly(list, found);
  } catch (...) {
    app::ReportError(exchange_.global, L"txtUserName_Change");
  }
}

void frmAddUserInGroup::cmdBtn_Click(int Index) {
  try {
    switch (Index) {
      case 1:
        MoveSelected(1);
        break;
      case 2:
        AddAllItem();
        break;
      case 3:
        MoveSelected(2);
        break;
      case 4:
        RemoveAllItem();
        break;
    }
    List1_Click();
  } catch (...) {
    app::ReportError(exchange_.global, L"cmdBtn_Click");
  }
}

void frmAddUserInGroup::AddAllItem() {
  try {
    Move(1, std::vector<bool>(static_cast<std::size_t>(List1[1].ListCount()), true));
  } catch (...) {
    app::ReportError(exchange_.global, L"AddAllItem");
  }
}

void frmAddUserInGroup::RemoveAllItem() {
  try {
    Move(2, std::vector<bool>(static_cast<std::size_t>(List1[2].ListCount()), true));
  } catch (...) {
    app::ReportError(exchange_.global, L"RemoveAllItem");
  }
}

void frmAddUserInGroup::MoveSelected(int from) {
  std::vector<bool> chosen(static_cast<std::size_t>(List1[from].ListCount()));
  for (int i = 0; i < List1[from].ListCount(); ++i) {
    chosen[static_cast<std::size_t>(i)] = List1[from].Selected(i);
  }
  Move(from, chosen);
}

// Moves the chosen items, in their order, to the end of the other list and selects them there. What
// is left keeps a selection as long as there is something to select. The source is made anew when
// several items leave it: taken out one by one, thousands of them would move the others each time.
void frmAddUserInGroup::Move(int from, const std::vector<bool>& chosen) {
  ListBox& source = List1[from];
  const std::vector<ListItem> users = Items(source);
  std::vector<ListItem> moved;
  std::vector<ListItem> left;
  int selected = -1;  // where the first item that moves stood
  int kept = -1;
  for (std::size_t i = 0; i < users.size(); ++i) {
    const bool stays = !chosen[i] || IsKept(from, users[i]);
    if (stays && chosen[i]) kept = static_cast<int>(left.size());
    if (!stays && moved.empty()) selected = static_cast<int>(i);
    (stays ? left : moved).push_back(users[i]);
  }
  if (!moved.empty()) {
    const ListBox::Update update(source);
    if (moved.size() == 1) {
      source.RemoveItem(selected);
    } else {
      SetItems(source, left);
    }
    SelectOnly(source, kept >= 0 ? kept : std::min(selected, source.ListCount() - 1));
    AddSelected(List1[3 - from], moved);
    bChanged = true;
  }
  if (kept >= 0) {
    app::MQVXMsgBox(exchange_.global)
        .ShowCannotRemoveUserFromGroup(left[static_cast<std::size_t>(kept)].text);
  }
}

// Whether a user may not leave a list for the other one: Admin, where the group must keep him.
bool frmAddUserInGroup::IsKept(int from, const ListItem& user) const {
  return from == 2 && !IsRemoveAdmin && data::IsProtectedId(adminUserId, user.itemData);
}

}  // namespace dialogs
