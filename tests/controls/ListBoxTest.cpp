#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class ListBox : public ControlsTest {
 protected:
  ListBox() {
    for (controls::ListBox* const list : {&plain, &multi}) {
      list->AddItem(L"Bernard", 11);
      list->AddItem(L"Martin", 12);
      list->AddItem(L"Moreau", 13);
      list->Click = [this] { events.push_back(L"click"); };
      list->DblClick = [this] { events.push_back(L"double"); };
    }
  }
  controls::ListBox& plain = form.plainList;
  controls::ListBox& multi = form.multiList;
};

TEST_F(ListBox, NumbersItsItemsInTheOrderInWhichTheyAreAdded) {
  EXPECT_EQ(plain.AddItem(L"Adam", -1), 3);
  EXPECT_EQ(plain.ListCount(), 4);
  EXPECT_EQ(plain.List(3), L"Adam");
  EXPECT_EQ(plain.ItemData(3), -1);
  EXPECT_EQ(plain.List(0), L"Bernard");
}

TEST_F(ListBox, KeepsTextsAndDataOfEveryKind) {
  const std::wstring odd = L"d'Œuvre & \"Cie\"\t(50 %) \x05D0 \xD83D\xDE00 ";
  for (controls::ListBox* const list : {&plain, &multi, &form.checkList}) {
    const int item = list->AddItem(odd, INT32_MIN);
    EXPECT_EQ(list->List(item), odd);
    EXPECT_EQ(list->ItemData(item), INT32_MIN);
    list->SetItemData(item, INT32_MAX);
    EXPECT_EQ(list->ItemData(item), INT32_MAX);
    const std::wstring lengthy(4000, L'x');
    EXPECT_EQ(list->List(list->AddItem(lengthy)), lengthy);
    EXPECT_EQ(list->List(list->AddItem(L"")), L"");
    EXPECT_EQ(list->ItemData(list->ListCount() - 1), 0);
  }
}

TEST_F(ListBox, AnswersNothingForAnItemThatIsNotThere) {
  for (controls::ListBox* const list : {&plain, &multi, &form.checkList}) {
    for (const int item : {-1, 99}) {
      EXPECT_EQ(list->List(item), L"");
      EXPECT_EQ(list->ItemData(item), 0);
      EXPECT_FALSE(list->Selected(item));
      list->SetSelected(item, true);
      list->SetItemData(item, 5);
      list->RemoveItem(item);
      EXPECT_EQ(list->SelCount(), 0);
    }
  }
  EXPECT_FALSE(user.Try().Choose(plain, 3));
}

TEST_F(ListBox, SelectsNothingByItself) {
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(plain.SelCount(), 0);
  user.Focus(plain);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(multi.SelCount(), 0);
  EXPECT_EQ(events, Events{});
}

TEST_F(ListBox, ReportsTheUsersChoice) {
  user.Choose(plain, 1);
  EXPECT_EQ(plain.ListIndex(), 1);
  EXPECT_TRUE(plain.Selected(1));
  EXPECT_FALSE(plain.Selected(0));
  EXPECT_EQ(plain.SelCount(), 1);
  user.Choose(plain, 2);
  EXPECT_FALSE(plain.Selected(1));
  EXPECT_EQ(events, (Events{L"click", L"click"}));
}

TEST_F(ListBox, ReportsNothingWhenTheSameItemIsChosenAgain) {
  user.Choose(plain, 1);
  user.Choose(plain, 1);
  EXPECT_EQ(events, (Events{L"click"}));
}

TEST_F(ListBox, DoesNotReportTheProgramsChoice) {
  plain.SetListIndex(2);
  EXPECT_EQ(plain.ListIndex(), 2);
  plain.SetSelected(0, true);
  EXPECT_EQ(plain.ListIndex(), 0);
  plain.SetSelected(2, false);
  EXPECT_EQ(plain.ListIndex(), 0);
  plain.SetSelected(0, false);
  EXPECT_EQ(plain.ListIndex(), -1);
  plain.SetListIndex(1);
  plain.SetListIndex(-1);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(plain.SelCount(), 0);
  EXPECT_EQ(events, Events{});
}

TEST_F(ListBox, ReportsADoubleClickAfterTheClick) {
  user.DoubleClick(plain, 1);
  EXPECT_EQ(plain.ListIndex(), 1);
  EXPECT_EQ(events, (Events{L"click", L"double"}));
}

TEST_F(ListBox, KeepsTheSelectedItemWhileOthersAreRemoved) {
  plain.SetListIndex(1);
  plain.RemoveItem(0);
  EXPECT_EQ(plain.ListIndex(), 0);
  EXPECT_EQ(plain.List(0), L"Martin");
  EXPECT_EQ(plain.ItemData(0), 12);
  plain.RemoveItem(1);
  EXPECT_EQ(plain.ListIndex(), 0);
  EXPECT_EQ(plain.ListCount(), 1);
}

TEST_F(ListBox, HasNoSelectionOnceTheSelectedItemIsRemoved) {
  plain.SetListIndex(1);
  plain.RemoveItem(1);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(plain.SelCount(), 0);
  EXPECT_EQ(events, Events{});
}

TEST_F(ListBox, IsEmptyAfterClear) {
  plain.SetListIndex(1);
  multi.SetSelected(1, true);
  plain.Clear();
  multi.Clear();
  EXPECT_EQ(plain.ListCount(), 0);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(multi.SelCount(), 0);
  EXPECT_EQ(plain.AddItem(L"again"), 0);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(events, Events{});
}

TEST_F(ListBox, SelectsSeveralItemsWhereThatIsItsKind) {
  user.Choose(multi, 0);
  user.Toggle(multi, 2);
  EXPECT_TRUE(multi.Selected(0));
  EXPECT_FALSE(multi.Selected(1));
  EXPECT_TRUE(multi.Selected(2));
  EXPECT_EQ(multi.SelCount(), 2);
  EXPECT_EQ(multi.ListIndex(), 2);
  user.Toggle(multi, 0);
  EXPECT_FALSE(multi.Selected(0));
  EXPECT_EQ(events.size(), 3U);
  user.Choose(multi, 1);
  EXPECT_EQ(multi.SelCount(), 1);
  EXPECT_TRUE(multi.Selected(1));
}

TEST_F(ListBox, SelectsSeveralItemsForTheProgramWithoutAReport) {
  multi.SetSelected(0, true);
  multi.SetSelected(2, true);
  multi.SetListIndex(1);
  EXPECT_EQ(multi.SelCount(), 2);
  EXPECT_EQ(multi.ListIndex(), 1);
  EXPECT_FALSE(multi.Selected(1));
  multi.RemoveItem(1);
  EXPECT_TRUE(multi.Selected(0));
  EXPECT_TRUE(multi.Selected(1));
  multi.RemoveItem(0);
  EXPECT_EQ(multi.SelCount(), 1);
  EXPECT_EQ(events, Events{});
}

TEST_F(ListBox, ToggleIsNoGestureOfAPlainList) {
  EXPECT_FALSE(user.Try().Toggle(plain, 0));
  EXPECT_EQ(plain.ListIndex(), -1);
}

TEST_F(ListBox, TakesNothingFromTheUserWhileItIsDisabled) {
  plain.SetEnabled(false);
  EXPECT_FALSE(user.Try().Choose(plain, 0));
  EXPECT_FALSE(user.Try().DoubleClick(plain, 0));
  EXPECT_EQ(plain.ListIndex(), -1);
}

TEST_F(ListBox, MayRemoveTheChosenItemFromClick) {
  plain.Click = [this] { plain.RemoveItem(plain.ListIndex()); };
  user.Choose(plain, 0);
  EXPECT_EQ(plain.List(0), L"Martin");
  EXPECT_EQ(plain.ListIndex(), -1);
}

TEST_F(ListBox, TakesManyItemsBetweenTheEndsOfAnUpdate) {
  {
    controls::ListBox::Update update(plain);
    controls::ListBox::Update inner(plain);
    plain.Clear();
    for (int i = 0; i < 1000; ++i) plain.AddItem(std::to_wstring(i), i);
  }
  EXPECT_EQ(plain.ListCount(), 1000);
  EXPECT_EQ(plain.List(999), L"999");
}

}  // namespace
}  // namespace controls_test
