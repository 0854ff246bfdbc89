#pragma once

#include <string>

#include "app/mGlobal.h"

namespace app {

// The program's ready-made message boxes, all titled with the program's name. Each answers with the
// button pressed (controls::MsgBoxResult); what asks yes or no goes on only on Yes.
class MQVXMsgBox {
 public:
  explicit MQVXMsgBox(const mGlobal& global) : global_(global) {}

  int AskDiscardChanges();
  int AskYesNo(const std::wstring& prompt);
  // Whether to go on although the user would take the right to this program from himself.
  int AskLoseOwnAccess();
  int ShowInformation(const std::wstring& prompt);
  int ShowPasswordMismatch();
  int ShowPasswordTooLong();
  int ShowPasswordTooShort();
  int ShowNotice(const std::wstring& prompt);
  int ShowCannotDeleteUser(const std::wstring& name);
  int ShowCannotRemoveUserFromGroup(const std::wstring& name);

 private:
  int Show();
  int ShowText(const std::wstring& prompt);
  std::wstring TwoLines(int first, int second) const;

  const mGlobal& global_;
  std::wstring prompt_;  // of the box being shown
  int style_ = 0;
};

}  // namespace app
