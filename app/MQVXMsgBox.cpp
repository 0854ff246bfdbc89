#include "app/MQVXMsgBox.h"

#include "app/StringIds.h"
#include "controls/Desktop.h"

namespace app {

int MQVXMsgBox::Show() {
  return global_.desktop.MsgBox(prompt_, style_, global_.LoadResString(kTitle));
}

int MQVXMsgBox::ShowText(const std::wstring& prompt) {
  prompt_ = prompt;
  style_ = controls::kInformation;
  return Show();
}

std::wstring MQVXMsgBox::TwoLines(int first, int second) const {
  return global_.LoadResString(first) + L"\r\n" + global_.LoadResString(second);
}

int MQVXMsgBox::AskDiscardChanges() {
  prompt_ = TwoLines(kDiscard1, kDiscard2);
  style_ = controls::kYesNo | controls::kExclamation | controls::kDefaultButton2;
  return Show();
}

int MQVXMsgBox::AskYesNo(const std::wstring& prompt) {
  prompt_ = prompt;
  style_ = controls::kYesNo | controls::kCritical | controls::kDefaultButton2;
  return Show();
}

int MQVXMsgBox::AskLoseOwnAccess() {
  prompt_ = TwoLines(kOwnAccess1, kOwnAccess2) + L"\r\n" + global_.LoadResString(kDiscard2);
  style_ = controls::kYesNo | controls::kExclamation | controls::kDefaultButton2;
  return Show();
}

int MQVXMsgBox::ShowInformation(const std::wstring& prompt) {
  return ShowText(prompt);
}

int MQVXMsgBox::ShowPasswordMismatch() {
  return ShowText(TwoLines(kMismatch1, kMismatch2));
}

int MQVXMsgBox::ShowPasswordTooLong() {
  return ShowText(global_.LoadResString(kPasswordTooLong));
}

int MQVXMsgBox::ShowPasswordTooShort() {
  return ShowText(global_.LoadResString(kPasswordTooShort));
}

int MQVXMsgBox::ShowNotice(const std::wstring& prompt) {
  return ShowText(prompt);
}

int MQVXMsgBox::ShowCannotDeleteUser(const std::wstring& name) {
  return ShowText(global_.LoadResString(kCannotDelete) + L" '" + name + L"' " +
                  global_.LoadResString(kTheUser));
}

int MQVXMsgBox::ShowCannotRemoveUserFromGroup(const std::wstring& name) {
  return ShowText(global_.LoadResString(kCannotRemoveUserFrom) + L" '" + name + L"' " +
                  global_.LoadResString(kTheGroup));
}

}  // namespace app
