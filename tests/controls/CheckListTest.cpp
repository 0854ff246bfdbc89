#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using test_support::kKeySpace;

class CheckList : public ControlsTest {
 protected:
  CheckList() {
    list.AddItem(L"Administrators", 1);
    list.AddItem(L"Everyone", 2);
    list.AddItem(L"Qualité", 3);
    list.ItemCheck = [this](int item) {
      events.push_back(L"check " + std::to_wstring(item) +
                       (list.Selected(item) ? L" on" : L" off"));
    };
    list.Click = [this] { events.push_back(L"click"); };
  }
  controls::ListBox& list = form.checkList;
};

TEST_F(CheckList, ChecksNothingByItself) {
  EXPECT_EQ(list.SelCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  for (int item = 0; item < list.ListCount(); ++item) EXPECT_FALSE(list.Selected(item));
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, PutsItselfOnItsFirstItemWhenItGetsTheFocus) {
  form.multiList.SetFocus();
  user.PressKey(form, test_support::kKeyTab);
  ASSERT_TRUE(list.HasFocus());
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(events, Events{});
  user.PressKey(form, kKeySpace);
  EXPECT_TRUE(list.Selected(0));
  EXPECT_EQ(events, (Events{L"check 0 on", L"click"}));
}

TEST_F(CheckList, StaysOnItsItemWhenItGetsTheFocus) {
  list.SetListIndex(2);
  list.SetFocus();
  EXPECT_EQ(list.ListIndex(), 2);
}

TEST_F(CheckList, HasNoItemToPutItselfOnWhileItIsEmpty) {
  list.Clear();
  list.SetFocus();
  EXPECT_EQ(list.ListIndex(), -1);
  user.PressKey(form, kKeySpace);
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, MovesToTheItemWhoseTextIsTyped) {
  list.AddItem(L"Modifier la base");
  list.AddItem(L"Modifier les comptes");
  user.Type(list, L"modifier les");
  EXPECT_EQ(list.ListIndex(), 4);
  EXPECT_EQ(list.SelCount(), 0);
}

TEST_F(CheckList, FindsTypedLettersWhateverTheirAccents) {
  list.AddItem(L"Équipe");
  user.Type(list, L"eq");
  EXPECT_EQ(list.ListIndex(), 3);
}

TEST_F(CheckList, ReportsTheProgramsChangesAndAClickAfterEach) {
  list.SetSelected(1, true);
  EXPECT_TRUE(list.Selected(1));
  EXPECT_EQ(list.SelCount(), 1);
  list.SetSelected(1, false);
  EXPECT_EQ(events, (Events{L"check 1 on", L"click", L"check 1 off", L"click"}));
}

TEST_F(CheckList, ReportsNothingWhenNothingChanges) {
  list.SetSelected(1, false);
  list.SetSelected(1, true);
  events.clear();
  list.SetSelected(1, true);
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, ReportsTheUsersChanges) {
  list.SetListIndex(2);
  user.Toggle(list, 2);
  user.Toggle(list, 2);
  EXPECT_EQ(events, (Events{L"check 2 on", L"click", L"check 2 off", L"click"}));
}

TEST_F(CheckList, TogglesTheFocusedItemWithTheSpaceBar) {
  user.Choose(list, 1);
  EXPECT_EQ(list.ListIndex(), 1);
  events.clear();
  user.PressKey(form, kKeySpace);
  EXPECT_TRUE(list.Selected(1));
  EXPECT_EQ(events, (Events{L"check 1 on", L"click"}));
  user.PressKey(form, kKeySpace);
  EXPECT_FALSE(list.Selected(1));
}

TEST_F(CheckList, ChangesNoCheckWhenAnItemIsChosen) {
  list.SetSelected(0, true);
  events.clear();
  user.Choose(list, 2);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_FALSE(list.Selected(2));
  EXPECT_EQ(list.SelCount(), 1);
  EXPECT_EQ(events, (Events{L"click"}));
}

TEST_F(CheckList, SetsTheListIndexWithoutAReportOrACheck) {
  list.SetListIndex(1);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.SelCount(), 0);
  list.SetListIndex(-1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, LetsAHandlerSetTheItemBackAndReportsThatToo) {
  list.SetSelected(1, true);
  events.clear();
  list.ItemCheck = [this](int item) {
    events.push_back(L"check " + std::to_wstring(item) + (list.Selected(item) ? L" on" : L" off"));
    list.SetSelected(1, true);
  };
  user.Toggle(list, 1);
  EXPECT_TRUE(list.Selected(1));
  EXPECT_EQ(list.SelCount(), 1);
  EXPECT_EQ(events, (Events{L"check 1 off", L"check 1 on", L"click", L"click"}));
  events.clear();
  list.SetSelected(1, false);
  EXPECT_TRUE(list.Selected(1));
  EXPECT_EQ(events, (Events{L"check 1 off", L"check 1 on", L"click", L"click"}));
}

TEST_F(CheckList, LetsAHandlerAskBeforeItSetsTheItemBack) {
  list.SetSelected(1, true);
  list.ItemCheck = [this](int item) {
    if (list.Selected(item)) return;
    desktop.MsgBox(list.List(item), controls::kInformation, L"title");
    list.SetSelected(item, true);
  };
  user.ExpectMsgBox({.answer = controls::kResultOk, .prompt = L"Everyone"});
  user.Toggle(list, 1);
  EXPECT_TRUE(list.Selected(1));
}

TEST_F(CheckList, KeepsTheChecksOfWhatIsLeftWhenAnItemIsRemoved) {
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  events.clear();
  list.RemoveItem(1);
  EXPECT_TRUE(list.Selected(0));
  EXPECT_TRUE(list.Selected(1));
  EXPECT_EQ(list.List(1), L"Qualité");
  list.RemoveItem(0);
  EXPECT_EQ(list.SelCount(), 1);
  EXPECT_TRUE(list.Selected(0));
  list.RemoveItem(0);
  EXPECT_EQ(list.SelCount(), 0);
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, KeepsTheListIndexOnItsItem) {
  list.SetListIndex(2);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(CheckList, ReportsNothingWhenItIsCleared) {
  list.SetSelected(0, true);
  events.clear();
  list.Clear();
  EXPECT_EQ(list.SelCount(), 0);
  EXPECT_EQ(list.ListCount(), 0);
  list.AddItem(L"again");
  EXPECT_FALSE(list.Selected(0));
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, AddsUncheckedItemsBesideCheckedOnes) {
  list.SetSelected(2, true);
  const int item = list.AddItem(L"Tout le monde", 4);
  EXPECT_FALSE(list.Selected(item));
  EXPECT_TRUE(list.Selected(2));
  EXPECT_EQ(list.SelCount(), 1);
}

TEST_F(CheckList, TakesNothingFromTheUserWhileItIsDisabled) {
  list.SetEnabled(false);
  EXPECT_FALSE(user.Try().Toggle(list, 0));
  EXPECT_EQ(events, Events{});
  list.SetSelected(0, true);
  EXPECT_EQ(events, (Events{L"check 0 on", L"click"}));
}

TEST_F(CheckList, MayUnloadItsFormFromItemCheck) {
  list.ItemCheck = [this](int) { form.Unload(); };
  user.Toggle(list, 0);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, Events{});
}

TEST_F(CheckList, ReportsEveryChangeOfALongListOnce) {
  constexpr int kItems = 10000;
  int checks = 0;
  int clicks = 0;
  list.ItemCheck = [&](int) { ++checks; };
  list.Click = [&] { ++clicks; };
  {
    controls::ListBox::Update update(list);
    list.Clear();
    for (int i = 0; i < kItems; ++i) list.AddItem(L"Item " + std::to_wstring(i), i);
  }
  {
    controls::ListBox::Update update(list);
    for (int i = 0; i < kItems; ++i) list.SetSelected(i, true);
  }
  EXPECT_EQ(checks, kItems);
  EXPECT_EQ(clicks, kItems);
  EXPECT_EQ(list.SelCount(), kItems);
  EXPECT_EQ(list.ItemData(kItems - 1), kItems - 1);
  user.Toggle(list, kItems - 1);
  EXPECT_EQ(list.SelCount(), kItems - 1);
  EXPECT_EQ(checks, kItems + 1);
}

}  // namespace
}  // namespace controls_test
