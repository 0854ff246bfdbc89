#include "UserDialogTest.h"
#include "app/StringIds.h"
#include "tests/support/window/FaultStride.h"

namespace dialogs {
namespace {

class UserDialogLoad : public UserDialogTest {
 protected:
  // The calls of a list's filling.
  void AddFilling(Calls& calls, int Index) {
    calls.push_back(Index == 1 ? data::SqlSelectAllGroups() : data::SqlSelectAllPermissions());
    const auto add = [&](const auto& rows, const wchar_t* code) {
      for (const auto& row : rows)
        calls.push_back(L"GetDisplayName " + (code + data::FromUtf8(row.name)));
    };
    if (Index == 1) {
      add(Sample::GroupsByName(), L"104 ");
    } else {
      add(Sample::PermissionsByName(), L"101 ");
    }
  }
  Calls LoadOfNew() {
    Calls calls;
    AddFilling(calls, 1);
    calls.push_back(data::SqlSelectGroupByName(L"Everyone"));
    AddFilling(calls, 2);
    return calls;
  }
  Calls LoadOfEdit(std::int32_t userId) {
    Calls calls{data::SqlSelectUser(userId), L"DecryptPassword " + data::Decimal(userId)};
    AddFilling(calls, 1);
    for (const auto& group : Sample::GroupsByName()) {
      calls.push_back(data::SqlSelectMembership(group.id, userId));
    }
    AddFilling(calls, 2);
    for (const auto& permission : Sample::PermissionsByName()) {
      calls.push_back(data::SqlSelectUserPermission(userId, permission.id));
    }
    return calls;
  }
};

TEST_F(UserDialogLoad, EveryCaptionComesFromTheStringTable) {
  const auto look = [this](UserDialog& dialog) {
    EXPECT_EQ(dialog.lblUserName.Caption(), Text(app::kUserNameLabel));
    EXPECT_EQ(dialog.lblFullName.Caption(), Text(app::kFullNameLabel));
    EXPECT_EQ(dialog.lblPassword.Caption(), Text(app::kPasswordLabel));
    EXPECT_EQ(dialog.lblConfirmPassword.Caption(), Text(app::kConfirmationLabel));
    EXPECT_EQ(dialog.fraMemberOf.Caption(), Text(app::kMemberOf));
    EXPECT_EQ(dialog.fraUserPermissions.Caption(), Text(app::kUserPermissions));
    EXPECT_EQ(dialog.cmdBtn[dialog.kAllGroups].Caption(), L"To&us");
    EXPECT_EQ(dialog.cmdBtn[dialog.kAllPermissions].Caption(), L"&Tous");
    EXPECT_EQ(dialog.cmdBtn[dialog.kNoGroup].Caption(), L"Au&cun");
    EXPECT_EQ(dialog.cmdBtn[dialog.kNoPermission].Caption(), L"&Aucun");
    EXPECT_EQ(dialog.cmdOK.Caption(), L"OK");
    EXPECT_EQ(dialog.cmdCancel.Caption(), L"Annuler");
    EXPECT_EQ(dialog.Command1.Caption(), Text(app::kHelp));
    dialog.Unload();
  };
  New([&](frmNewUser& dialog) {
    EXPECT_EQ(dialog.Caption(), L"Nouvel Utilisateur");
    look(dialog);
  });
  Edit(kMartin, [&](frmEditUser& dialog) {
    EXPECT_EQ(dialog.Caption(), L"Modifier l'Utilisateur");
    look(dialog);
  });
}

TEST_F(UserDialogLoad, ANewUserStartsEmptyAndAsAMemberOfEveryoneOnly) {
  New([this](frmNewUser& dialog) {
    for (const controls::TextBox* box :
         {&dialog.txtUserName, &dialog.txtFullName, &dialog.txtPassword, &dialog.txtVerify}) {
      EXPECT_EQ(box->Text(), L"");
    }
    EXPECT_EQ(dialog.List1[dialog.kGroups].ListCount(), 12);
    EXPECT_EQ(dialog.List1[dialog.kPermissions].ListCount(), 30);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{kEveryone}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), Ids{});
    user.Click(dialog.cmdCancel);  // nothing has changed, so nothing is asked
  });
}

TEST_F(UserDialogLoad, AnExistingUserIsShownWithItsPasswordItsGroupsAndItsOwnPermissions) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    EXPECT_EQ(dialog.txtUserName.Text(), L"Martin");
    EXPECT_EQ(dialog.txtFullName.Text(), L"Jean Martin");
    EXPECT_EQ(dialog.txtPassword.Text(), kPassword);
    EXPECT_EQ(dialog.txtVerify.Text(), kPassword);
    EXPECT_TRUE(dialog.txtPassword.IsMasked());
    EXPECT_TRUE(dialog.txtVerify.IsMasked());
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2, 7, 12}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), (Ids{14, 20}));
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(UserDialogLoad, ItemsKeepTheOrderOfTheRowsAndShowTheirDisplayNames) {
  New([](frmNewUser& dialog) {
    EXPECT_EQ(TextsOf(dialog.List1[dialog.kGroups]),
              (test_support::Texts{L"Achats", L"Administrateurs", L"Comptabilité", L"Direction",
                                   L"Tout le monde", L"Informatique", L"Laboratoire", L"Méthodes",
                                   L"Production", L"Qualité", L"Ressources humaines", L"Ventes"}));
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kGroups]), (Ids{9, 1, 4, 3, 2, 11, 12, 8, 7, 6, 5, 10}));
    const controls::ListBox& permissions = dialog.List1[dialog.kPermissions];
    int item = 0;
    for (const auto& permission : Sample::PermissionsByName()) {
      EXPECT_EQ(permissions.ItemData(item), permission.id);
      const bool isMapped = permission.id == 1 || permission.id == Sample::kAudit;
      if (!isMapped) {
        EXPECT_EQ(permissions.List(item), data::FromUtf8(permission.name));
      }
      ++item;
    }
    EXPECT_EQ(permissions.List(ItemOf(permissions, 1)), L"Administration des utilisateurs");
    EXPECT_EQ(permissions.List(ItemOf(permissions, Sample::kAudit)), L"Audit des sessions");
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, NamesAreTrimmedAndNullOrEmptyColumnsLeaveTheirBoxesEmpty) {
  Raw().Execute("UPDATE QRUSER SET NAME = '  Mercier  ', PASSWORD = '' WHERE USERID = 26");
  Raw().Execute("UPDATE QRUSER SET FULLNAME = '  Jean  Martin ' WHERE USERID = 9");
  Raw().Execute("UPDATE QRUSER SET PASSWORD = '  ' || PASSWORD || ' ' WHERE USERID = 9");
  for (const std::int32_t id : {26, kStagiaire}) {
    Edit(id, [id](frmEditUser& dialog) {
      EXPECT_EQ(dialog.txtUserName.Text(), id == 26 ? L"Mercier" : L"Stagiaire");
      EXPECT_EQ(dialog.txtFullName.Text(), L"");
      EXPECT_EQ(dialog.txtPassword.Text(), L"");
      EXPECT_EQ(dialog.txtVerify.Text(), L"");
      dialog.Unload();
    });
  }
  Edit(kMartin, [](frmEditUser& dialog) {
    EXPECT_EQ(dialog.txtFullName.Text(), L"Jean  Martin");
    EXPECT_EQ(dialog.txtPassword.Text(), kPassword);
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, ANewUserIsLoadedWithTheseCallsInThisOrder) {
  New([](frmNewUser& dialog) { dialog.Unload(); });
  EXPECT_EQ(log.calls, LoadOfNew());
}

TEST_F(UserDialogLoad, AnExistingUserIsLoadedWithTheseCallsInThisOrder) {
  Edit(kMartin, [](frmEditUser& dialog) { dialog.Unload(); });
  EXPECT_EQ(log.calls, LoadOfEdit(kMartin));
}

TEST_F(UserDialogLoad, APasswordThatIsNotThereIsNotDecrypted) {
  Edit(kStagiaire, [](frmEditUser& dialog) { dialog.Unload(); });
  EXPECT_EQ(std::count(log.calls.begin(), log.calls.end(), L"DecryptPassword 40"), 0);
}

TEST_F(UserDialogLoad, OfAdminOnlyPasswordGroupsAndPermissionsCanBeEdited) {
  Edit(kAdmin, [this](frmEditUser& dialog) {
    EXPECT_FALSE(dialog.txtUserName.Enabled());
    EXPECT_FALSE(dialog.txtFullName.Enabled());
    EXPECT_TRUE(dialog.txtPassword.HasFocus());
    EXPECT_TRUE(user.CanUse(dialog.txtVerify));
    EXPECT_TRUE(user.CanUse(dialog.List1[dialog.kGroups]));
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, AdminIsRecognisedByItsExactName) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'admin' WHERE USERID = 9");
  Raw().Execute("UPDATE QRUSER SET NAME = ' Admin ' WHERE USERID = 12");
  Edit(kMartin, [](frmEditUser& dialog) {
    EXPECT_TRUE(dialog.txtUserName.Enabled());
    dialog.Unload();
  });
  Edit(12, [](frmEditUser& dialog) {
    EXPECT_FALSE(dialog.txtUserName.Enabled());
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, TheFirstFocusIsOnTheNameAndTabWalksTheBoxesInTheirOrder) {
  const auto walk = [this](UserDialog& dialog) {
    const controls::Control* order[] = {&dialog.txtUserName, &dialog.txtFullName,
                                        &dialog.txtPassword, &dialog.txtVerify,
                                        &dialog.List1[dialog.kGroups]};
    for (const controls::Control* control : order) {
      EXPECT_TRUE(control->HasFocus()) << control->Id();
      user.PressKey(dialog, test_support::kKeyTab);
    }
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ((&dialog.txtUserName)->TabIndex() + 1 + i, (i == 0   ? dialog.txtFullName
                                                            : i == 1 ? dialog.txtPassword
                                                                     : dialog.txtVerify)
                                                               .TabIndex());
    }
    dialog.Unload();
  };
  New(walk);
  Edit(kMartin, walk);
}

TEST_F(UserDialogLoad, TheButtonsFollowTheListsFromTheStart) {
  Edit(kStagiaire, [](frmEditUser& dialog) {  // in Everyone, without own permissions
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAllGroups].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kNoGroup].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAllPermissions].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kNoPermission].Enabled());
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, WithoutAnEveryoneGroupANewUserIsInNoGroup) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Tous' WHERE GROUPID = 2");
  New([this](frmNewUser& dialog) {
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), Ids{});
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, OfSeveralEveryoneGroupsTheLastRowWins) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Everyone' WHERE GROUPID = 9");
  New([this](frmNewUser& dialog) {
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{9}));
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, TheLocalesFontIsGivenToTheDialog) {
  user.SetLcid(1041);
  New([this](frmNewUser& dialog) {
    EXPECT_EQ(user.FontOf(dialog).charset, 128);
    EXPECT_EQ(user.FontOf(dialog.txtUserName).size, 9);
    dialog.Unload();
  });
}

TEST_F(UserDialogLoad, AFailureAtAnyCallOfAnEditsLoadIsReportedAndClosesTheDialog) {
  const std::size_t count = LoadOfEdit(kMartin).size();
  const auto procedure = [](std::size_t position) -> std::wstring {
    if (position < 2) return L"Form Load";
    if (position < 15) return L"List1AddItem";
    if (position < 27) return L"SelectListItem";
    return position < 58 ? L"List1AddItem" : L"SelectListItem";
  };
  const Calls calls = LoadOfEdit(kMartin);
  for (std::size_t position = 0; position < count; position += test_support::kFaultStride) {
    SCOPED_TRACE(position);
    if (calls[position] == L"DecryptPassword 9") continue;  // does not close the dialog
    FailAtPosition(position);
    ExpectReport(procedure(position), calls[position]);
    frmEditUser dialog(exchange);
    Prepare(dialog, kMartin);
    dialog.ShowModal(window);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_TRUE(HasFailed());
    EXPECT_FALSE(exchange.AddNode);
  }
}

TEST_F(UserDialogLoad, AFailureOfANewUsersLoadClosesTheDialogOnlyWhereThePermissionsAreRead) {
  const Calls calls = LoadOfNew();
  for (std::size_t position = 0; position < calls.size(); position += test_support::kFaultStride) {
    SCOPED_TRACE(position);
    FailAtPosition(position);
    ExpectReport(position == 13 ? L"GetEveryOneGroup" : L"List1AddItem", calls[position]);
    frmNewUser dialog(exchange);
    dialog.EveryoneGroupID = kEveryone;
    if (position > 13) {
      dialog.ShowModal(window);
    } else {
      Show<frmNewUser>(dialog, [&](frmNewUser&) {
        EXPECT_EQ(dialog.List1[dialog.kGroups].ListCount(),
                  position == 13 ? 12 : std::max(0, static_cast<int>(position) - 1));
        EXPECT_EQ(dialog.List1[dialog.kPermissions].ListCount(), 30);
        user.Click(dialog.cmdCancel);
      });
    }
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_TRUE(HasFailed());
  }
}

TEST_F(UserDialogLoad, APasswordThatCannotBeReadIsReportedAndANewOneMustBeTyped) {
  Raw().Execute("UPDATE QRUSER SET PASSWORD = 'v1:AAAA' WHERE USERID = 9");
  user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kExclamation});
  Edit(kMartin, [this](frmEditUser& dialog) {
    EXPECT_EQ(user.SeenBoxes().back().prompt,
              data::FromUtf8("Form Load Error [-2147220979]\r\nLe mot de passe enregistré est "
                             "illisible : il a été altéré ou appartient à un autre utilisateur."));
    EXPECT_EQ(dialog.txtUserName.Text(), L"Martin");
    EXPECT_EQ(dialog.txtPassword.Text(), L"");
    EXPECT_EQ(dialog.txtVerify.Text(), L"");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kGroups]), (Ids{2, 7, 12}));
    ExpectInformation(kTooShort);
    user.Click(dialog.cmdOK);
    // No password is known that these could stand for.
    user.Type(dialog.txtPassword, L"******");
    user.Type(dialog.txtVerify, L"*******");
    ExpectInformation(kMismatch);
    user.Click(dialog.cmdOK);
    user.Type(dialog.txtPassword, L"nouveau-1");
    user.Type(dialog.txtVerify, L"nouveau-1");
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(StoredPassword(kMartin), L"nouveau-1");
}

TEST_F(UserDialogLoad, AnAccountWhosePasswordCannotBeReadIsLeftAsItWasByCancel) {
  FailAt(L"DecryptPassword 9");
  ExpectReport(L"Form Load", L"DecryptPassword 9");
  Edit(kMartin, [this](frmEditUser& dialog) { user.Click(dialog.cmdCancel); });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(StoredPassword(kMartin), kPassword);
}

TEST_F(UserDialogLoad, ADialogShownAgainRemembersNothingOfTheUserBefore) {
  frmEditUser dialog(exchange);
  Prepare(dialog, kMartin);
  Show<frmEditUser>(dialog, [](frmEditUser& shown) { shown.Unload(); });
  Prepare(dialog, kStagiaire);
  Show<frmEditUser>(dialog, [this](frmEditUser& shown) {
    EXPECT_EQ(shown.txtPassword.Text(), L"");
    // Were Martin's password still known, these would pass as patterns for it.
    user.Type(shown.txtPassword, L"V*2026");
    user.Type(shown.txtVerify, L"*-2026");
    ExpectInformation(kMismatch);
    user.Click(shown.cmdOK);
    Discard(shown);
  });
}

}  // namespace
}  // namespace dialogs
