#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "data/Text.h"

namespace dialogs {
namespace {

const wchar_t* const kMissing = L"Spécifiez le nom du groupe.";
const wchar_t* const kReserved = L"Nom de groupe réservé.";
const wchar_t* const kTaken = L"Ce groupe existe déjà.";

class GroupNameChecks : public GroupDialogs {
 protected:
  // OK is refused with this message; the dialog then waits in the name, and nothing was written.
  void ExpectRefused(GroupDialog& dialog, const wchar_t* message, Where where = Where::current()) {
    SCOPED_TRACE(where.line());
    user.Focus(dialog.cmdCancel);
    log.statements.clear();
    ExpectInformation(message, where);
    user.Click(dialog.cmdOK);
    EXPECT_TRUE(dialog.IsLoaded());
    ExpectNameSelected(dialog);
    EXPECT_TRUE(log.statements.empty());
  }
  // Leaves the dialog, which has changes.
  void Leave(GroupDialog& dialog) {
    ExpectDiscardQuestion(controls::kResultYes);
    user.Close(dialog);
  }
};

TEST_F(GroupNameChecks, AnEmptyNameIsRefused) {
  New([this](frmNewGroup& dialog) {
    ExpectRefused(dialog, kMissing);
    EXPECT_TRUE(log.serverCalls.empty());
    dialog.Unload();
  });
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"\b");
    ExpectRefused(dialog, kMissing);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, ARefusedNameIsSelectedAlsoWhenEnterWasPressedInIt) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"laboratoire");
    ASSERT_EQ(dialog.txtGroupName.SelLength(), 0);
    ExpectInformation(kTaken);
    user.PressKey(dialog, test_support::kKeyEnter);
    ExpectNameSelected(dialog);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, ANameOfOnlyBlanksIsRefusedBeforeTheDuplicateTest) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"   ");
    ExpectRefused(dialog, kMissing);
    EXPECT_EQ(dialog.txtGroupName.SelLength(), 3);
    EXPECT_TRUE(log.serverCalls.empty());
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, AReservedNameIsRefusedInItsStoredFormWithoutAsking) {
  New([this](frmNewGroup& dialog) {
    for (const wchar_t* name : {L"Administrators", L" Everyone "}) {
      user.Type(dialog.txtGroupName, name);
      ExpectRefused(dialog, kReserved);
    }
    EXPECT_TRUE(log.serverCalls.empty());
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, AReservedNameIsRefusedInTheFormInWhichItIsShown) {
  New([this](frmNewGroup& dialog) {
    for (const wchar_t* name : {L"Administrateurs", L" Tout le monde "}) {
      user.Type(dialog.txtGroupName, name);
      ExpectRefused(dialog, kReserved);
    }
    EXPECT_EQ(log.serverCalls, (Strings{L"GetDisplayName 114 Administrateurs",
                                        L"GetDisplayName 114 Tout le monde"}));
    Leave(dialog);
  });
}

// Though they are shown as "Administrateurs" and "Tout le monde".
TEST_F(GroupNameChecks, NoOtherGroupIsGivenTheStoredNameOfAProtectedOneInAnyCase) {
  Edit(12, [this](frmEditGroup& dialog) {
    for (const wchar_t* name : {L"Administrators", L" Everyone ", L"everyone", L"ADMINISTRATORS"}) {
      user.Type(dialog.txtGroupName, name);
      ExpectRefused(dialog, kTaken);
    }
    Leave(dialog);
  });
  New([this](frmNewGroup& dialog) {
    for (const wchar_t* name : {L"everyone", L"EVERYONE", L"administrators"}) {
      user.Type(dialog.txtGroupName, name);
      ExpectRefused(dialog, kTaken);
    }
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, WhereTheStoredNameIsShownAnotherGroupOfThatNameIsADuplicate) {
  Raw().Execute("DELETE FROM QRDISPLAY");
  Start();
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Administrators");
    ExpectRefused(dialog, kTaken);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, EveryoneInLowerCaseIsNotReservedButADuplicateWhereItIsShownSo) {
  Raw().Execute("DELETE FROM QRDISPLAY");
  Start();
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"everyone");
    ExpectRefused(dialog, kTaken);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, EveryoneInLowerCaseIsReservedWhereTheMappingMakesItEveryone) {
  Raw().Execute("INSERT INTO QRDISPLAY (CODE, GIVEN, MAPPED) VALUES (114, 'everyone', 'Everyone')");
  Start();
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"everyone");
    ExpectRefused(dialog, kReserved);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, ANameIsTakenInAnyCaseAndWithoutWhatStandsInParentheses) {
  New([this](frmNewGroup& dialog) {
    for (const wchar_t* name : {L"Laboratoire", L"  LABORATOIRE ", L"qualité"}) {
      user.Type(dialog.txtGroupName, name);
      ExpectRefused(dialog, kTaken);
    }
    Leave(dialog);
  });
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"QUALITÉ");
    ExpectRefused(dialog, kTaken);
    Leave(dialog);
  });
}

TEST_F(GroupNameChecks, LaboMesuresCountsAsTheNameLabo) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Labo', DESCR = 'Mesures' WHERE GROUPID = 12");
  Start();
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"labo");
    ExpectRefused(dialog, kTaken);
    user.Type(dialog.txtGroupName, L"Mesures");
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(GroupNameChecks, AGroupMayBeRenamedToItsOwnName) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"LABORATOIRE");
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(RowOf(12)[0], "LABORATOIRE");
}

// The trees on screen decide: what somebody else has added meanwhile is not seen.
TEST_F(GroupNameChecks, AGroupThatSomebodyElseHasAddedIsNoDuplicate) {
  Raw().Execute("INSERT INTO QRGROUP (GROUPID, NAME) VALUES (500, 'Essais')");
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(GroupNameChecks, AReservedGroupIsEditedWithoutTheReservedTest) {
  Edit(2, [this](frmEditGroup& dialog) {
    ClearLog();
    user.Click(dialog.cmdOK);
    ASSERT_FALSE(log.serverCalls.empty());
    EXPECT_EQ(log.serverCalls[0], L"GetDisplayName 104 Administrators");
  });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(GroupNameChecks, AMappingThatFailsIsReportedAndTheDialogStays) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    FailAt(L"GetDisplayName 114 Essais");
    ExpectReport(L"cmdOK_Click", L"GetDisplayName 114 Essais");
    user.Click(dialog.cmdOK);
    EXPECT_TRUE(dialog.IsLoaded());
    log.FailAt = {};
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
}

// Whatever is typed reaches the database as it is: no text of a user is part of a statement.
TEST_F(GroupNameChecks, HostileNamesAndDescriptionsAreStoredAndShownAsTyped) {
  const std::string longName(4000, 'x');
  const std::vector<std::string> names = {"L'Atelier \"A\"",
                                          "a'; DELETE FROM QRGROUP; --",
                                          "/* rien */ -- rien",
                                          "100 % _ \\ sûr\\",
                                          "Équipe (nuit) (2)",
                                          "\xF0\x9D\x94\x98\xF0\x9F\x94\x92 clé",
                                          longName};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::wstring typed = L"  " + data::FromUtf8(names[i]) + L" ";
    New([&](frmNewGroup& dialog) {
      user.Paste(dialog.txtGroupName, typed);
      user.Paste(dialog.txtDesc, typed);
      user.Click(dialog.cmdOK);
    });
    const auto id = static_cast<std::int32_t>(13 + i);
    EXPECT_EQ(RowOf(id), (std::vector<std::string>{names[i], "  " + names[i] + " "}));
    EXPECT_TRUE(exchange.AddNode);
    const std::wstring shown = data::FromUtf8(names[i]);
    EXPECT_EQ(exchange.GroupName, shown + L" (" + shown + L")");
    Edit(id, [&](frmEditGroup& dialog) {
      EXPECT_EQ(dialog.txtGroupName.Text(), shown);
      EXPECT_EQ(dialog.txtDesc.Text(), shown);
      user.Click(dialog.cmdOK);
    });
    EXPECT_EQ(RowOf(id), (std::vector<std::string>{names[i], names[i]}));
  }
}

}  // namespace
}  // namespace dialogs
