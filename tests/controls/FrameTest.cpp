#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class Frame : public ControlsTest {
 protected:
  Frame() {
    form.framedBox.SetContainer(form.frame);
    form.framedButton.SetContainer(form.frame);
    form.framedButton.Click = [this] { events.push_back(L"click"); };
  }
};

TEST_F(Frame, KeepsItsCaption) {
  form.frame.SetCaption(L"Membre du Groupe");
  EXPECT_EQ(form.frame.Caption(), L"Membre du Groupe");
}

TEST_F(Frame, HidesWhatItHolds) {
  form.frame.SetVisible(false);
  EXPECT_FALSE(user.Try().Click(form.framedButton));
  EXPECT_FALSE(user.Try().Type(form.framedBox, L"x"));
  EXPECT_FALSE(user.CanUse(form.framedButton));
  EXPECT_TRUE(form.framedButton.Visible());
  form.frame.SetVisible(true);
  EXPECT_TRUE(user.Try().Click(form.framedButton));
}

TEST_F(Frame, DisablesWhatItHolds) {
  form.frame.SetEnabled(false);
  EXPECT_FALSE(user.Try().Click(form.framedButton));
  EXPECT_TRUE(form.framedButton.Enabled());
  form.frame.SetEnabled(true);
  EXPECT_TRUE(user.Try().Click(form.framedButton));
}

TEST_F(Frame, DoesNotBringBackWhatWasHiddenOrDisabledByItself) {
  form.framedButton.SetVisible(false);
  form.framedBox.SetEnabled(false);
  form.frame.SetVisible(false);
  form.frame.SetVisible(true);
  form.frame.SetEnabled(false);
  form.frame.SetEnabled(true);
  EXPECT_FALSE(user.Try().Click(form.framedButton));
  EXPECT_FALSE(user.Try().Type(form.framedBox, L"x"));
}

TEST_F(Frame, HidesWhatIsPutIntoItWhileItIsHidden) {
  form.frame.SetVisible(false);
  form.more.SetContainer(form.frame);
  EXPECT_FALSE(user.Try().Click(form.more));
  form.more.SetVisible(true);
  EXPECT_FALSE(user.Try().Click(form.more));
  form.frame.SetVisible(true);
  EXPECT_TRUE(user.Try().Click(form.more));
}

}  // namespace
}  // namespace controls_test
