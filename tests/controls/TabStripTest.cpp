#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class TabStrip : public ControlsTest {
 protected:
  TabStrip() {
    tabs.Click = [this] { events.push_back(std::to_wstring(tabs.SelectedTab())); };
  }
  void AddTabs() {
    tabs.AddTab(L"Utilisateurs");
    tabs.AddTab(L"Groupes");
    tabs.AddTab(L"Droits");
  }
  controls::TabStrip& tabs = form.tabs;
};

TEST_F(TabStrip, SelectsItsFirstTabWithoutAReport) {
  EXPECT_EQ(tabs.SelectedTab(), -1);
  EXPECT_EQ(tabs.TabCount(), 0);
  AddTabs();
  EXPECT_EQ(tabs.SelectedTab(), 0);
  EXPECT_EQ(tabs.TabCount(), 3);
  EXPECT_EQ(events, Events{});
}

TEST_F(TabStrip, KeepsItsCaptions) {
  AddTabs();
  tabs.SetTabCaption(1, L"Groupes d'été");
  EXPECT_EQ(tabs.TabCaption(0), L"Utilisateurs");
  EXPECT_EQ(tabs.TabCaption(1), L"Groupes d'été");
  EXPECT_EQ(tabs.TabCaption(3), L"");
}

TEST_F(TabStrip, ReportsTheUsersChoice) {
  AddTabs();
  user.ChooseTab(tabs, 2);
  user.ChooseTab(tabs, 2);
  user.ChooseTab(tabs, 0);
  EXPECT_EQ(events, (Events{L"2", L"0"}));
  EXPECT_FALSE(user.Try().ChooseTab(tabs, 3));
}

TEST_F(TabStrip, ReportsTheProgramsChoiceWhenItChangesSomething) {
  AddTabs();
  tabs.SetSelectedTab(0);
  tabs.SetSelectedTab(1);
  tabs.SetSelectedTab(1);
  tabs.SetSelectedTab(9);
  tabs.SetSelectedTab(-1);
  EXPECT_EQ(events, (Events{L"1"}));
  EXPECT_EQ(tabs.SelectedTab(), 1);
}

TEST_F(TabStrip, TakesNothingFromTheUserWhileItIsDisabled) {
  AddTabs();
  tabs.SetEnabled(false);
  EXPECT_FALSE(user.Try().ChooseTab(tabs, 1));
  EXPECT_EQ(tabs.SelectedTab(), 0);
}

TEST_F(TabStrip, IsTurnedByKeysWhereverTheFocusIs) {
  AddTabs();
  user.Focus(form.name);
  user.PressCtrl(form, test_support::kKeyTab);
  user.PressCtrl(form, test_support::kKeyPageDown);
  EXPECT_EQ(tabs.SelectedTab(), 2);
  user.PressCtrl(form, test_support::kKeyTab);
  user.PressCtrl(form, test_support::kKeyPageUp);
  user.PressCtrl(form, test_support::kKeyPageUp);
  EXPECT_EQ(events, (Events{L"1", L"2", L"0", L"2", L"1"}));
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(TabStrip, IsNotTurnedByKeysWhileItIsDisabledOrEmpty) {
  user.Focus(form.name);
  user.PressCtrl(form, test_support::kKeyTab);
  EXPECT_EQ(tabs.SelectedTab(), -1);
  AddTabs();
  tabs.SetEnabled(false);
  user.PressCtrl(form, test_support::kKeyPageDown);
  EXPECT_EQ(tabs.SelectedTab(), 0);
  EXPECT_EQ(events, Events{});
}

}  // namespace
}  // namespace controls_test
