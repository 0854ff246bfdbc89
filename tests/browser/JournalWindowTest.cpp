#include <chrono>
#include <fstream>

#include "app/JournalLine.h"
#include "browser/lists/frmList.h"
#include "data/Text.h"
#include "tests/browser/JournalTest.h"
#include "tests/support/controls/ShownContent.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using namespace std::chrono;
using test_support::Keys;
using test_support::ShownRow;
using test_support::ShownRows;

// The window that shows the journal, with its lines written by hand or by the program.
class JournalWindow : public JournalTest {
 protected:
  using Script = std::function<void(frmList& list)>;

  JournalWindow() { std::filesystem::create_directories(JournalFolder()); }

  void Append(const std::string& bytes, const char* month = "2026-11") {
    const std::string name = "journal-" + std::string(month) + ".jsonl";
    std::ofstream(JournalFolder() / name, std::ios::binary | std::ios::app) << bytes;
  }
  // A line of a removal of so many rows on a day of that month.
  static std::string Line(const std::wstring& what, int rows, int day = 1) {
    app::JournalEntry entry;
    entry.what = what;
    entry.account = {data::Table::kUsers, 9, L"Martin"};
    entry.writes = {{data::Write::Kind::kRemoved, data::Table::kMemberships, {}, {}, rows}};
    const app::JournalTime time(sys_days(2026y / November / day) + 10h);
    return app::JournalLine(time, {L"PC12", L"DOMAINE\\lea", L"Admin"}, entry);
  }

  void Show(frmUserGroupPerm& window, const Script& script) {
    user.ExpectModal([this, script](controls::Form& form) {
      auto& list = dynamic_cast<frmList&>(form);
      EXPECT_EQ(list.Caption(), L"Journal des modifications");
      script(list);
      if (form.IsLoaded()) user.PressKey(form, test_support::kKeyEscape);
    });
    user.PressCtrl(window, 'J');
  }
  void ShowAlone(const Script& script) {
    Run([&](frmUserGroupPerm& window) { Show(window, script); });
  }
  static Strings Column(const frmList& list, std::size_t column) {
    Strings texts;
    for (const ShownRow& row : ShownRows(list.List1)) texts.push_back(row.texts[column]);
    return texts;
  }
};

TEST_F(JournalWindow, ShowsWhatTheProgramHasJustDone) {
  Run([this](frmUserGroupPerm& window) {
    Show(window, [](frmList& list) {
      EXPECT_EQ(list.lblCount.Caption(), L"Aucune modification consignée.");
      EXPECT_EQ(list.lblNotice.Caption(), L"");
    });
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    log.statements.clear();
    Show(window, [this](frmList& list) {
      ASSERT_EQ(list.List1.RowCount(), 1);
      const ShownRow row = ShownRows(list.List1)[0];
      EXPECT_EQ(row.texts[1], global.sessionUserText + L" (" + desktop.system.UserName() +
                                  L", poste " + desktop.system.ComputerName() + L")");
      EXPECT_EQ(row.texts[2], L"Martin ne fait plus partie du groupe Laboratoire");
      EXPECT_EQ(row.texts[3], L"Martin");
      EXPECT_EQ(row.texts[4], L"1");
      EXPECT_EQ(list.lblList.Caption(), L"Dossier : " + global.journal.Folder());
      EXPECT_FALSE(list.cmdOK.Visible());
    });
    EXPECT_EQ(log.statements, Strings());
  });
}

TEST_F(JournalWindow, ShowsTheLatestFirstWithTheirTimesHere) {
  Append(Line(L"octobre", 1), "2026-10");
  Append(Line(L"un", 1, 1) + Line(L"deux", 1, 2));
  ShowAlone([this](frmList& list) {
    EXPECT_EQ(Column(list, 2), (Strings{L"deux", L"un", L"octobre"}));
    const app::JournalTime time(sys_days(2026y / November / 2) + 10h);
    EXPECT_EQ(Column(list, 0)[0], desktop.system.LocalTime(time));
  });
}

// As texts the 9th would come after the 10th, and 9 rows after 10.
TEST_F(JournalWindow, IsSortedByTimeAndByRows) {
  for (const int day : {9, 10, 30}) Append(Line(L"jour " + std::to_wstring(day), 40 - day, day));
  Append(Line(L"décembre", 2, 1), "2026-12");
  Append(Line(L"janvier", 100, 8), "2027-01");
  ShowAlone([this](frmList& list) {
    user.ClickHeading(list.List1, 4);
    EXPECT_EQ(Column(list, 4), (Strings{L"2", L"10", L"30", L"31", L"100"}));
    user.PressCtrl(list, '1');
    EXPECT_EQ(Column(list, 2),
              (Strings{L"décembre", L"janvier", L"jour 9", L"jour 10", L"jour 30"}));
    user.PressCtrl(list, '1');
    EXPECT_EQ(Column(list, 2)[0], L"jour 30");
  });
}

TEST_F(JournalWindow, SaysWhatAnErrorWas) {
  app::JournalEntry entry;
  entry.complete = false;
  entry.what = L"x";
  entry.error = {1234, L"la table\nest verrouillée"};
  Append(app::JournalLine(system_clock::now(), {}, entry));
  entry.error->text.clear();
  Append(app::JournalLine(system_clock::now() - 1h, {}, entry));
  ShowAlone([](frmList& list) {
    EXPECT_EQ(Column(list, 4),
              (Strings{L"Erreur 1234 : la table est verrouillée", L"Erreur 1234"}));
  });
}

TEST_F(JournalWindow, IsFilteredAndCopied) {
  for (const wchar_t* what : {L"Léa créée", L"Zoé créée", L"Léa supprimée"}) Append(Line(what, 1));
  ShowAlone([this](frmList& list) {
    user.Type(list.txtFilter, L"zoe CREEE");
    EXPECT_EQ(list.lblCount.Caption(), L"1 sur 3");
    user.PressKey(list, controls::kKeyDown);
    EXPECT_TRUE(list.List1.HasFocus());
    user.PressCtrl(list, test_support::kKeyC);
    const std::wstring copied = user.Clipboard();
    EXPECT_EQ(copied.substr(std::min(copied.find(L'\t'), copied.size())),
              L"\tAdmin (DOMAINE\\lea, poste PC12)\tZoé créée\tMartin\t1\r\n");
    // What it is sorted by is nothing to look for.
    list.txtFilter.SetText(L"0000");
    EXPECT_EQ(list.lblCount.Caption(), L"0 sur 3");
  });
}

TEST_F(JournalWindow, CountsTheLinesThatNobodyCanRead) {
  Append(Line(L"un", 1) + "{\"time\":\"2026\n" + Line(L"deux", 1) + "something else\n");
  Append(Line(L"trois", 1).substr(0, 50));
  ShowAlone([](frmList& list) {
    EXPECT_EQ(list.List1.RowCount(), 2);
    EXPECT_EQ(list.lblNotice.Caption(), L"Lignes illisibles, laissées de côté : 3.");
  });
}

TEST_F(JournalWindow, ShowsFiveThousandLinesAndSaysThatThereAreOlderOnes) {
  std::string lines;
  for (int i = 0; i < 5001; ++i) lines += Line(L"n" + std::to_wstring(i), 1);
  Append(lines);
  ShowAlone([this](frmList& list) {
    EXPECT_EQ(list.List1.RowCount(), 5000);
    EXPECT_EQ(list.List1.Text(0, 2), L"n5000");
    EXPECT_EQ(list.List1.Text(4999, 2), L"n1");
    EXPECT_EQ(list.lblNotice.Caption(), Text(app::kJournalHasMore));
  });
}

TEST_F(JournalWindow, SaysThatItIsSwitchedOff) {
  Append(Line(L"un", 1));
  user.System().answers.Policy = [](const std::wstring&, const std::wstring&) {
    return std::optional<std::wstring>(L"0");
  };
  ShowAlone([this](frmList& list) {
    EXPECT_EQ(list.List1.RowCount(), 0);
    EXPECT_EQ(list.lblNotice.Caption(), Text(app::kJournalOff));
  });
}

TEST_F(JournalWindow, SaysThatItCannotBeRead) {
  std::filesystem::remove_all(JournalFolder());
  std::ofstream(JournalFolder()) << "a file";
  ShowAlone([this](frmList& list) {
    EXPECT_EQ(list.List1.RowCount(), 0);
    EXPECT_EQ(list.lblNotice.Caption(), Text(app::kJournalUnread));
  });
}

// What others write and remove while it is open hurts nobody.
TEST_F(JournalWindow, HoldsNoFile) {
  Append(Line(L"un", 1));
  Run([this](frmUserGroupPerm& window) {
    Show(window, [this](frmList&) {
      Append(Line(L"deux", 1));
      std::filesystem::rename(JournalFolder(), Local() / "elsewhere");
      std::filesystem::remove_all(Local() / "elsewhere");
    });
    Show(window, [](frmList& list) { EXPECT_EQ(list.List1.RowCount(), 0); });
  });
}

TEST_F(JournalWindow, OpensTheJournalsHelpPage) {
  ShowAlone([this](frmList& list) { user.PressKey(list, controls::kKeyF1); });
  ASSERT_EQ(user.HelpCalls().size(), 1U);
  EXPECT_EQ(user.HelpCalls()[0].topic, app::kTopicJournal);
}

TEST_F(JournalWindow, IsALineOfTheMenuOfEachRoot) {
  Run([this](frmUserGroupPerm& window) {
    for (const int tree : {kUsersTree, kGroupsTree}) {
      user.ChooseTab(window.TabStrip1, tree);
      user.ExpectModal([this](controls::Form& form) {
        EXPECT_EQ(form.Caption(), L"Journal des modifications");
        user.PressKey(form, test_support::kKeyEscape);
      });
      user.ExpectMenu([](const std::vector<controls::MenuItem>& items) {
        EXPECT_EQ(items.back().caption, L"&Journal...\tCtrl+J");
        return items.back().command;
      });
      user.RightClick(window.Page(tree).TreeView1, At(window, tree, Keys::Root()));
    }
  });
}

}  // namespace
}  // namespace browser
