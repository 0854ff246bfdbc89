#include "tests/support/walk/DialogActor.h"

#include "data/Text.h"
#include "dialogs/GroupDialog.h"
#include "dialogs/UserDialog.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmListItem.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/lists/Lists.h"

namespace test_support {
namespace {

// What administrators type, and what they had better not.
constexpr const wchar_t* kNames[] = {
    L"Zola",
    L"zola",
    L"  Marie Curie ",
    L"Martin",
    L"d'Artagnan",
    L"x'; DELETE FROM QRUSGP; --",
    L"x', VFLG = 'D' WHERE USERID = 1 --",
    L"Membres",
    L"Membre du Groupe",
    L"Droits Utilisateur",
    L"Droits du Groupe",
    L"Ensemble des Droits",
    L"Utilisateurs\\Admin",
    L"Labo (Mesures)",
    L"(",
    L"100 % \xD83D\xDE00",
    L"\x00C9ric L\x00F3pez",
    L"Admin",
    L"Administrators",
    L"Administrateurs",
    L"Everyone",
    L"Tout le monde",
    L"All users",
    L"",
    L"   ",
    L"%1 \\T \\U12 \\G1 \\P7",
};

constexpr const wchar_t* kPasswords[] = {L"secret1", L"secret2",  L"court",
                                         L"*",       L"s*1*****", L"vingt-et-un-caracteres"};

std::set<std::int32_t> Set(const Ids& ids) {
  return {ids.begin(), ids.end()};
}

}  // namespace

void DialogActor::Act(controls::Form& form) {
  ++depth_;
  note_("  dialog \"" + data::ToUtf8(form.Caption()) + "\"");
  for (int left = 1 + dice_.Below(12); left > 0 && form.IsLoaded(); --left) {
    Remember(form);
    Gesture(form);
  }
  if (form.IsLoaded()) {
    Remember(form);
    if (!dice_.OneIn(3)) PressOk(form);
  }
  Leave(form);
  --depth_;
}

// Escape and the close box may be refused; Yes to the question lets one of them through.
void DialogActor::Leave(controls::Form& form) {
  insists_ = true;
  for (int tries = 0; tries < 3 && form.IsLoaded(); ++tries) {
    note_("  leave");
    if (tries == 1 || !user_.Try().PressKey(form, kKeyEscape)) user_.Try().Close(form);
  }
  insists_ = false;
}

void DialogActor::Remember(controls::Form& form) {
  if (depth_ > 1) return;
  last_ = {};
  if (auto* user = dynamic_cast<dialogs::UserDialog*>(&form)) {
    last_ = {user->txtUserName.Text(), user->txtFullName.Text(),
             Set(SelectedIds(user->List1[kGroupsList])),
             Set(SelectedIds(user->List1[kPermissionsList]))};
  } else if (auto* group = dynamic_cast<dialogs::GroupDialog*>(&form)) {
    last_ = {group->txtGroupName.Text(), group->txtDesc.Text(),
             Set(IdsOf(group->List1[kMembersList])),
             Set(SelectedIds(group->List1[kPermissionsList]))};
  } else if (auto* chooser = dynamic_cast<dialogs::frmAddUserInGroup*>(&form)) {
    last_.first = Set(IdsOf(chooser->List1[kInsideList]));
  } else if (auto* list = dynamic_cast<dialogs::frmListItem*>(&form)) {
    last_.first = Set(SelectedIds(list->List1));
  }
}

void DialogActor::Gesture(controls::Form& form) {
  if (dice_.OneIn(8) && PressSomeKey(form)) return;
  if (auto* user = dynamic_cast<dialogs::UserDialog*>(&form)) {
    InUserDialog(*user);
  } else if (auto* group = dynamic_cast<dialogs::GroupDialog*>(&form)) {
    InGroupDialog(*group);
  } else if (auto* chooser = dynamic_cast<dialogs::frmAddUserInGroup*>(&form)) {
    InAddUsers(*chooser);
  } else if (auto* list = dynamic_cast<dialogs::frmListItem*>(&form)) {
    InListItem(*list);
  }
}

bool DialogActor::PressSomeKey(controls::Form& form) {
  constexpr int kKeys[] = {kKeyTab,          kKeyEnter,        kKeyEscape,          kKeySpace,
                           controls::kKeyF1, controls::kKeyF5, controls::kKeyDelete};
  const int key = dice_.Pick(kKeys);
  note_("  key " + std::to_string(key));
  return user_.Try().PressKey(form, key);
}

void DialogActor::InUserDialog(dialogs::UserDialog& dialog) {
  switch (dice_.Below(10)) {
    case 0:
      return Enter(dialog.txtUserName, "name", SomeName());
    case 1:
      return Enter(dialog.txtFullName, "full name", SomeName());
    case 2: {
      const std::wstring password = dice_.Pick(kPasswords);
      Enter(dialog.txtPassword, "password", password);
      return Enter(dialog.txtVerify, "the same again", password);
    }
    case 3:
      return Enter(dice_.OneIn(2) ? dialog.txtPassword : dialog.txtVerify, "a password alone",
                   dice_.Pick(kPasswords));
    case 4:
    case 5:
      return ToggleSome(dialog.List1[kGroupsList], "group");
    case 6:
    case 7:
      return ToggleSome(dialog.List1[kPermissionsList], "permission");
    case 8:
      return ClickSome(dialog.cmdBtn[dice_.Pick(dialog.cmdBtn.Numbers())], "all or none");
    default:
      return PressOk(dialog);
  }
}

void DialogActor::InGroupDialog(dialogs::GroupDialog& dialog) {
  switch (dice_.Below(9)) {
    case 0:
    case 1:
      return Enter(dialog.txtGroupName, "name", SomeName());
    case 2:
      return Enter(dialog.txtDesc, "description", SomeName());
    case 3:
      return ChooseSome(dialog.List1[kMembersList], "member");
    case 4:
    case 5:
      return ToggleSome(dialog.List1[kPermissionsList], "permission");
    case 6:
      return ClickSome(dialog.cmdBtn[kAssignMembersButton], "assign");
    case 7:
      return ClickSome(dialog.cmdBtn[dice_.Pick(dialog.cmdBtn.Numbers())], "button");
    default:
      return PressOk(dialog);
  }
}

void DialogActor::InAddUsers(dialogs::frmAddUserInGroup& dialog) {
  const int side = 1 + dice_.Below(2);
  controls::ListBox& list = dialog.List1[side];
  switch (dice_.Below(7)) {
    case 0:
      return Enter(dialog.txtUserName[side], "letters", std::wstring(SomeName()).substr(0, 2));
    case 1:
      return ChooseSome(list, "user");
    case 2:
      return ToggleSome(list, "another user");
    case 3:
      note_("  double-click");
      user_.Try().DoubleClick(list, dice_.Below(list.ListCount()));
      return;
    case 4:
    case 5:
      return ClickSome(dialog.cmdBtn[dice_.Pick(dialog.cmdBtn.Numbers())], "move");
    default:
      return PressOk(dialog);
  }
}

void DialogActor::InListItem(dialogs::frmListItem& dialog) {
  switch (dice_.Below(6)) {
    case 0:
      return ClickSome(dialog.cmdBtn[dice_.Below(2)], "all or none");
    case 1:
      return PressOk(dialog);
    default:
      return ToggleSome(dialog.List1, "item");
  }
}

void DialogActor::PressOk(controls::Form& form) {
  const auto press = [this](auto& dialog) { ClickSome(dialog.cmdOK, "OK"); };
  if (auto* user = dynamic_cast<dialogs::UserDialog*>(&form)) {
    // Mostly with passwords that pass, or little else would be saved.
    if (!dice_.OneIn(4)) {
      Enter(user->txtPassword, "password", L"secret1");
      Enter(user->txtVerify, "the same again", L"secret1");
    }
    press(*user);
  } else if (auto* group = dynamic_cast<dialogs::GroupDialog*>(&form)) {
    press(*group);
  } else if (auto* chooser = dynamic_cast<dialogs::frmAddUserInGroup*>(&form)) {
    press(*chooser);
  } else if (auto* list = dynamic_cast<dialogs::frmListItem*>(&form)) {
    press(*list);
  }
}

const wchar_t* DialogActor::SomeName() {
  return dice_.Pick(kNames);
}

void DialogActor::Enter(controls::TextBox& box, const char* which, const std::wstring& text) {
  note_(std::string("  type ") + which + " \"" + data::ToUtf8(text) + "\"");
  if (text.empty()) {
    // The whole text is selected when the box gets the focus. A single backspace at its end could
    // leave half a surrogate pair, which no database can store.
    user_.Try().PressKey(box.Owner(), kKeyTab);
    user_.Try().Type(box, L"\b");
  } else if (dice_.OneIn(2)) {
    user_.Try().Paste(box, text);
  } else {
    user_.Try().Type(box, text);
  }
}

void DialogActor::ToggleSome(controls::ListBox& list, const char* which) {
  const int item = dice_.Below(list.ListCount());
  note_(std::string("  toggle ") + which + " " + std::to_string(item));
  user_.Try().Toggle(list, item);
}

void DialogActor::ChooseSome(controls::ListBox& list, const char* which) {
  const int item = dice_.Below(list.ListCount());
  note_(std::string("  choose ") + which + " " + std::to_string(item));
  user_.Try().Choose(list, item);
}

void DialogActor::ClickSome(controls::CommandButton& button, const char* which) {
  note_(std::string("  click ") + which + " " + std::to_string(button.Id()));
  user_.Try().Click(button);
}

}  // namespace test_support
