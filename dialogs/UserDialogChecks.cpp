// What the user dialog asks of a name and of a password, while they are typed and before they are
// saved.

#include <algorithm>
#include <limits>

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/SecretText.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/SelectAll.h"
#include "dialogs/UserDialog.h"

namespace dialogs {
namespace {

constexpr std::size_t kShortestPassword = 6;
constexpr std::int16_t kLongestPassword = 20;

// A length as the check takes it. What does not fit is longer than any password, and stays so.
std::int16_t Length(std::wstring_view text) {
  constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(text.size(), kMost));
}

}  // namespace

void UserDialog::SetPasswordEvents() {
  for (controls::TextBox* box : {&txtPassword, &txtVerify}) {
    box->KeyPress = [this](wchar_t& character) {
      if (character != L' ') return;
      exchange_.global.desktop.Beep();
      character = 0;
    };
  }
  txtPassword.Change = [this] { txtPassword_Change(); };
  txtVerify.Change = [this] { txtVerify_Change(); };
}

void UserDialog::txtPassword_Change() {
  bChanged = true;
  const data::SecretText typed(txtPassword.Text());
  if (!CheckPasswordLenth(Length(typed))) CutPassword(txtPassword);
}

void UserDialog::txtVerify_Change() {
  bChanged = true;
  const data::SecretText typed(txtVerify.Text());
  if (!CheckPasswordLenth(Length(Counted(typed)))) CutPassword(txtVerify);
}

bool UserDialog::CheckPasswordLenth(std::int16_t IntLen) {
  return app::ReportedOr(exchange_.global, L"CheckPasswordLenth", false, [&] {
    if (IntLen <= kLongestPassword) return true;
    exchange_.global.desktop.Beep();
    app::MQVXMsgBox(exchange_.global).ShowPasswordTooLong();
    return false;
  });
}

void UserDialog::CutPassword(controls::TextBox& box) {
  const data::SecretText typed(box.Text());
  const data::SecretText kept(typed.Text().substr(0, kLongestPassword));
  box.SetText(kept.Text());
  box.SetSelStart(0);
  box.SetSelLength(static_cast<int>(Counted(kept).size()));
}

bool UserDialog::IsNameGiven() {
  const std::wstring name = txtUserName.Text();
  if (!data::Trim(name).empty()) return true;
  app::MQVXMsgBox(exchange_.global).ShowNotice(Text(app::kUserNameMissing));
  ReturnToName();
  return false;
}

bool UserDialog::IsPasswordLongEnough() {
  const data::SecretText typed(txtPassword.Text());
  if (data::Trim(typed).size() >= kShortestPassword) return true;
  exchange_.global.desktop.Beep();
  app::MQVXMsgBox(exchange_.global).ShowPasswordTooShort();
  ReturnToPassword();
  return false;
}

bool UserDialog::IsPasswordConfirmed() {
  const data::SecretText typed(txtPassword.Text());
  const data::SecretText verified(txtVerify.Text());
  if (typed.Text() == verified.Text()) return true;
  app::MQVXMsgBox(exchange_.global).ShowPasswordMismatch();
  ReturnToPassword();
  return false;
}

bool UserDialog::IsNameFree(std::int32_t userId) {
  const std::wstring name = txtUserName.Text();
  const bool taken =
      IsDuplicateUser(exchange_.global, exchange_.usersTree.Nodes(), data::Trim(name), userId);
  if (taken) ReturnToName();
  return !taken;
}

void UserDialog::ReturnToName() {
  txtUserName.SetFocus();
  SelectAll(txtUserName);
}

void UserDialog::ReturnToPassword() {
  txtPassword.SetFocus();
  txtVerify.SetText({});
  txtPassword.SetText({});
}

}  // namespace dialogs
