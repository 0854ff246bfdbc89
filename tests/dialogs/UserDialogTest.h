#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {

using test_support::IdsOf;
using test_support::ItemOf;
using test_support::SelectedIds;
using test_support::TextsOf;

// The user dialogs over the sample.
class UserDialogTest : public test_support::DialogFixture {
 protected:
  using Calls = std::vector<std::wstring>;
  using Ids = test_support::Ids;
  using NewScript = std::function<void(frmNewUser&)>;
  using EditScript = std::function<void(frmEditUser&)>;
  using Where = test_support::Where;

  // Of the sample.
  using Sample = test_support::Sample;
  static constexpr std::int32_t kAdmin = Sample::kAdmin;
  static constexpr std::int32_t kMartin = Sample::kMartin;  // in groups 2, 7, 12; holds 14, 20
  static constexpr std::int32_t kStagiaire = Sample::kStagiaire;
  static constexpr std::int32_t kEveryone = Sample::kEveryone;
  static constexpr std::int32_t kNextUser = Sample::kNextUser;
  static constexpr const wchar_t* kPassword = L"Vardex-2026";

  // What the dialogs tell.
  const std::wstring kNoName = data::FromUtf8("Spécifiez le nom de l'utilisateur.");
  const std::wstring kTooShort =
      data::FromUtf8("Le mot de passe doit comporter plus de 6 caractères.");
  const std::wstring kTooLong =
      data::FromUtf8("Me mot de passe doit comporter moins de 20 caractères.");
  const std::wstring kMismatch =
      data::FromUtf8("Mot de passe différent du mot de passe confirmé.\r\nVeuillez les ressaisir.");
  const std::wstring kTaken = data::FromUtf8("Cet utilisateur existe déjà.");
  static std::wstring Refusal(const std::wstring& name) {
    return L"Impossible de supprimer l'utilisateur de '" + name + L"' le groupe.";
  }

  void New(const NewScript& script, Where where = Where::current()) {
    frmNewUser dialog(exchange);
    dialog.EveryoneGroupID = window.accounts.everyoneGroupId;
    Show<frmNewUser>(dialog, script, where);
  }
  void Edit(std::int32_t userId, const EditScript& script, bool isRemoveAdministrator = true,
            Where where = Where::current()) {
    frmEditUser dialog(exchange);
    Prepare(dialog, userId, isRemoveAdministrator);
    Show<frmEditUser>(dialog, script, where);
  }
  void Prepare(frmEditUser& dialog, std::int32_t userId, bool isRemoveAdministrator = true) {
    dialog.IsRemoveAdministrator = isRemoveAdministrator;
    dialog.AdminGroupID = window.accounts.administratorsGroupId;
    dialog.EveryoneGroupID = window.accounts.everyoneGroupId;
    dialog.UserID = userId;
  }

  // Cancels a dialog in which something was changed.
  void Discard(UserDialog& dialog) {
    ExpectDiscardQuestion(controls::kResultYes);
    user.Click(dialog.cmdCancel);
  }
  // Fills the text boxes as a user does.
  void Fill(UserDialog& dialog, const std::wstring& name, const std::wstring& fullName,
            const std::wstring& password) {
    user.Paste(dialog.txtUserName, name);
    user.Paste(dialog.txtFullName, fullName);
    user.Paste(dialog.txtPassword, password);
    user.Paste(dialog.txtVerify, password);
  }

  static Ids All(std::int32_t count) {
    Ids all;
    for (std::int32_t id = 1; id <= count; ++id) all.push_back(id);
    return all;
  }

  // --- The database, read without the program ---
  std::string Column(std::int32_t userId, const std::string& column) {
    return Raw().Text("SELECT " + column + " FROM QRUSER WHERE USERID = " + std::to_string(userId));
  }
  Ids Links(const std::string& table, const std::string& column, std::int32_t userId) {
    return IdsIn("SELECT " + column + " FROM " + table +
                 " WHERE USERID = " + std::to_string(userId) + " ORDER BY 1");
  }
  Ids Groups(std::int32_t userId) { return Links("QRUSGP", "GROUPID", userId); }
  Ids Permissions(std::int32_t userId) { return Links("QRUPRM", "PERMID", userId); }
  std::wstring StoredPassword(std::int32_t userId) {
    const std::wstring stored = data::FromUtf8(Column(userId, "PASSWORD"));
    return Database().OpenServer()->DecryptPassword(stored, userId);
  }
};

}  // namespace dialogs
