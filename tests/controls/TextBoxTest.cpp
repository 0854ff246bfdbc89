#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class TextBox : public ControlsTest {
 protected:
  TextBox() {
    box.Change = [this] { events.push_back(box.Text()); };
  }
  controls::TextBox& box = form.name;
};

TEST_F(TextBox, StartsEmpty) {
  EXPECT_EQ(box.Text(), L"");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBox, ReportsEveryChangeByTheProgram) {
  box.SetText(L"Zoé");
  box.SetText(L"");
  EXPECT_EQ(events, (Events{L"Zoé", L""}));
}

TEST_F(TextBox, ReportsNothingWhenTheTextIsSetToWhatItIs) {
  box.SetText(L"Zoé");
  box.SetSelStart(2);
  box.SetText(L"Zoé");
  EXPECT_EQ(events, (Events{L"Zoé"}));
  EXPECT_EQ(box.SelStart(), 2);
}

TEST_F(TextBox, ReportsEveryTypedCharacter) {
  user.Type(box, L"aé\x20AC");
  EXPECT_EQ(events, (Events{L"a", L"aé", L"aé\x20AC"}));
}

TEST_F(TextBox, ReportsAPastedTextOnce) {
  user.Paste(box, L"Jean Martin");
  EXPECT_EQ(events, (Events{L"Jean Martin"}));
}

TEST_F(TextBox, ReportsNothingWhenTypingLeavesTheTextAsItWas) {
  box.SetText(L"x");
  box.SetSelLength(1);
  user.Type(box, L"x");
  EXPECT_EQ(box.Text(), L"x");
  EXPECT_EQ(events, (Events{L"x"}));
}

TEST_F(TextBox, KeepsCharactersOutsideTheBasicPlaneAsTwoUnits) {
  box.SetText(L"\xD83D\xDE00");
  EXPECT_EQ(box.Text(), L"\xD83D\xDE00");
  box.SetSelStart(0);
  box.SetSelLength(9);
  EXPECT_EQ(box.SelLength(), 2);
}

TEST_F(TextBox, HoldsALongText) {
  const std::wstring text(40000, L'x');
  box.SetText(text);
  EXPECT_EQ(box.Text(), text);
  user.Paste(box, L"y");
  EXPECT_EQ(box.Text(), L"y" + text);
}

TEST_F(TextBox, SelectsItsTextWhenItGetsTheFocusSoThatTypingReplacesIt) {
  form.password.SetFocus();
  box.SetText(L"Martin");
  user.Focus(box);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 6);
  user.Type(box, L"Zo");
  EXPECT_EQ(box.Text(), L"Zo");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBox, TypesWhereTheCaretStands) {
  user.Focus(box);
  box.SetText(L"Matin");
  EXPECT_EQ(box.SelStart(), 0);
  box.SetSelStart(2);
  user.Type(box, L"r");
  EXPECT_EQ(box.Text(), L"Martin");
}

TEST_F(TextBox, PastesOverTheSelection) {
  user.Focus(box);
  box.SetText(L"Jean Martin");
  box.SetSelStart(5);
  box.SetSelLength(6);
  user.Paste(box, L"Noël");
  EXPECT_EQ(box.Text(), L"Jean Noël");
  EXPECT_EQ(box.SelStart(), 9);
}

TEST_F(TextBox, TakesBackspace) {
  user.Type(box, L"Zoe\b\bo\b\b\b\b");
  EXPECT_EQ(events, (Events{L"Z", L"Zo", L"Zoe", L"Zo", L"Z", L"Zo", L"Z", L""}));
}

TEST_F(TextBox, CutsTheSelectionToWhatTheTextHolds) {
  box.SetText(L"Martin");
  box.SetSelStart(4);
  box.SetSelLength(10);
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_EQ(box.SelLength(), 2);
  box.SetSelStart(10);
  EXPECT_EQ(box.SelStart(), 6);
  EXPECT_EQ(box.SelLength(), 0);
  box.SetSelStart(-1);
  box.SetSelLength(-1);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBox, AnotherTextEmptiesTheSelection) {
  box.SetText(L"Martin");
  box.SetSelStart(1);
  box.SetSelLength(3);
  box.SetText(L"Martine");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBox, LetsKeyPressDiscardACharacter) {
  box.KeyPress = [](wchar_t& character) {
    if (character == L' ') character = 0;
  };
  user.Type(box, L"a b c");
  EXPECT_EQ(box.Text(), L"abc");
  EXPECT_EQ(events.size(), 3U);
}

TEST_F(TextBox, LetsKeyPressReplaceACharacter) {
  box.KeyPress = [](wchar_t& character) {
    if (character == L'e') character = L'é';
  };
  user.Type(box, L"Zoe");
  EXPECT_EQ(box.Text(), L"Zoé");
}

TEST_F(TextBox, ShowsKeyPressTheBackspaceKey) {
  Events pressed;
  box.KeyPress = [&](wchar_t& character) { pressed.push_back(std::to_wstring(character)); };
  user.Type(box, L"A\b");
  EXPECT_EQ(pressed, (Events{L"65", L"8"}));
}

TEST_F(TextBox, PastesPastKeyPress) {
  box.KeyPress = [](wchar_t& character) { character = 0; };
  user.Paste(box, L"a b");
  EXPECT_EQ(box.Text(), L"a b");
}

TEST_F(TextBox, LetsChangeCutTheTextBack) {
  box.Change = [this] {
    events.push_back(box.Text());
    if (box.Text().size() <= 3) return;
    box.SetText(box.Text().substr(0, 3));
    box.SetSelStart(0);
    box.SetSelLength(3);
  };
  user.Type(box, L"abc");
  user.Paste(box, L"defgh");
  EXPECT_EQ(box.Text(), L"abc");
  EXPECT_EQ(events, (Events{L"a", L"ab", L"abc", L"abcdefgh", L"abc"}));
  EXPECT_EQ(box.SelLength(), 3);
}

TEST_F(TextBox, MasksWhatItShowsAndNotWhatItHolds) {
  EXPECT_FALSE(box.IsMasked());
  EXPECT_TRUE(form.password.IsMasked());
  user.Type(form.password, L"secret");
  EXPECT_EQ(form.password.Text(), L"secret");
}

TEST_F(TextBox, TakesNothingFromTheUserWhileItIsDisabled) {
  box.SetEnabled(false);
  EXPECT_FALSE(user.Try().Type(box, L"x"));
  EXPECT_FALSE(user.Try().Paste(box, L"x"));
  EXPECT_EQ(box.Text(), L"");
  box.SetText(L"by the program");
  EXPECT_EQ(events, (Events{L"by the program"}));
}

TEST_F(TextBox, MayUnloadItsFormFromChange) {
  box.Change = [this] { form.Unload(); };
  user.Type(box, L"x");
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(TextBox, ShowsItsTextToAReader) {
  form.password.SetText(L"secret");
  std::wstring read;
  form.password.ReadText([&read](std::wstring_view text) { read = text; });
  EXPECT_EQ(read, L"secret");
}

TEST_F(TextBox, HasACueThatIsNoTextAndEndsWithItsForm) {
  EXPECT_EQ(box.Cue(), L"");
  box.SetCue(L"Rechercher & trouver");
  EXPECT_EQ(box.Cue(), L"Rechercher & trouver");
  EXPECT_EQ(box.Text(), L"");
  user.Type(box, L"x");
  EXPECT_EQ(box.Text(), L"x");
  EXPECT_EQ(box.Cue(), L"Rechercher & trouver");
  form.Unload();
  form.Show();
  EXPECT_EQ(box.Cue(), L"");
}

TEST_F(TextBox, HoldsNothingOfAnEarlierLoad) {
  form.password.SetText(L"secret");
  form.Unload();
  form.Show();
  EXPECT_EQ(form.password.Text(), L"");
  user.Type(form.password, L"other");
  EXPECT_EQ(form.password.Text(), L"other");
}

}  // namespace
}  // namespace controls_test
