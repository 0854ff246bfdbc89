#include <gtest/gtest.h>

#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using controls::CommandButton;
using controls::MenuItem;
using test_support::Keys;
using Menu = std::vector<MenuItem>;

// A node of each kind, and of each protected account.
const std::wstring kUserNodes[] = {Keys::Root(),
                                   Keys::User(9),
                                   Keys::GroupsOfUser(9),
                                   Keys::GroupOfUser(9, 12),
                                   Keys::GroupOfUser(9, 2),
                                   Keys::OwnPermissions(9),
                                   Keys::OwnPermission(9, 14),
                                   Keys::AllPermissions(9),
                                   Keys::AnyPermission(9, 14),
                                   Keys::User(1),
                                   Keys::GroupOfUser(1, 1),
                                   Keys::User(2)};
const std::wstring kGroupNodes[] = {Keys::Root(),
                                    Keys::Group(6),
                                    Keys::MembersOfGroup(6),
                                    Keys::MemberOfGroup(6, 15),
                                    Keys::GroupPermissions(6),
                                    Keys::GroupPermission(6, 14),
                                    Keys::Group(1),
                                    Keys::MemberOfGroup(1, 2),
                                    Keys::GroupPermission(1, 29),
                                    Keys::Group(2),
                                    Keys::MemberOfGroup(2, 9)};

// What the trees offer without a button: the menu, keys and the clipboard.
class TreeCommands : public CommandTest {
 protected:
  // The menu of the selected node; nothing is chosen.
  Menu MenuOf(frmUserGroupPerm& window, int tree) {
    Menu menu;
    user.ExpectMenu([&menu](const Menu& items) {
      menu = items;
      return 0;
    });
    user.PressMenuKey(window.Page(tree).TreeView1);
    return menu;
  }

  static Strings Captions(const Menu& menu) {
    Strings captions;
    for (const MenuItem& item : menu) captions.push_back(item.caption);
    return captions;
  }

  // The captions of a menu, by those of its sections; own are the commands of this tree alone.
  static Strings Lines(const std::wstring& first, const std::wstring& second, const Strings& own) {
    Strings lines = {L"&Editer...",
                     L"&Supprimer...",
                     L"&Nouveau...",
                     L"",
                     first + L" : Affecter...",
                     first + L" : Supprimer...",
                     L"",
                     second + L" : Affecter...",
                     second + L" : Supprimer...",
                     L"",
                     L"&Copier",
                     L"&Développer",
                     L"Réd&uire",
                     L"",
                     L"&Atteindre le compte\tEntrée",
                     L"Re&venir\tRetour arrière",
                     L""};
    lines.insert(lines.end(), own.begin(), own.end());
    for (const wchar_t* line :
         {L"&Qui détient ce droit...\tCtrl+Q", L"&Membres...\tCtrl+M", L"Com&parer avec...\tCtrl+K",
          L"E&xporter les droits...\tCtrl+E", L"&Journal...\tCtrl+J"}) {
      lines.emplace_back(line);
    }
    return lines;
  }

  // The buttons of a tab in the order of the menu.
  static std::vector<const CommandButton*> Buttons(frmUserGroupPerm& w, int tree) {
    const auto all = [](auto& account, auto& first, auto& second) {
      return std::vector<const CommandButton*>{&account[0], &account[1], &account[2], &first[0],
                                               &first[1],   &second[0],  &second[1]};
    };
    return tree == kUsersTree
               ? all(w.Users.cmdUser, w.Users.cmdMemberOf, w.Users.cmdUserPermission)
               : all(w.Groups.cmdGroup, w.Groups.cmdMember, w.Groups.cmdGroupPermission);
  }

  template <std::size_t kNodes>
  void ExpectEnabledAsTheButtons(frmUserGroupPerm& window, int tree,
                                 const std::wstring (&keys)[kNodes]) {
    for (const std::wstring& key : keys) {
      Select(window, tree, key);
      const Menu menu = MenuOf(window, tree);
      ASSERT_EQ(menu.size(), tree == kUsersTree ? 23u : 22u);
      std::vector<bool> offered;
      for (const std::size_t line : {0, 1, 2, 4, 5, 7, 8}) offered.push_back(menu[line].enabled);
      std::vector<bool> on;
      for (const CommandButton* button : Buttons(window, tree)) on.push_back(button->Enabled());
      EXPECT_EQ(offered, on) << data::ToUtf8(key);
    }
  }

  // Chooses the line with this caption from the menu of the node.
  void Choose(frmUserGroupPerm& window, int tree, const std::wstring& key, const wchar_t* caption) {
    user.ChooseTab(window.TabStrip1, tree);
    user.ExpectMenu([caption](const Menu& items) {
      for (const MenuItem& item : items) {
        if (item.caption == caption) return item.command;
      }
      ADD_FAILURE() << "no such line";
      return 0;
    });
    user.RightClick(window.Page(tree).TreeView1, At(window, tree, key));
  }

  template <typename Dialog>
  void ExpectEscape() {
    user.ExpectModal([this](controls::Form& form) {
      EXPECT_NE(dynamic_cast<Dialog*>(&form), nullptr);
      user.PressKey(form, test_support::kKeyEscape);
    });
  }
};

TEST_F(TreeCommands, TheMenuOfTheUsersTreeNamesItsCommandsBySection) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    const Menu menu = MenuOf(window, kUsersTree);
    EXPECT_EQ(Captions(menu),
              Lines(L"Membre du Groupe", L"Droits Utilisateur", {L"Dup&liquer...\tCtrl+D"}));
    for (const std::size_t separator : {3, 6, 9, 13, 16}) EXPECT_EQ(menu[separator].command, 0);
  });
}

TEST_F(TreeCommands, TheMenuOfTheGroupsTreeNamesItsCommandsBySection) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(6));
    EXPECT_EQ(Captions(MenuOf(window, kGroupsTree)), Lines(L"Membres", L"Droits du Groupe", {}));
  });
}

TEST_F(TreeCommands, TheMenuOffersExactlyWhatTheButtonsAllow) {
  Run([this](frmUserGroupPerm& window) {
    ExpectEnabledAsTheButtons(window, kUsersTree, kUserNodes);
    ExpectEnabledAsTheButtons(window, kGroupsTree, kGroupNodes);
  });
}

TEST_F(TreeCommands, TheMenuOffersExactlyWhatTheButtonsAllowToAnotherAdministrator) {
  Run(
      [this](frmUserGroupPerm& window) {
        ExpectEnabledAsTheButtons(window, kUsersTree, kUserNodes);
        ExpectEnabledAsTheButtons(window, kGroupsTree, kGroupNodes);
      },
      L"Moreau");
}

TEST_F(TreeCommands, ExpandingAndCollapsingIsOfferedWhereItChangesSomething) {
  Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9");
  Run([this](frmUserGroupPerm& window) {
    const auto offered = [&](const std::wstring& key) {
      Select(window, kUsersTree, key);
      const Menu menu = MenuOf(window, kUsersTree);
      return std::vector<bool>{menu[11].enabled, menu[12].enabled};
    };
    EXPECT_EQ(offered(Keys::Root()), (std::vector<bool>{false, true}));
    EXPECT_EQ(offered(Keys::User(9)), (std::vector<bool>{true, false}));
    EXPECT_EQ(offered(Keys::GroupOfUser(9, 12)), (std::vector<bool>{false, false}));
    EXPECT_EQ(offered(Keys::OwnPermissions(9)), (std::vector<bool>{false, false}));
    EXPECT_EQ(offered(Keys::User(9)), (std::vector<bool>{false, true}));
  });
}

TEST_F(TreeCommands, TheMenuExpandsAndCollapses) {
  Run([this](frmUserGroupPerm& window) {
    const controls::TreeNodes& nodes = window.Users.TreeView1.Nodes();
    Choose(window, kUsersTree, Keys::User(9), L"&Développer");
    EXPECT_TRUE(nodes.Expanded(At(window, kUsersTree, Keys::User(9))));
    Choose(window, kUsersTree, Keys::User(9), L"Réd&uire");
    EXPECT_FALSE(nodes.Expanded(At(window, kUsersTree, Keys::User(9))));
  });
}

TEST_F(TreeCommands, EachLineOfTheMenuGivesItsCommandOnTheUsersTab) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    ExpectEscape<dialogs::frmEditUser>();
    Choose(window, kUsersTree, Keys::User(9), L"&Editer...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cet utilisateur ?");
    Choose(window, kUsersTree, Keys::User(9), L"&Supprimer...");
    ExpectEscape<dialogs::frmNewUser>();
    Choose(window, kUsersTree, Keys::User(9), L"&Nouveau...");
    ExpectEscape<dialogs::frmListItem>();
    Choose(window, kUsersTree, Keys::User(9), L"Membre du Groupe : Affecter...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce membre du groupe ?");
    Choose(window, kUsersTree, Keys::GroupOfUser(9, 12), L"Membre du Groupe : Supprimer...");
    ExpectEscape<dialogs::frmListItem>();
    Choose(window, kUsersTree, Keys::OwnPermissions(9), L"Droits Utilisateur : Affecter...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cette permission utilisateur ?");
    Choose(window, kUsersTree, Keys::OwnPermission(9, 14), L"Droits Utilisateur : Supprimer...");
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(TreeCommands, EachLineOfTheMenuGivesItsCommandOnTheGroupsTab) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    ExpectEscape<dialogs::frmEditGroup>();
    Choose(window, kGroupsTree, Keys::Group(6), L"&Editer...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce groupe ?");
    Choose(window, kGroupsTree, Keys::Group(6), L"&Supprimer...");
    ExpectEscape<dialogs::frmNewGroup>();
    Choose(window, kGroupsTree, Keys::Group(6), L"&Nouveau...");
    ExpectEscape<dialogs::frmAddUserInGroup>();
    Choose(window, kGroupsTree, Keys::MembersOfGroup(6), L"Membres : Affecter...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce membre ?");
    Choose(window, kGroupsTree, Keys::MemberOfGroup(6, 15), L"Membres : Supprimer...");
    ExpectEscape<dialogs::frmListItem>();
    Choose(window, kGroupsTree, Keys::GroupPermissions(6), L"Droits du Groupe : Affecter...");
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cette permission de groupe ?");
    Choose(window, kGroupsTree, Keys::GroupPermission(6, 21), L"Droits du Groupe : Supprimer...");
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(TreeCommands, F2EditsTheAccountFromAnyOfItsNodes) {
  Run([this](frmUserGroupPerm& window) {
    for (const std::wstring& key :
         {Keys::User(9), Keys::GroupsOfUser(9), Keys::AnyPermission(9, 14)}) {
      Select(window, kUsersTree, key);
      user.ExpectModal([this](controls::Form& form) {
        EXPECT_EQ(dynamic_cast<dialogs::frmEditUser&>(form).UserID, 9);
        user.PressKey(form, test_support::kKeyEscape);
      });
      user.PressKey(window, controls::kKeyF2);
    }
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
    user.ExpectModal([this](controls::Form& form) {
      EXPECT_EQ(dynamic_cast<dialogs::frmEditGroup&>(form).GroupID, 6);
      user.PressKey(form, test_support::kKeyEscape);
    });
    user.PressKey(window, controls::kKeyF2);
  });
}

TEST_F(TreeCommands, DeleteTakesTheSelectedAccountOrLink) {
  struct Case {
    int tree;
    std::wstring key;
    const wchar_t* question;
  };
  const Case cases[] = {
      {0, Keys::User(9), L"Souhaitez-vous supprimer cet utilisateur ?"},
      {0, Keys::GroupOfUser(9, 12), L"Souhaitez-vous supprimer ce membre du groupe ?"},
      {0, Keys::OwnPermission(9, 14), L"Souhaitez-vous supprimer cette permission utilisateur ?"},
      {1, Keys::Group(6), L"Souhaitez-vous supprimer ce groupe ?"},
      {1, Keys::MemberOfGroup(6, 15), L"Souhaitez-vous supprimer ce membre ?"},
      {1, Keys::GroupPermission(6, 21), L"Souhaitez-vous supprimer cette permission de groupe ?"},
  };
  Run([&](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    for (const Case& test : cases) {
      Select(window, test.tree, test.key);
      ExpectQuestion(controls::kResultNo, test.question);
      user.PressKey(window, controls::kKeyDelete);
    }
    EXPECT_EQ(Look(window), before);
    Select(window, kUsersTree, Keys::OwnPermission(9, 14));
    ExpectQuestion(controls::kResultYes,
                   L"Souhaitez-vous supprimer cette permission utilisateur ?");
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_FALSE(Has(window, kUsersTree, Keys::OwnPermission(9, 14)));
    ExpectInStep(window);
  });
}

TEST_F(TreeCommands, KeysDoNothingWhereTheButtonIsOffOrAFolderIsSelected) {
  Run([this](frmUserGroupPerm& window) {
    log.statements.clear();
    const auto press = [&](int tree, const std::wstring& key) {
      Select(window, tree, key);
      user.PressKey(window, controls::kKeyDelete);
    };
    for (const std::wstring& key :
         {Keys::Root(), Keys::User(1), Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 2),
          Keys::OwnPermissions(9), Keys::AllPermissions(9), Keys::AnyPermission(9, 14)}) {
      press(0, key);
    }
    for (const std::wstring& key :
         {Keys::Root(), Keys::Group(1), Keys::Group(2), Keys::MembersOfGroup(6),
          Keys::MemberOfGroup(2, 9), Keys::GroupPermissions(6), Keys::GroupPermission(1, 29)}) {
      press(1, key);
    }
    Select(window, kUsersTree, Keys::Root());
    user.PressKey(window, controls::kKeyF2);
    EXPECT_TRUE(log.statements.empty());
  });
}

TEST_F(TreeCommands, KeysBelongToTheTreeThatHasTheFocus) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    user.Focus(window.Users.cmdUser[kNewButton]);
    log.statements.clear();
    user.PressKey(window, controls::kKeyF2);
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_TRUE(log.statements.empty());
  });
}

TEST_F(TreeCommands, CtrlCCopiesTheNodeAndWhatIsBelowItIndented) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(12));
    log.calls.clear();
    user.PressCtrl(window, test_support::kKeyC);
    EXPECT_EQ(user.Clipboard(),
              L"Laboratoire (Mesures et essais)\r\n"
              L"\tDroits du Groupe\r\n"
              L"\t\tSaisir un relevé de contrôle\r\n"
              L"\tMembres\r\n"
              L"\t\tClément (Joëlle Clément)\r\n"
              L"\t\tMartin (Jean Martin)\r\n"
              L"\t\tŒuvrard (Cœlia Œuvrard)");
    EXPECT_TRUE(log.calls.empty());
  });
}

TEST_F(TreeCommands, CtrlCOnALeafCopiesItsTextAlone) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::OwnPermission(9, 14));
    user.PressCtrl(window, test_support::kKeyC);
    EXPECT_EQ(user.Clipboard(), L"Consulter le stock");
    Select(window, kUsersTree, Keys::OwnPermissions(9));
    user.PressCtrl(window, test_support::kKeyInsert);
    EXPECT_EQ(user.Clipboard(),
              L"Droits Utilisateur\r\n\tConsulter le stock\r\n\tSaisir un relevé de contrôle");
  });
}

TEST_F(TreeCommands, BreaksAndTabsWithinANameDoNotBreakTheCopiedLines) {
  Raw().Execute(
      "UPDATE QRGROUP SET NAME = 'a' || char(13) || char(10) || 'b' || char(9) || 'c', DESCR = "
      "NULL WHERE GROUPID = 12");
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.PressCtrl(window, test_support::kKeyC);
    EXPECT_EQ(user.Clipboard(), L"a  b c");
  });
}

TEST_F(TreeCommands, TheMenuCopiesToo) {
  Run([this](frmUserGroupPerm& window) {
    Choose(window, kUsersTree, Keys::GroupOfUser(9, 12), L"&Copier");
    EXPECT_EQ(user.Clipboard(), L"Laboratoire (Mesures et essais)");
  });
}

TEST_F(TreeCommands, AClipboardThatIsOccupiedOnlyBeeps) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    user.SetClipboardOccupied(true);
    const int beeps = user.BeepCount();
    user.PressCtrl(window, test_support::kKeyC);
    EXPECT_EQ(user.BeepCount(), beeps + 1);
    EXPECT_EQ(user.Clipboard(), L"");
  });
}

}  // namespace
}  // namespace browser
