#include <random>

#include "tests/controls/ControlsTest.h"
#include "tests/support/controls/ShownContent.h"

namespace controls_test {
namespace {

using test_support::ShownItem;
using test_support::ShownItems;
using Kind = controls::ListBox::Kind;

// A list beside its plain picture: a long row of changes by the program and the user, each made to
// both.
class RandomList {
 public:
  RandomList(controls::ListBox& list, Kind kind, test_support::User& user, unsigned seed)
      : list_(list), kind_(kind), user_(user), random_(seed) {
    list_.ItemCheck = [this](int) { ++checks_; };
    list_.Click = [this] { ++clicks_; };
  }

  void Step() {
    const int count = static_cast<int>(picture_.size());
    const int item = count > 0 ? Below(count) : -1;
    switch (Below(9)) {
      case 0:
        if (item >= 0) Remove(item);
        break;
      case 1:
        SetIndex(Below(5) > 0 ? item : -1);
        break;
      case 2:
      case 3:
        if (item >= 0) Select(item, Below(2) > 0);
        break;
      case 4:
        if (item >= 0) Choose(item);
        break;
      case 5:
        if (item >= 0 && kind_ != Kind::kPlain) Toggle(item);
        break;
      default:
        Add();
    }
  }

  void Compare() {
    ASSERT_EQ(ShownItems(list_), Wanted());
    int marked = 0;
    for (int i = 0; i < static_cast<int>(picture_.size()); ++i) {
      ASSERT_EQ(list_.List(i), picture_[i].text);
      ASSERT_EQ(list_.Selected(i), picture_[i].marked);
      marked += picture_[i].marked ? 1 : 0;
    }
    ASSERT_EQ(list_.SelCount(), marked);
    ASSERT_EQ(list_.ListIndex(), index_);
    ASSERT_EQ(checks_, wantedChecks_);
    ASSERT_EQ(clicks_, wantedClicks_);
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  std::vector<ShownItem> Wanted() const {
    std::vector<ShownItem> wanted = picture_;
    if (index_ >= 0 && kind_ != Kind::kMultiSelect) wanted[index_].focused = true;
    return wanted;
  }

  void Add() {
    const std::wstring text(1 + Below(3), static_cast<wchar_t>(L'a' + Below(26)));
    picture_.push_back({text, false, false});
    list_.AddItem(text);
  }

  void Remove(int item) {
    picture_.erase(picture_.begin() + item);
    if (index_ == item) {
      index_ = -1;
    } else if (index_ > item) {
      --index_;
    }
    list_.RemoveItem(item);
  }

  void SetIndex(int item) {
    index_ = item;
    if (kind_ == Kind::kPlain) MarkAlone(item);
    list_.SetListIndex(item);
  }

  void Select(int item, bool selected) {
    const bool changes = picture_[item].marked != selected;
    if (kind_ == Kind::kPlain && changes) {
      index_ = selected ? item : -1;
      MarkAlone(index_);
    }
    picture_[item].marked = selected;
    if (kind_ == Kind::kChecked && changes) Checked();
    list_.SetSelected(item, selected);
  }

  void Choose(int item) {
    bool changes = index_ != item;
    index_ = item;
    if (kind_ != Kind::kChecked) changes |= MarkAlone(item);
    wantedClicks_ += changes ? 1 : 0;
    user_.Choose(list_, item);
  }

  // Chosen first: whether a click on a check box moves the list's focus is the system's affair.
  void Toggle(int item) {
    Choose(item);
    picture_[item].marked = !picture_[item].marked;
    if (kind_ == Kind::kChecked) {
      Checked();
    } else {
      ++wantedClicks_;
    }
    user_.Toggle(list_, item);
  }

  void Checked() {
    ++wantedChecks_;
    ++wantedClicks_;
  }

  bool MarkAlone(int item) {
    bool changed = false;
    for (int i = 0; i < static_cast<int>(picture_.size()); ++i) {
      changed |= picture_[i].marked != (i == item);
      picture_[i].marked = i == item;
    }
    return changed;
  }

  controls::ListBox& list_;
  const Kind kind_;
  test_support::User& user_;
  std::mt19937 random_;
  std::vector<ShownItem> picture_;
  int index_ = -1;
  int checks_ = 0, wantedChecks_ = 0;
  int clicks_ = 0, wantedClicks_ = 0;
};

class ShownList : public ControlsTest {
 protected:
  void Run(controls::ListBox& list, Kind kind) {
    // While it is empty: a check list puts itself on its first item.
    list.SetFocus();
    for (unsigned seed = 1; seed <= 3; ++seed) {
      SCOPED_TRACE(seed);
      list.Clear();
      RandomList random(list, kind, user, seed);
      for (int step = 0; step < 150; ++step) {
        SCOPED_TRACE(step);
        random.Step();
        random.Compare();
        if (HasFailure()) return;
      }
    }
  }
};

TEST_F(ShownList, OfAPlainListIsWhatWasDoneToIt) {
  Run(form.plainList, Kind::kPlain);
}

TEST_F(ShownList, OfAMultiSelectListIsWhatWasDoneToIt) {
  Run(form.multiList, Kind::kMultiSelect);
}

TEST_F(ShownList, OfACheckListIsWhatWasDoneToIt) {
  Run(form.checkList, Kind::kChecked);
}

}  // namespace
}  // namespace controls_test
