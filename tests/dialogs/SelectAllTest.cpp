#include "dialogs/SelectAll.h"

#include <gtest/gtest.h>

#include "controls/Desktop.h"
#include "controls/Form.h"
#include "tests/support/controls/User.h"

namespace dialogs {
namespace {

// As in DialogForms.rc.
constexpr int kBoxesForm = 900;
constexpr int kFirst = 901;
constexpr int kSecond = 902;

class Boxes : public controls::Form {
 public:
  explicit Boxes(controls::Desktop& desktop) : Form(desktop, kBoxesForm) {}

  void Form_Load() override { second.SetText(L"Jean Martin"); }

  controls::TextBox first{*this, kFirst};
  controls::TextBox second{*this, kSecond};
};

TEST(SelectAllInABox, TakesTheWholeTextAlsoWhereTheBoxHasTheFocusAlready) {
  test_support::ScriptedDesktop desktop;
  test_support::User user(desktop);
  Boxes form(desktop);
  user.ExpectModal([&](controls::Form&) {
    user.Focus(form.second);
    form.second.SetSelStart(3);
    ASSERT_EQ(form.second.SelLength(), 0);
    SelectAll(form.second);
    EXPECT_EQ(form.second.SelStart(), 0);
    EXPECT_EQ(form.second.SelLength(), 11);
    SelectAll(form.first);
    EXPECT_EQ(form.first.SelLength(), 0);
    form.Unload();
  });
  desktop.Run(form);
}

TEST(SelectAllInABox, IsDoneByTheBoxWheneverItGetsTheFocus) {
  test_support::ScriptedDesktop desktop;
  test_support::User user(desktop);
  Boxes form(desktop);
  user.ExpectModal([&](controls::Form&) {
    for (int time = 0; time < 2; ++time) {
      user.Focus(form.second);
      EXPECT_EQ(form.second.SelStart(), 0);
      EXPECT_EQ(form.second.SelLength(), 11);
      form.second.SetSelStart(3);
      user.Focus(form.first);
      EXPECT_EQ(form.first.SelLength(), 0);
    }
    form.Unload();
  });
  desktop.Run(form);
}

}  // namespace
}  // namespace dialogs
