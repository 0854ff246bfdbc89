#include "controls/ListView.h"

#include <gtest/gtest.h>

#include "tests/controls/TestForm.h"
#include "tests/support/controls/ShownContent.h"
#include "tests/support/controls/User.h"

namespace controls_test {
namespace {

using test_support::ShownHeadings;
using test_support::ShownRow;
using test_support::ShownRows;
using Rows = std::vector<int>;
using Texts = std::vector<std::wstring>;

class ListView : public testing::Test {
 protected:
  ListView() {
    form.Show();
    list.SetColumns({{L"Nom", 2}, {L"Détail", 3}, {L"Nombre", 1, true}});
    list.SetRows({{L"Martin", L"b", L"10"},
                  {L"bernard", L"a", L"9"},
                  {L"Émile", L"b", L"100"},
                  {L"Bernard", L"a", L"-2"}});
    list.Click = [this] { events.push_back(L"click " + std::to_wstring(list.Index())); };
  }

  void Listen() {
    list.Activate = [this](int row) { events.push_back(L"activate " + std::to_wstring(row)); };
  }
  Rows Shown() const {
    Rows rows;
    for (int place = 0; place < list.ShownCount(); ++place) rows.push_back(list.RowAt(place));
    return rows;
  }
  Texts FirstTexts() const {
    Texts texts;
    for (const ShownRow& row : ShownRows(list)) texts.push_back(row.texts[0]);
    return texts;
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  ListForm form{desktop};
  controls::ListView& list = form.list;
  Texts events;
};

TEST_F(ListView, ShowsItsRowsInTheOrderInWhichTheyAreGiven) {
  EXPECT_EQ(list.RowCount(), 4);
  EXPECT_EQ(list.ShownCount(), 4);
  EXPECT_EQ(list.Text(2, 0), L"Émile");
  EXPECT_EQ(ShownHeadings(list), (Texts{L"Nom", L"Détail", L"Nombre"}));
  EXPECT_EQ(ShownRows(list), (std::vector<ShownRow>{{{L"Martin", L"b", L"10"}},
                                                    {{L"bernard", L"a", L"9"}},
                                                    {{L"Émile", L"b", L"100"}},
                                                    {{L"Bernard", L"a", L"-2"}}}));
  EXPECT_EQ(list.Index(), -1);
  EXPECT_EQ(list.SelectedRows(), Rows{});
}

TEST_F(ListView, AnswersNothingForWhatIsNotThere) {
  for (const int none : {-1, 4, 99}) {
    EXPECT_EQ(list.Text(none, 0), L"");
    EXPECT_EQ(list.Text(0, none), L"");
    EXPECT_EQ(list.RowAt(none), -1);
    EXPECT_FALSE(list.Selected(none));
    list.SetIndex(none);
    EXPECT_EQ(list.Index(), -1);
    EXPECT_FALSE(user.Try().Choose(list, none));
    EXPECT_FALSE(user.Try().DoubleClick(list, none));
    EXPECT_FALSE(user.Try().ClickHeading(list, none));
  }
  list.SetRows({{L"alone"}});
  EXPECT_EQ(list.Text(0, 2), L"");
}

TEST_F(ListView, SortsByAColumnAsTextsAreOrdered) {
  list.Sort(0, false);
  EXPECT_EQ(Shown(), (Rows{1, 3, 2, 0}));
  EXPECT_EQ(FirstTexts(), (Texts{L"bernard", L"Bernard", L"Émile", L"Martin"}));
  EXPECT_EQ(ShownHeadings(list), (Texts{L"+Nom", L"Détail", L"Nombre"}));
  list.Sort(-1, true);
  EXPECT_EQ(Shown(), (Rows{0, 1, 2, 3}));
  EXPECT_FALSE(list.SortDescending());
  EXPECT_EQ(ShownHeadings(list), (Texts{L"Nom", L"Détail", L"Nombre"}));
}

TEST_F(ListView, SortsAColumnOfNumbersByTheirValue) {
  list.Sort(2, false);
  EXPECT_EQ(Shown(), (Rows{3, 1, 0, 2}));
  list.SetRows({{L"", L"", L"1"},
                {L"", L"", L"none"},
                {L"", L"", L""},
                {L"", L"", L"0"},
                {L"", L"", L"99999999999999999999999999"},
                {L"", L"", L"-"}});
  EXPECT_EQ(Shown(), (Rows{1, 2, 5, 3, 0, 4}));
}

TEST_F(ListView, SortsAColumnByATextThatIsNotOnView) {
  list.SetColumns({{.caption = L"Date", .sortedBy = 2}, {.caption = L"Nom"}});
  list.SetRows({{L"10/01/2026", L"a", L"2026-01-10"},
                {L"09/02/2026", L"b", L"2026-02-09"},
                {L"11/12/2025", L"c", L"2025-12-11"},
                {L"12/12/2025", L"d"}});
  user.ClickHeading(list, 0);
  EXPECT_EQ(Shown(), (Rows{3, 2, 0, 1}));
  user.ClickHeading(list, 1);
  EXPECT_EQ(Shown(), (Rows{0, 1, 2, 3}));
  EXPECT_EQ(ShownRows(list)[0].texts, (Texts{L"10/01/2026", L"a"}));
  EXPECT_EQ(list.Text(0, 2), L"");
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_TRUE(user.Clipboard().starts_with(L"10/01/2026\ta\r\n09/02/2026\tb\r\n"));
}

TEST_F(ListView, AClickOnAHeadingSortsAndASecondOneTheOtherWayRound) {
  user.ClickHeading(list, 1);
  EXPECT_EQ(Shown(), (Rows{1, 3, 0, 2}));
  user.ClickHeading(list, 1);
  // Rows that are equal keep their order.
  EXPECT_EQ(Shown(), (Rows{0, 2, 1, 3}));
  EXPECT_TRUE(list.SortDescending());
  EXPECT_EQ(ShownHeadings(list), (Texts{L"Nom", L"-Détail", L"Nombre"}));
  user.ClickHeading(list, 0);
  EXPECT_EQ(list.SortColumn(), 0);
  EXPECT_FALSE(list.SortDescending());
  EXPECT_EQ(ShownHeadings(list), (Texts{L"+Nom", L"Détail", L"Nombre"}));
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListView, KeepsTheOrderForOtherRows) {
  user.ClickHeading(list, 0);
  list.SetRows({{L"c"}, {L"a"}, {L"b"}});
  EXPECT_EQ(Shown(), (Rows{1, 2, 0}));
  list.SetColumns({{L"Autre"}});
  EXPECT_EQ(list.RowCount(), 0);
  EXPECT_EQ(list.SortColumn(), -1);
  EXPECT_EQ(ShownHeadings(list), Texts{L"Autre"});
  EXPECT_EQ(ShownRows(list), std::vector<ShownRow>{});
}

TEST_F(ListView, ReportsTheUsersChoice) {
  user.Choose(list, 1);
  user.Choose(list, 1);
  user.Choose(list, 3);
  EXPECT_EQ(events, (Texts{L"click 1", L"click 3"}));
  EXPECT_EQ(list.Index(), 3);
  EXPECT_EQ(list.SelectedRows(), Rows{3});
}

TEST_F(ListView, DoesNotReportTheProgramsChoice) {
  list.SetIndex(2);
  EXPECT_EQ(list.Index(), 2);
  EXPECT_TRUE(list.Selected(2));
  list.SetIndex(-1);
  EXPECT_EQ(list.Index(), -1);
  EXPECT_EQ(list.SelectedRows(), Rows{});
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListView, SelectsSeveralRowsWithTheControlKey) {
  user.Choose(list, 0);
  user.Toggle(list, 2);
  user.Toggle(list, 3);
  user.Toggle(list, 2);
  EXPECT_EQ(list.SelectedRows(), (Rows{0, 3}));
  EXPECT_EQ(list.Index(), 2);
  const std::vector<ShownRow> rows = ShownRows(list);
  EXPECT_TRUE(rows[0].selected);
  EXPECT_FALSE(rows[2].selected);
  EXPECT_TRUE(rows[2].focused);
  user.Choose(list, 1);
  EXPECT_EQ(list.SelectedRows(), Rows{1});
}

TEST_F(ListView, KeepsFocusAndSelectionWithTheirRowsWhenItIsSorted) {
  user.Choose(list, 0);
  user.Toggle(list, 2);
  user.ClickHeading(list, 0);
  EXPECT_EQ(list.Index(), 2);
  EXPECT_EQ(list.SelectedRows(), (Rows{2, 0}));
  EXPECT_EQ(ShownRows(list), (std::vector<ShownRow>{{{L"bernard", L"a", L"9"}},
                                                    {{L"Bernard", L"a", L"-2"}},
                                                    {{L"Émile", L"b", L"100"}, true, true},
                                                    {{L"Martin", L"b", L"10"}, true}}));
  EXPECT_EQ(events, Texts{L"click 2"});
}

TEST_F(ListView, AFilterTakesFocusAndSelectionFromWhatItHides) {
  user.Choose(list, 0);
  user.Toggle(list, 1);
  user.Toggle(list, 2);
  list.Filter([](int row) { return row != 2 && row != 3; });
  EXPECT_EQ(Shown(), (Rows{0, 1}));
  EXPECT_EQ(list.Index(), -1);
  EXPECT_EQ(list.SelectedRows(), (Rows{0, 1}));
  list.Filter([](int) { return true; });
  EXPECT_EQ(list.SelectedRows(), (Rows{0, 1}));
  EXPECT_EQ(list.Index(), -1);
  for (const ShownRow& row : ShownRows(list)) EXPECT_FALSE(row.focused);
  list.SetIndex(3);
  list.Filter([](int row) { return row == 3; });
  EXPECT_EQ(list.Index(), 3);
  EXPECT_EQ(ShownRows(list), (std::vector<ShownRow>{{{L"Bernard", L"a", L"-2"}, true, true}}));
}

TEST_F(ListView, SortsWhatIsFilteredAndFiltersWhatIsSorted) {
  list.Filter([](int row) { return row > 0; });
  user.ClickHeading(list, 2);
  EXPECT_EQ(Shown(), (Rows{3, 1, 2}));
  list.Filter([](int row) { return row < 3; });
  EXPECT_EQ(Shown(), (Rows{1, 0, 2}));
  list.Filter([](int) { return false; });
  EXPECT_EQ(Shown(), Rows{});
  EXPECT_EQ(ShownRows(list), std::vector<ShownRow>{});
  EXPECT_EQ(list.RowCount(), 4);
}

TEST_F(ListView, PutsTheFocusOnItsFirstRowWhenItGetsItItself) {
  user.Focus(form.box);
  list.Sort(0, false);
  user.Focus(list);
  EXPECT_EQ(list.Index(), 1);
  EXPECT_EQ(list.SelectedRows(), Rows{});
  EXPECT_TRUE(ShownRows(list)[0].focused);
  EXPECT_EQ(events, Texts{});
  user.Choose(list, 2);
  user.Focus(form.box);
  user.Focus(list);
  EXPECT_EQ(list.Index(), 2);
  EXPECT_EQ(events, Texts{L"click 2"});
}

TEST_F(ListView, ADoubleClickActivatesTheRow) {
  Listen();
  user.ClickHeading(list, 0);
  user.DoubleClick(list, 2);
  EXPECT_EQ(events, (Texts{L"click 2", L"activate 2"}));
}

TEST_F(ListView, EnterActivatesTheRowThatHasTheFocus) {
  form.SetDefaultButton(form.ok);
  form.ok.Click = [this] { events.push_back(L"ok"); };
  user.Choose(list, 3);
  user.PressKey(form, test_support::kKeyEnter);
  EXPECT_EQ(events, (Texts{L"click 3", L"ok"}));
  Listen();
  user.PressKey(form, test_support::kKeyEnter);
  EXPECT_EQ(events.back(), L"activate 3");
  list.SetIndex(-1);
  user.PressKey(form, test_support::kKeyEnter);
  EXPECT_EQ(events.back(), L"ok");
  user.Focus(form.box);
  user.PressKey(form, test_support::kKeyEnter);
  EXPECT_EQ(events.size(), 5U);
}

TEST_F(ListView, CopiesTheSelectedRowsInTheirOrderOnView) {
  list.Sort(0, false);
  user.Choose(list, 3);
  user.Toggle(list, 0);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(user.Clipboard(), L"bernard\ta\t9\r\nMartin\tb\t10\r\n");
}

TEST_F(ListView, CopiesAllThatIsOnViewWhereNothingIsSelected) {
  list.Filter([](int row) { return row != 1 && row != 2; });
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyInsert);
  EXPECT_EQ(user.Clipboard(), L"Martin\tb\t10\r\nBernard\ta\t-2\r\n");
}

TEST_F(ListView, SelectsAllThatIsOnView) {
  list.Filter([](int row) { return row > 1; });
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyA);
  EXPECT_EQ(list.SelectedRows(), (Rows{2, 3}));
  EXPECT_TRUE(ShownRows(list)[1].selected);
  user.Choose(list, 1);
  EXPECT_EQ(list.SelectedRows(), Rows{3});
}

TEST_F(ListView, BeepsWhereTheClipboardIsOccupiedOrThereIsNothingToCopy) {
  user.SetClipboardOccupied(true);
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(user.BeepCount(), 1);
  user.SetClipboardOccupied(false);
  list.SetRows({});
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(user.Clipboard(), L"");
}

TEST_F(ListView, NoTextTearsARowApart) {
  list.SetRows({{L"a\tb\r\nc", L"x\x2028y\x2029z\x85\v\f", L"1"}, {L"\n", L"\x7F", L"2"}});
  EXPECT_EQ(list.Text(0, 0), L"a b  c");
  EXPECT_EQ(ShownRows(list)[0].texts[0], L"a b  c");
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyA);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(user.Clipboard(), L"a b  c\tx y z   \t1\r\n \t \t2\r\n");
}

TEST_F(ListView, KeepsTextsOfEveryKind) {
  const std::wstring odd = L"d'Œuvre & \"Cie\" (50 %) \x05D0 \xD83D\xDE00 ";
  const std::wstring lengthy(4000, L'x');
  list.SetRows({{odd, lengthy, L""}});
  EXPECT_EQ(list.Text(0, 0), odd);
  EXPECT_EQ(ShownRows(list)[0].texts[0], odd);
  EXPECT_EQ(list.Text(0, 1), lengthy);
  user.Focus(list);
  user.PressCtrl(form, test_support::kKeyC);
  EXPECT_EQ(user.Clipboard(), odd + L"\t" + lengthy + L"\t\r\n");
}

TEST_F(ListView, TakesNothingFromTheUserWhileItIsDisabled) {
  list.SetEnabled(false);
  EXPECT_FALSE(user.Try().Choose(list, 0));
  EXPECT_FALSE(user.Try().ClickHeading(list, 0));
  EXPECT_EQ(list.Index(), -1);
}

TEST_F(ListView, MayFilterFromClick) {
  list.Click = [this] { list.Filter([this](int row) { return row == list.Index(); }); };
  user.Choose(list, 2);
  EXPECT_EQ(Shown(), Rows{2});
  EXPECT_EQ(list.SelectedRows(), Rows{2});
}

TEST_F(ListView, MayUnloadItsFormFromActivate) {
  list.Activate = [this](int) { form.Unload(); };
  user.DoubleClick(list, 0);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(list.RowCount(), 0);
  EXPECT_EQ(list.Text(0, 0), L"");
}

TEST_F(ListView, HoldsNothingOfAnEarlierLoad) {
  list.SetAccessibleName(L"Détenteurs");
  EXPECT_EQ(list.AccessibleName(), L"Détenteurs");
  user.ClickHeading(list, 0);
  form.Unload();
  list.SetRows({{L"early"}});
  form.Show();
  EXPECT_EQ(list.RowCount(), 0);
  EXPECT_EQ(list.SortColumn(), -1);
  EXPECT_EQ(list.AccessibleName(), L"");
  EXPECT_EQ(ShownHeadings(list), Texts{});
}

// Against a plain picture of what a list of rows is.
TEST_F(ListView, OfManyRowsAnswersAsAPlainListWould) {
  std::vector<controls::ListView::Row> rows;
  for (int i = 0; i < 3000; ++i) rows.push_back({L"n" + std::to_wstring(i * 7919 % 3000)});
  list.SetColumns({{L"Nombre", 1, true}});
  for (auto& row : rows) row[0].erase(0, 1);
  list.SetRows(rows);
  list.Sort(0, true);
  list.Filter([](int row) { return row % 3 == 0; });
  std::vector<int> wanted;
  for (const auto& row : rows) wanted.push_back(std::stoi(row[0]));
  std::vector<int> places;
  for (int i = 0; i < 3000; i += 3) places.push_back(i);
  std::sort(places.begin(), places.end(), [&](int a, int b) { return wanted[a] > wanted[b]; });
  EXPECT_EQ(Shown(), places);
  list.SetIndex(places[700]);
  EXPECT_EQ(ShownRows(list)[700].texts[0], std::to_wstring(wanted[places[700]]));
  EXPECT_TRUE(ShownRows(list)[700].focused);
}

}  // namespace
}  // namespace controls_test
