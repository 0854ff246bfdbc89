#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

// What a button says of itself while it is off.
class DisabledTip : public ControlsTest {
 protected:
  DisabledTip() {
    form.ok.SetEnabled(false);
    form.ok.SetWhyDisabled(kWhy);
  }

  const std::wstring kWhy = L"Sélectionnez d'abord un utilisateur & \"Été\".";
};

TEST_F(DisabledTip, SaysWhy) {
  EXPECT_EQ(form.ok.WhyDisabled(), kWhy);
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
}

TEST_F(DisabledTip, IsThatOfTheButtonUnderTheMouse) {
  form.more.SetEnabled(false);
  form.more.SetWhyDisabled(L"Autre raison");
  EXPECT_EQ(user.TipOf(form.more), L"Autre raison");
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
  EXPECT_EQ(user.TipOf(form.cancel), L"");
}

TEST_F(DisabledTip, SaysNothingOfAButtonThatIsOn) {
  form.ok.SetEnabled(true);
  EXPECT_EQ(user.TipOf(form.ok), L"");
}

TEST_F(DisabledTip, SaysNothingOfAButtonThatCannotBeSeen) {
  form.ok.SetVisible(false);
  EXPECT_EQ(user.TipOf(form.ok), L"");
}

TEST_F(DisabledTip, SaysNothingWhereThereIsNoReason) {
  form.more.SetEnabled(false);
  EXPECT_EQ(user.TipOf(form.more), L"");
  form.ok.SetWhyDisabled(L"");
  EXPECT_EQ(user.TipOf(form.ok), L"");
}

TEST_F(DisabledTip, FollowsTheReason) {
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
  form.ok.SetWhyDisabled(L"Lecture interrompue");
  EXPECT_EQ(user.TipOf(form.ok), L"Lecture interrompue");
  form.ok.SetEnabled(true);
  form.ok.SetWhyDisabled(L"");
  EXPECT_EQ(user.TipOf(form.ok), L"");
  form.ok.SetEnabled(false);
  form.ok.SetWhyDisabled(kWhy);
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
}

TEST_F(DisabledTip, IsThereForAButtonOnAFrame) {
  form.framedButton.SetContainer(form.frame);
  form.framedButton.SetEnabled(false);
  form.framedButton.SetWhyDisabled(L"Sélectionnez un membre.");
  EXPECT_EQ(user.TipOf(form.framedButton), L"Sélectionnez un membre.");
  form.frame.SetVisible(false);
  EXPECT_EQ(user.TipOf(form.framedButton), L"");
}

TEST_F(DisabledTip, IsAsLongAsTheReason) {
  const std::wstring text(900, L'a');
  form.ok.SetWhyDisabled(text);
  EXPECT_EQ(user.TipOf(form.ok), text);
}

TEST_F(DisabledTip, GoesWithTheFormsLife) {
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
  form.Unload();
  EXPECT_EQ(form.ok.WhyDisabled(), L"");
  form.Show();
  form.ok.SetEnabled(false);
  EXPECT_EQ(user.TipOf(form.ok), L"");
  form.ok.SetWhyDisabled(kWhy);
  EXPECT_EQ(user.TipOf(form.ok), kWhy);
}

}  // namespace
}  // namespace controls_test
