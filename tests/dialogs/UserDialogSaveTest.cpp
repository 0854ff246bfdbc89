#include "UserDialogTest.h"

namespace dialogs {
namespace {

class UserDialogSave : public UserDialogTest {
 protected:
  static void AddLinks(Calls& calls, const std::wstring& statement, int count) {
    calls.push_back(statement);
    for (int i = 0; i < count; ++i) {
      calls.push_back(L"AddNew " + statement);
      calls.push_back(L"Update " + statement);
    }
  }
  // Names that an administrator may type; the program puts none of them into a statement here.
  const std::vector<std::wstring> hostileNames{
      L"O'Neill",
      L"x'; DELETE FROM QRUSER; --",
      L"a \"quoted\" name",
      L"/* no comment */ -- none",
      L"50 % _ * ? [a-z]",
      L"C:\\temp\\new",
      L"\xD83D\xDE00 \xD835\xDD38",
      L"\x00C9l\x00E9onore \x0141ukasz \x0645\x0631\x064A\x0645",
      L"tab\tand &amp; &",
      std::wstring(4000, L'n'),
  };
};

TEST_F(UserDialogSave, ANewUserIsWrittenWithTheseCallsInThisOrder) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"Jeanne Nouveau", L"secret-1");
    Toggle(dialog.List1[dialog.kGroups], L"Qualité");
    Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
    Toggle(dialog.List1[dialog.kPermissions], L"Administration des utilisateurs");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  const std::wstring row = data::SqlSelectUser(41);
  Calls expected{L"NewIdentifier QRUSRN", row, L"AddNew " + row, L"EncryptPassword 41",
                 L"Update " + row};
  AddLinks(expected, data::SqlSelectUserMemberships(41), 2);
  AddLinks(expected, data::SqlSelectUserPermRows(41), 2);
  EXPECT_EQ(log.calls, expected);
  EXPECT_EQ(log.statements,
            (Calls{row, data::SqlSelectUserMemberships(41), data::SqlSelectUserPermRows(41)}));
}

TEST_F(UserDialogSave, ANewUsersRowsAreWhatWasTypedAndChecked) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"  Nouveau ", L"  Jeanne  Nouveau ", L"secret-1");
    Toggle(dialog.List1[dialog.kGroups], L"Qualité");
    Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
    Toggle(dialog.List1[dialog.kPermissions], L"Administration des utilisateurs");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(41, "NAME"), "Nouveau");
  EXPECT_EQ(Column(41, "FULLNAME"), "Jeanne  Nouveau");
  EXPECT_NE(Column(41, "COALESCE(VFLG, '')"), "D");
  EXPECT_EQ(StoredPassword(41), L"secret-1");
  EXPECT_EQ(Groups(41), (Ids{2, 6}));
  EXPECT_EQ(Permissions(41), (Ids{1, 30}));
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(exchange.UserID, 41);
  EXPECT_EQ(exchange.UserName, L"Nouveau (Jeanne  Nouveau)");
  EXPECT_EQ(exchange.StoredName, L"Nouveau");
}

TEST_F(UserDialogSave, AFullNameOfBlanksStaysUnsetInANewRowAndOutOfTheText) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"   ", L"secret-1");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(41, "FULLNAME"), "NULL");
  EXPECT_EQ(exchange.UserName, L"Nouveau");
}

TEST_F(UserDialogSave, AnIdentifierThatHasARowAlreadyAddsNoneAndTheLinksAreWritten) {
  Raw().Execute("INSERT INTO QRUSER (USERID, NAME) VALUES (41, 'Intrus')");
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"", L"secret-1");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(41, "NAME"), "Intrus");
  EXPECT_EQ(Groups(41), (Ids{2}));
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(exchange.UserID, 41);
}

TEST_F(UserDialogSave, TwoUsersGetTwoIdentifiers) {
  for (const wchar_t* name : {L"Premier", L"Second"}) {
    New([&](frmNewUser& dialog) {
      Fill(dialog, name, L"", L"secret-1");
      user.Click(dialog.cmdOK);
    });
  }
  EXPECT_EQ(Column(41, "NAME"), "Premier");
  EXPECT_EQ(Column(42, "NAME"), "Second");
}

TEST_F(UserDialogSave, AnExistingUserIsWrittenWithTheseCallsInThisOrder) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Type(dialog.txtUserName, L"Martineau");
    Toggle(dialog.List1[dialog.kGroups], L"Production");
    Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  const std::wstring row = data::SqlSelectUser(9);
  Calls expected{L"MoveFirst " + row, L"Edit " + row, L"EncryptPassword 9", L"Update " + row,
                 data::SqlDeleteUserMemberships(9)};
  AddLinks(expected, data::SqlSelectUserMemberships(9), 2);
  expected.push_back(data::SqlDeleteUserPermissions(9));
  AddLinks(expected, data::SqlSelectUserPermRows(9), 3);
  EXPECT_EQ(log.calls, expected);
}

TEST_F(UserDialogSave, AnExistingUsersRowsAreWhatWasTypedAndChecked) {
  exchange.UserID = 1234;
  Edit(kMartin, [this](frmEditUser& dialog) {
    Fill(dialog, L" Martineau ", L"  Jean Martineau ", L"secret-1");
    Toggle(dialog.List1[dialog.kGroups], L"Production");
    Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(9, "NAME"), "Martineau");
  EXPECT_EQ(Column(9, "FULLNAME"), "  Jean Martineau ");
  EXPECT_EQ(StoredPassword(9), L"secret-1");
  EXPECT_EQ(Groups(9), (Ids{2, 12}));
  EXPECT_EQ(Permissions(9), (Ids{14, 20, 30}));
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_FALSE(exchange.accountGone);
  EXPECT_EQ(exchange.UserName, L"Martineau (Jean Martineau)");
  EXPECT_EQ(exchange.StoredName, L"Martineau");
  EXPECT_EQ(exchange.UserID, 1234);  // the window's own, which an edit leaves alone
}

TEST_F(UserDialogSave, AnEditTouchesNoOtherUser) {
  const auto others = [this] {
    return std::tuple(Raw().Rows("SELECT * FROM QRUSER WHERE USERID <> 9 ORDER BY USERID"),
                      Raw().Rows("SELECT * FROM QRUSGP WHERE USERID <> 9 ORDER BY 1, 2"),
                      Raw().Rows("SELECT * FROM QRUPRM WHERE USERID <> 9 ORDER BY 1, 2"),
                      Raw().Rows("SELECT * FROM QRGPRM ORDER BY 1, 2"));
  };
  const auto before = others();
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllGroups]);
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Groups(9), All(12));
  EXPECT_EQ(Permissions(9), All(30));
  EXPECT_EQ(others(), before);
}

TEST_F(UserDialogSave, AFullNameOfBlanksIsStoredAsNullByAnEdit) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    user.Paste(dialog.txtFullName, L"   ");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(Column(9, "FULLNAME"), "NULL");
  EXPECT_EQ(exchange.UserName, L"Martin");
}

TEST_F(UserDialogSave, OkSavesAlsoWhenNothingHasChanged) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    ClearLog();
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(log.calls.size(), 4U + 2 + 6 + 2 + 4);
  EXPECT_EQ(Column(9, "NAME"), "Martin");
  EXPECT_EQ(StoredPassword(9), kPassword);
  EXPECT_EQ(Groups(9), (Ids{2, 7, 12}));
  EXPECT_EQ(Permissions(9), (Ids{14, 20}));
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(UserDialogSave, AdminsPasswordAndLinksCanBeSaved) {
  Edit(
      kAdmin,
      [this](frmEditUser& dialog) {
        user.Type(dialog.txtPassword, L"secret-1");
        user.Type(dialog.txtVerify, L"secret-1");
        Toggle(dialog.List1[dialog.kGroups], L"Laboratoire");
        Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
        user.Click(dialog.cmdOK);
      },
      false);
  EXPECT_EQ(Column(1, "NAME"), "Admin");
  EXPECT_EQ(Column(1, "FULLNAME"), "Administrateur principal");
  EXPECT_EQ(StoredPassword(1), L"secret-1");
  EXPECT_EQ(Groups(1), (Ids{1, 2, 12}));
  EXPECT_EQ(Permissions(1), Ids{});
  EXPECT_EQ(exchange.UserName, L"Admin (Administrateur principal)");
}

TEST_F(UserDialogSave, AnyNameIsStoredAsTypedForANewUser) {
  std::int32_t id = kNextUser;
  for (const std::wstring& name : hostileNames) {
    New([&](frmNewUser& dialog) {
      Fill(dialog, L"  " + name + L"  ", L" " + name + L" ", L"secret-1");
      user.Click(dialog.cmdOK);
    });
    EXPECT_EQ(Column(id, "NAME"), data::ToUtf8(name));
    EXPECT_EQ(Column(id, "FULLNAME"), data::ToUtf8(name));
    EXPECT_EQ(exchange.UserName, name + L" (" + name + L")");
    ++id;
  }
  EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSER"),
            40 + static_cast<int>(hostileNames.size()));
}

TEST_F(UserDialogSave, AnyNameIsStoredAsTypedByAnEditAndShownAgain) {
  for (const std::wstring& name : hostileNames) {
    Edit(kMartin, [&](frmEditUser& dialog) {
      Fill(dialog, L"  " + name + L"  ", L" " + name + L" ", L"secret-1");
      user.Click(dialog.cmdOK);
    });
    EXPECT_EQ(Column(9, "NAME"), data::ToUtf8(name));
    EXPECT_EQ(Column(9, "FULLNAME"), data::ToUtf8(L" " + name + L" "));
    Edit(kMartin, [&](frmEditUser& dialog) {
      EXPECT_EQ(dialog.txtUserName.Text(), name);
      EXPECT_EQ(dialog.txtFullName.Text(), name);
      user.Click(dialog.cmdCancel);
    });
  }
}

TEST_F(UserDialogSave, AnyPasswordThatFitsIsStoredAsTyped) {
  for (const wchar_t* password : {L"a'b\";--", L"*?#[a]", L"\xD83D\xDE00\xD83D\xDE00xy",
                                  L"  padded  ", L"12345678901234567890"}) {
    Edit(kMartin, [&](frmEditUser& dialog) {
      user.Paste(dialog.txtPassword, password);
      user.Paste(dialog.txtVerify, password);
      user.Click(dialog.cmdOK);
    });
    EXPECT_EQ(StoredPassword(9), password);
  }
}

TEST_F(UserDialogSave, ANewUsersPasswordIsStoredWithTheBlanksPastedAroundIt) {
  New([this](frmNewUser& dialog) {
    Fill(dialog, L"Nouveau", L"", L"  padded  ");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(StoredPassword(41), L"  padded  ");
}

TEST_F(UserDialogSave, OthersCanWriteWhileTheDialogIsOpen) {
  Edit(kMartin, [this](frmEditUser& dialog) {
    const auto other = Database().OpenServer(L"Moreau")->DatabaseConnection();
    EXPECT_EQ(other->Execute(data::SqlDeleteMembership(12, 9)), 1);
    const auto rows = other->OpenResultSet(data::SqlSelectUser(9));
    rows->Edit();
    rows->SetColumn(L"FULLNAME", std::wstring(L"Quelqu'un d'autre"));
    rows->Update();
    EXPECT_EQ(Column(9, "FULLNAME"), "Quelqu'un d'autre");
    user.Click(dialog.cmdOK);
  });
  // The last one to save wins.
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(Column(9, "FULLNAME"), "Jean Martin");
  EXPECT_EQ(Groups(9), (Ids{2, 7, 12}));
}

}  // namespace
}  // namespace dialogs
