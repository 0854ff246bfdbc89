#include <gtest/gtest.h>

#include "browser/lists/frmList.h"
#include "tests/support/controls/ShownContent.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using test_support::ShownHeadings;
using test_support::ShownRows;

class ListWindow : public test_support::MainWindowFixture {
 protected:
  using Script = std::function<void(frmList& list)>;

  static ListSource Names() {
    ListSource source;
    source.title = L"Titre";
    source.heading = L"Groupe : R&D";
    source.columns = {{L"Nom", 1}, {L"Détail", 2}, {L"Nombre", 1, true}};
    source.rows = {{{L"Martin", L"Léa Martin", L"10"}, Account{kUsersTab, 3}},
                   {{L"Œuvrard", L"Zoé Œuvrard", L"9"}, Account{kGroupsTab, 4}},
                   {{L"Durand", L"", L"11"}}};
    source.nothing = L"Rien.";
    source.action = L"&Choisir";
    return source;
  }

  // Shows the list over the main window; the answer is what was chosen.
  std::optional<Account> Show(ListSource source, const Script& script) {
    std::optional<Account> chosen;
    Run([&](frmUserGroupPerm& window) {
      frmList list(global, std::move(source));
      user.ExpectModal([&](controls::Form& form) {
        script(list);
        if (form.IsLoaded()) user.PressKey(list, test_support::kKeyEscape);
      });
      list.ShowModal(window);
      EXPECT_FALSE(list.IsLoaded());
      chosen = list.chosen;
    });
    return chosen;
  }

  static std::vector<std::wstring> FirstTexts(const frmList& list) {
    std::vector<std::wstring> texts;
    for (const auto& row : ShownRows(list.List1)) texts.push_back(row.texts[0]);
    return texts;
  }
  using Texts = std::vector<std::wstring>;
};

TEST_F(ListWindow, ShowsItsRowsAndHowManyThereAre) {
  const auto chosen = Show(Names(), [this](frmList& list) {
    EXPECT_EQ(list.Caption(), L"Titre");
    EXPECT_EQ(list.lblList.Caption(), L"Groupe : R&D");
    EXPECT_EQ(list.List1.AccessibleName(), L"Groupe : R&D");
    EXPECT_EQ(list.lblCount.Caption(), L"3 sur 3");
    EXPECT_EQ(list.txtFilter.Cue(), L"Rechercher (Ctrl+F)");
    EXPECT_TRUE(list.txtFilter.HasFocus());
    EXPECT_EQ(FirstTexts(list), (Texts{L"Martin", L"Œuvrard", L"Durand"}));
    EXPECT_EQ(list.lblNotice.Caption(), L"");
    EXPECT_EQ(list.cmdOK.Caption(), L"&Choisir");
  });
  EXPECT_FALSE(chosen);
}

TEST_F(ListWindow, IsNarrowedByWhatIsTyped) {
  Show(Names(), [this](frmList& list) {
    user.Type(list.txtFilter, L"ZOE oeuv");
    EXPECT_EQ(FirstTexts(list), Texts{L"Œuvrard"});
    EXPECT_EQ(list.lblCount.Caption(), L"1 sur 3");
    user.Type(list.txtFilter, L"x");
    EXPECT_EQ(FirstTexts(list), Texts{});
    EXPECT_EQ(list.lblCount.Caption(), L"0 sur 3");
    EXPECT_FALSE(user.CanUse(list.cmdOK));
    user.Type(list.txtFilter, L"\b");
    EXPECT_EQ(list.lblCount.Caption(), L"1 sur 3");
    EXPECT_TRUE(user.CanUse(list.cmdOK));
    list.txtFilter.SetText(L"");
    EXPECT_EQ(list.lblCount.Caption(), L"3 sur 3");
  });
}

TEST_F(ListWindow, LooksForAWordInOneTextAndForWordsInAnyOfThem) {
  Show(Names(), [this](frmList& list) {
    list.txtFilter.SetText(L"lea mart 10");
    EXPECT_EQ(FirstTexts(list), Texts{L"Martin"});
    list.txtFilter.SetText(L"martinlea");
    EXPECT_EQ(FirstTexts(list), Texts{});
  });
}

TEST_F(ListWindow, IsSortedByAClickOnAHeadingAndByItsNumber) {
  Show(Names(), [this](frmList& list) {
    user.ClickHeading(list.List1, 0);
    EXPECT_EQ(FirstTexts(list), (Texts{L"Durand", L"Martin", L"Œuvrard"}));
    user.PressCtrl(list, '3');
    EXPECT_EQ(FirstTexts(list), (Texts{L"Œuvrard", L"Martin", L"Durand"}));
    user.PressCtrl(list, '3');
    EXPECT_EQ(FirstTexts(list), (Texts{L"Durand", L"Martin", L"Œuvrard"}));
    EXPECT_EQ(ShownHeadings(list.List1), (Texts{L"Nom", L"Détail", L"-Nombre"}));
    user.PressCtrl(list, '4');
    EXPECT_EQ(ShownHeadings(list.List1), (Texts{L"Nom", L"Détail", L"-Nombre"}));
    list.txtFilter.SetText(L"ar");
    EXPECT_EQ(FirstTexts(list), (Texts{L"Martin", L"Œuvrard"}));
  });
}

TEST_F(ListWindow, EnterInTheBoxChoosesTheFirstRowOnView) {
  const auto chosen = Show(Names(), [this](frmList& list) {
    user.Type(list.txtFilter, L"oeuvrard");
    user.PressKey(list, test_support::kKeyEnter);
    EXPECT_FALSE(list.IsLoaded());
  });
  EXPECT_EQ(chosen, (Account{kGroupsTab, 4}));
}

TEST_F(ListWindow, ADoubleClickChoosesTheRow) {
  const auto chosen = Show(Names(), [this](frmList& list) { user.DoubleClick(list.List1, 0); });
  EXPECT_EQ(chosen, (Account{kUsersTab, 3}));
}

TEST_F(ListWindow, TheButtonChoosesTheRowThatHasTheFocus) {
  const auto chosen = Show(Names(), [this](frmList& list) {
    user.Choose(list.List1, 1);
    user.Click(list.cmdOK);
  });
  EXPECT_EQ(chosen, (Account{kGroupsTab, 4}));
}

TEST_F(ListWindow, ARowThatLeadsNowhereIsNotChosen) {
  const auto chosen = Show(Names(), [this](frmList& list) {
    user.Choose(list.List1, 2);
    EXPECT_FALSE(user.CanUse(list.cmdOK));
    user.DoubleClick(list.List1, 2);
    user.PressKey(list, test_support::kKeyEnter);
    EXPECT_TRUE(list.IsLoaded());
    user.Choose(list.List1, 0);
    EXPECT_TRUE(user.CanUse(list.cmdOK));
  });
  EXPECT_FALSE(chosen);
}

TEST_F(ListWindow, TheKeysLeadFromTheBoxToTheListAndBack) {
  Show(Names(), [this](frmList& list) {
    user.PressKey(list, controls::kKeyDown);
    EXPECT_TRUE(list.List1.HasFocus());
    EXPECT_EQ(list.List1.Index(), 0);
    user.PressCtrl(list, 'F');
    EXPECT_TRUE(list.txtFilter.HasFocus());
  });
}

TEST_F(ListWindow, WithoutAnActionOnlyShowsAndCopies) {
  ListSource source = Names();
  source.action.clear();
  const auto chosen = Show(source, [this](frmList& list) {
    EXPECT_FALSE(user.CanUse(list.cmdOK));
    EXPECT_FALSE(list.cmdOK.Visible());
    user.DoubleClick(list.List1, 0);
    user.PressKey(list, test_support::kKeyEnter);
    EXPECT_TRUE(list.IsLoaded());
    user.PressCtrl(list, test_support::kKeyC);
    EXPECT_EQ(user.Clipboard(), L"Martin\tLéa Martin\t10\r\n");
    user.Click(list.cmdCancel);
    EXPECT_FALSE(list.IsLoaded());
  });
  EXPECT_FALSE(chosen);
}

TEST_F(ListWindow, SaysWhereThereIsNothing) {
  ListSource source = Names();
  source.rows.clear();
  Show(source, [this](frmList& list) {
    EXPECT_EQ(list.lblCount.Caption(), L"Rien.");
    EXPECT_FALSE(user.CanUse(list.cmdOK));
    user.Type(list.txtFilter, L"x");
    EXPECT_EQ(list.lblCount.Caption(), L"Rien.");
    user.PressKey(list, controls::kKeyDown);
    EXPECT_TRUE(list.List1.HasFocus());
    user.PressKey(list, test_support::kKeyEnter);
    EXPECT_TRUE(list.IsLoaded());
  });
}

TEST_F(ListWindow, ShowsItsNotice) {
  ListSource source = Names();
  source.notice = L"Lu à moitié & plus.";
  Show(source, [](frmList& list) { EXPECT_EQ(list.lblNotice.Caption(), L"Lu à moitié & plus."); });
}

TEST_F(ListWindow, OpensItsHelpPage) {
  Show(Names(), [this](frmList& list) {
    user.PressKey(list, controls::kKeyF1);
    user.Click(list.Command1);
  });
  ASSERT_EQ(user.HelpCalls().size(), 2U);
  for (const auto& call : user.HelpCalls()) EXPECT_EQ(call.topic, app::kTopicList);
}

TEST_F(ListWindow, HostileNamesTearNoLineApart) {
  ListSource source = Names();
  source.rows = {{{L"a\tb", L"c\r\nd", L"\x2028"}}, {{L"\xD83D\xDE00", L"\x05D0\x202E", L"&%1"}}};
  Show(source, [this](frmList& list) {
    user.Focus(list.List1);
    user.PressCtrl(list, test_support::kKeyC);
    EXPECT_EQ(user.Clipboard(), L"a b\tc  d\t \r\n\xD83D\xDE00\t\x05D0\x202E\t&%1\r\n");
    list.txtFilter.SetText(L"\xD83D\xDE00");
    EXPECT_EQ(list.lblCount.Caption(), L"1 sur 2");
    list.txtFilter.SetText(L"\x05D0");
    EXPECT_EQ(list.lblCount.Caption(), L"1 sur 2");
  });
}

TEST_F(ListWindow, TakesLongTextsToLookFor) {
  Show(Names(), [this](frmList& list) {
    user.Paste(list.txtFilter, std::wstring(4000, L'é'));
    EXPECT_EQ(list.lblCount.Caption(), L"0 sur 3");
    std::wstring words;
    for (int i = 0; i < 800; ++i) words += L"lea  ";
    list.txtFilter.SetText(words);
    EXPECT_EQ(FirstTexts(list), Texts{L"Martin"});
  });
}

TEST_F(ListWindow, OfManyRowsShowsNumbersThatCanBeRead) {
  ListSource source = Names();
  source.rows.clear();
  for (int i = 0; i < 30000; ++i) source.rows.push_back({{L"Nom " + std::to_wstring(i)}});
  Show(source, [](frmList& list) {
    EXPECT_EQ(list.lblCount.Caption(),
              L"30\xA0"
              L"000 sur 30\xA0"
              L"000");
    list.txtFilter.SetText(L"nom 2999");
    EXPECT_EQ(list.lblCount.Caption(),
              L"13 sur 30\xA0"
              L"000");
  });
}

}  // namespace
}  // namespace browser
