#include <gtest/gtest.h>

#include <algorithm>

#include "controls/Desktop.h"
#include "controls/TreeModel.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewUser.h"
#include "tests/browser/CommandTest.h"

namespace browser {
namespace {

using controls::NodeId;
using test_support::Keys;

constexpr const wchar_t* kAllCounts = L"39 utilisateurs, 12 groupes, 30 permissions";

// The box above a tree.
class Find : public CommandTest {
 protected:
  void Type(frmUserGroupPerm& window, int tree, const std::wstring& text) {
    user.ChooseTab(window.TabStrip1, tree);
    user.Paste(window.Page(tree).txtFind, text);
    EXPECT_EQ(window.Page(tree).txtFind.Text(), text);
  }

  // The stored names of the accounts on view.
  static Strings OnView(frmUserGroupPerm& window, int tree) {
    controls::TreeModel& model = controls::ModelOf(window.Page(tree).TreeView1);
    Strings names;
    for (const NodeId account : model.ChildrenOnView(model.Nodes().Root())) {
      names.push_back(model.Nodes().StoredName(account));
    }
    return names;
  }
  static int Accounts(frmUserGroupPerm& window, int tree) {
    const controls::TreeNodes& nodes = window.Page(tree).TreeView1.Nodes();
    return nodes.Children(nodes.Root());
  }
  static std::wstring Status(const frmUserGroupPerm& window) { return window.lblStatus.Caption(); }

  void MakeUser(frmUserGroupPerm& window, const wchar_t* name) {
    user.ExpectModal([this, name](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmNewUser&>(form);
      user.Type(dialog.txtUserName, name);
      user.Type(dialog.txtPassword, L"secret-1");
      user.Type(dialog.txtVerify, L"secret-1");
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Users.cmdUser[kNewButton]);
  }
};

TEST_F(Find, LeavesTheAccountsOnViewThatHaveEveryWord) {
  Run([this](frmUserGroupPerm& window) {
    log.calls.clear();
    Type(window, kUsersTree, L"jean martin");
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"}));
    EXPECT_EQ(Status(window), L"1 sur 39");
    EXPECT_EQ(Accounts(window, kUsersTree), 39);
    EXPECT_EQ(OnView(window, kGroupsTree).size(), 12U);
    for (const wchar_t* text : {L"JEAN mart", L"  mart\x301in  jean ", L"(jean martin)"}) {
      Type(window, kUsersTree, text);
      EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"})) << data::ToUtf8(text);
    }
    Type(window, kUsersTree, L"martin admin");
    EXPECT_EQ(OnView(window, kUsersTree), Strings{});
    EXPECT_EQ(Status(window), L"0 sur 39");
    Type(window, kUsersTree, L" \t ");
    EXPECT_EQ(OnView(window, kUsersTree).size(), 39U);
    EXPECT_EQ(Status(window), kAllCounts);
    EXPECT_TRUE(log.calls.empty());
  });
}

TEST_F(Find, LooksAtTheShownAndTheStoredNameOfAGroup) {
  Run([this](frmUserGroupPerm& window) {
    for (const wchar_t* text : {L"tout monde", L"everyone"}) {
      Type(window, kGroupsTree, text);
      EXPECT_EQ(OnView(window, kGroupsTree), (Strings{L"Everyone"}));
    }
    EXPECT_EQ(Status(window), L"1 sur 12");
  });
}

TEST_F(Find, GroupsTheDigitsOfLargeNumbers) {
  UseGenerated({1200, 3, 5});
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"a");
    const std::wstring status = Status(window);
    EXPECT_TRUE(status.ends_with(L" sur 1\xA0"
                                 L"200") ||
                status.ends_with(L" sur 1\xA0"
                                 L"201"))
        << data::ToUtf8(status);
  });
}

TEST_F(Find, DownAndEnterLeadToTheFirstAccountFound) {
  Run([this](frmUserGroupPerm& window) {
    for (const int key : {+controls::kKeyDown, +controls::kKeyReturn}) {
      Select(window, kUsersTree, Keys::Root());
      Type(window, kUsersTree, L"jean martin");
      user.PressKey(window, key);
      EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
      EXPECT_TRUE(window.Users.TreeView1.HasFocus());
      EXPECT_EQ(window.exchange.UserID, 9);
      EXPECT_TRUE(window.Users.cmdUser[kEditButton].Enabled());
      EXPECT_EQ(window.Users.txtFind.Text(), L"jean martin");
    }
  });
}

TEST_F(Find, WhereNothingIsFoundDownSaysSoAndStays) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"nobody has this name");
    user.PressKey(window, controls::kKeyDown);
    EXPECT_EQ(user.BeepCount(), 1);
    EXPECT_TRUE(window.Users.txtFind.HasFocus());
    EXPECT_EQ(Selected(window, kUsersTree), Keys::Root());
  });
}

TEST_F(Find, FromAnEmptyBoxDownAndEscapeLeadBackToTheTree) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    for (const int key : {+controls::kKeyDown, +controls::kKeyEscape}) {
      user.Focus(window.Users.txtFind);
      user.PressKey(window, key);
      EXPECT_TRUE(window.Users.TreeView1.HasFocus());
      EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
    }
  });
}

TEST_F(Find, EscapeEndsItAndKeepsTheSelection) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    Type(window, kUsersTree, L"admin");
    user.PressKey(window, controls::kKeyEscape);
    EXPECT_EQ(window.Users.txtFind.Text(), L"");
    EXPECT_TRUE(window.Users.txtFind.HasFocus());
    EXPECT_EQ(OnView(window, kUsersTree).size(), 39U);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(9, 12));
    // And so does it from the tree.
    Type(window, kUsersTree, L"admin");
    user.Focus(window.Users.TreeView1);
    user.PressKey(window, controls::kKeyEscape);
    EXPECT_EQ(OnView(window, kUsersTree).size(), 39U);
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
  });
}

TEST_F(Find, CtrlFLeadsToTheBoxFromAnywhereAndSelectsItsText) {
  Run([this](frmUserGroupPerm& window) {
    for (const int tree : {kUsersTree, kGroupsTree}) {
      Type(window, tree, L"admin");
      controls::TextBox& box = window.Page(tree).txtFind;
      controls::Control* const places[] = {&window.Page(tree).TreeView1, &window.TabStrip1,
                                           &window.cmdBtn[kRefreshButton], &box};
      for (controls::Control* place : places) {
        user.Focus(*place);
        box.SetSelStart(2);
        user.PressCtrl(window, 'F');
        EXPECT_TRUE(box.HasFocus());
        EXPECT_EQ(box.SelStart(), 0);
        EXPECT_EQ(box.SelLength(), 5);
      }
      EXPECT_EQ(box.Text(), L"admin");
    }
  });
}

TEST_F(Find, TheBoxStandsBeforeTheTreeAndTheFocusStartsInTheTree) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
    EXPECT_EQ(window.Users.txtFind.Cue(), L"Rechercher (Ctrl+F)");
    user.PressShiftTab(window);
    EXPECT_TRUE(window.Users.txtFind.HasFocus());
    user.PressCtrl(window, test_support::kKeyTab);
    EXPECT_TRUE(window.Groups.txtFind.HasFocus());
    EXPECT_FALSE(window.Users.txtFind.Visible());
    user.PressKey(window, test_support::kKeyTab);
    EXPECT_TRUE(window.Groups.TreeView1.HasFocus());
  });
}

TEST_F(Find, SurvivesARefreshAndAChangeOfTabs) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"jean martin");
    Type(window, kGroupsTree, L"labo");
    EXPECT_EQ(Status(window), L"1 sur 12");
    user.PressKey(window, controls::kKeyF5);
    EXPECT_EQ(OnView(window, kGroupsTree), (Strings{L"Laboratoire"}));
    EXPECT_EQ(Status(window), L"1 sur 12");
    user.ChooseTab(window.TabStrip1, kUsersTree);
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"}));
    EXPECT_EQ(Status(window), L"1 sur 39");
    EXPECT_EQ(window.Users.txtFind.Text(), L"jean martin");
    Raw().Execute("UPDATE QRUSER SET FULLNAME = 'Cousin de Jean Martin' WHERE USERID = 10");
    user.PressKey(window, controls::kKeyF5);
    EXPECT_EQ(Status(window), L"2 sur 39");
  });
}

TEST_F(Find, CommandsDoWhatTheyDoWithoutIt) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"jean martin");
    user.PressKey(window, controls::kKeyDown);
    log.statements.clear();
    user.ExpectModal([this](controls::Form& form) {
      user.Click(dynamic_cast<dialogs::frmEditUser&>(form).cmdOK);
    });
    user.PressKey(window, controls::kKeyF2);
    // The other accounts are brought up to date, hidden or not.
    const Strings rebuild = GroupRebuild(window);
    const auto begin =
        std::search(log.statements.begin(), log.statements.end(), rebuild.begin(), rebuild.end());
    EXPECT_NE(begin, log.statements.end());
    EXPECT_EQ(Status(window), L"Utilisateur Martin modifié");
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"}));
    ExpectInStep(window);
  });
}

TEST_F(Find, WhatIsTypedComesBeforeWhatACommandHasDone) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    user.ExpectModal([this](controls::Form& form) {
      user.Click(dynamic_cast<dialogs::frmEditUser&>(form).cmdOK);
    });
    user.PressKey(window, controls::kKeyF2);
    Type(window, kUsersTree, L"m");
    EXPECT_TRUE(Status(window).ends_with(L" sur 39")) << data::ToUtf8(Status(window));
  });
}

TEST_F(Find, TheOriginOfAPermissionStandsAfterTheCount) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::AnyPermission(9, 16));
    Type(window, kUsersTree, L"admin");
    EXPECT_EQ(Status(window), L"1 sur 39 - Par le groupe Production");
  });
}

TEST_F(Find, TheSelectedAccountStaysWhenItIsRenamed) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"jean martin");
    user.PressKey(window, controls::kKeyDown);
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmEditUser&>(form);
      user.Type(dialog.txtUserName, L"Zo\xEB");
      user.Type(dialog.txtFullName, L"Nobody");
      user.Click(dialog.cmdOK);
    });
    user.PressKey(window, controls::kKeyF2);
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Zo\xEB"}));
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
    EXPECT_EQ(window.Users.txtFind.Text(), L"jean martin");
  });
}

TEST_F(Find, ADeletedAccountPassesTheSelectionToTheNextOneOnView) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"ma");
    const Strings before = OnView(window, kUsersTree);
    ASSERT_GT(before.size(), 2U);
    Select(window, kUsersTree, Keys::User(9));
    const auto martin = std::find(before.begin(), before.end(), L"Martin") - before.begin();
    user.ExpectMsgBox(controls::kResultYes);
    user.PressKey(window, controls::kKeyDelete);
    Strings after = before;
    after.erase(after.begin() + martin);
    EXPECT_EQ(OnView(window, kUsersTree), after);
    const std::size_t next = std::min<std::size_t>(martin, after.size() - 1);
    const NodeId selected = window.Users.TreeView1.SelectedNode();
    EXPECT_EQ(window.Users.TreeView1.Nodes().StoredName(selected), after[next]);
  });
}

TEST_F(Find, ANewAccountThatItWouldHideEndsIt) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"martin");
    MakeUser(window, L"Martina");
    EXPECT_EQ(window.Users.txtFind.Text(), L"martin");
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin", L"Martina", L"Martinez"}));
    MakeUser(window, L"Zora");
    EXPECT_EQ(window.Users.txtFind.Text(), L"");
    EXPECT_EQ(OnView(window, kUsersTree).size(), 41U);
    EXPECT_EQ(Status(window), L"Utilisateur Zora créé");
  });
}

TEST_F(Find, AnAccountThatOneGoesToIsShownAllTheSame) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kGroupsTree, L"admin");
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.PressKey(window, controls::kKeyReturn);
    EXPECT_EQ(Selected(window, kGroupsTree), Keys::Group(12));
    const Strings shown = OnView(window, kGroupsTree);
    EXPECT_NE(std::find(shown.begin(), shown.end(), L"Laboratoire"), shown.end());
    EXPECT_EQ(window.Groups.txtFind.Text(), L"admin");
    user.PressKey(window, controls::kKeyBack);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::GroupOfUser(9, 12));
  });
}

TEST_F(Find, ATreeThatIsIncompleteSaysSoAndIsSearchedAsItIs) {
  Run([this](frmUserGroupPerm& window) {
    Type(window, kUsersTree, L"jean martin");
    log.FailAt = [](const std::wstring& call) {
      return call == data::SqlSelectAllUsers() ? 3L : 0L;
    };
    user.ExpectMsgBox(controls::kResultOk);
    user.PressKey(window, controls::kKeyF5);
    log.FailAt = {};
    EXPECT_EQ(Status(window), Text(app::kAccountsIncomplete));
    EXPECT_EQ(OnView(window, kUsersTree), Strings{});
    user.Focus(window.Users.txtFind);
    user.PressKey(window, controls::kKeyDown);
    EXPECT_EQ(Status(window), Text(app::kAccountsIncomplete));
    user.PressKey(window, controls::kKeyF5);
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"}));
    EXPECT_EQ(Status(window), L"1 sur 39");
  });
}

TEST_F(Find, TakesWhateverIsTyped) {
  Run([this](frmUserGroupPerm& window) {
    const std::wstring hebrew = L"\x5D0\x5D1\x5D2";
    const std::wstring face = L"\xD83D\xDE00";
    Raw().Execute("UPDATE QRUSER SET FULLNAME = '" + data::ToUtf8(hebrew + L" " + face) +
                  " %_[]*?\\\"\"''&;<>' WHERE USERID = 9");
    Raw().Execute("UPDATE QRUSER SET FULLNAME = '\xC5\x92uvre \xC3\x86quo' WHERE USERID = 10");
    user.PressKey(window, controls::kKeyF5);
    for (const std::wstring& text :
         {hebrew, face, face + L" " + hebrew, std::wstring(L"% _ [ ] * ? \\ \" ' & ; < >")}) {
      Type(window, kUsersTree, text);
      EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"})) << data::ToUtf8(text);
    }
    for (const wchar_t* text : {L"oeuvre", L"\x153uvre aequo", L"\xC6QUO OEUV"}) {
      Type(window, kUsersTree, text);
      EXPECT_EQ(Status(window), L"1 sur 39") << data::ToUtf8(text);
    }
    std::wstring words;
    while (words.size() < 4000) words += L"martin \x5D1 ";
    Type(window, kUsersTree, words);
    EXPECT_EQ(OnView(window, kUsersTree), (Strings{L"Martin"}));
    Type(window, kUsersTree, std::wstring(4000, L'm'));
    EXPECT_EQ(OnView(window, kUsersTree), Strings{});
    Type(window, kUsersTree, L"\xDE00");
    Type(window, kUsersTree, L"\x202E\x200F");
    user.PressKey(window, controls::kKeyEscape);
    EXPECT_EQ(OnView(window, kUsersTree).size(), 39U);
  });
}

TEST_F(Find, KeysOfTheTreeDoNothingInTheBox) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    user.Focus(window.Users.txtFind);
    for (const int key : {+controls::kKeyDelete, +controls::kKeyF2, +controls::kKeyBack}) {
      user.PressKey(window, key);
    }
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
  });
}

}  // namespace
}  // namespace browser
