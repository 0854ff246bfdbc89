#include "resources/ResourceIds.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class FormLife : public testing::Test {
 protected:
  FormLife() {
    form.OnLoad = [this] { events.push_back(L"load"); };
    form.OnUnload = [this](bool&) { events.push_back(L"unload"); };
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  TestForm form{desktop};
  Events events;
};

TEST_F(FormLife, StartsUnloaded) {
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_FALSE(form.IsVisible());
  EXPECT_EQ(form.TemplateId(), IDD_TEST_FORM);
  EXPECT_EQ(&form.OwnerDesktop(), &desktop);
  form.Unload();
  EXPECT_EQ(events, Events{});
}

TEST_F(FormLife, LoadsOnceAndShows) {
  form.Load();
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(form.IsVisible());
  form.Load();
  form.Show();
  EXPECT_TRUE(form.IsVisible());
  form.Show();
  EXPECT_EQ(events, (Events{L"load"}));
}

TEST_F(FormLife, KeepsWhatItsLoadSets) {
  form.OnLoad = [this] {
    form.SetCaption(L"Liste des Choix : Groupes d'été");
    form.name.SetText(L"Martin");
    form.checkList.AddItem(L"Qualité", 5);
    form.checkList.SetSelected(0, true);
    form.tree.Add(controls::kNoNode, {L"\\TRT", L" "}, 0, L"Utilisateurs", 0);
    form.more.SetEnabled(false);
  };
  form.Show();
  EXPECT_EQ(form.Caption(), L"Liste des Choix : Groupes d'été");
  EXPECT_EQ(form.name.Text(), L"Martin");
  EXPECT_TRUE(form.checkList.Selected(0));
  EXPECT_EQ(form.tree.Nodes().Count(), 1);
  EXPECT_FALSE(user.CanUse(form.more));
}

TEST_F(FormLife, CannotBeUsedBeforeItIsShown) {
  form.Load();
  EXPECT_FALSE(user.Try().Click(form.more));
  EXPECT_FALSE(user.Try().Close(form));
  EXPECT_FALSE(form.name.HasFocus());
}

TEST_F(FormLife, MayUnloadItselfFromItsLoad) {
  form.OnLoad = [this] {
    events.push_back(L"load");
    form.Unload();
  };
  form.Show();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_FALSE(form.IsVisible());
  EXPECT_EQ(events, (Events{L"load", L"unload"}));
}

TEST_F(FormLife, EndsWithTheCloseBox) {
  form.Show();
  user.Close(form);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, (Events{L"load", L"unload"}));
}

TEST_F(FormLife, StaysWhenItRefusesToUnload) {
  bool refuse = true;
  form.OnUnload = [&](bool& cancel) {
    events.push_back(L"asked");
    cancel = refuse;
  };
  form.Show();
  user.Close(form);
  EXPECT_TRUE(form.IsVisible());
  form.Unload();
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_TRUE(user.Try().Type(form.name, L"x"));
  refuse = false;
  user.Close(form);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, (Events{L"load", L"asked", L"asked", L"asked"}));
}

TEST_F(FormLife, MayAskTheUserBeforeItUnloads) {
  form.OnUnload = [this](bool& cancel) {
    cancel = desktop.MsgBox(L"Souhaitez-vous poursuivre ?",
                            controls::kYesNo | controls::kExclamation | controls::kDefaultButton2,
                            L"Admin Utilisateurs") != controls::kResultYes;
  };
  form.Show();
  user.ExpectMsgBox(controls::kResultNo);
  user.Close(form);
  EXPECT_TRUE(form.IsLoaded());
  user.ExpectMsgBox(controls::kResultYes);
  user.Close(form);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormLife, AsksOnceWhenItIsUnloadedAgainMeanwhile) {
  form.OnUnload = [this](bool&) {
    events.push_back(L"unload");
    form.Unload();
  };
  form.Show();
  form.Unload();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, (Events{L"load", L"unload"}));
}

TEST_F(FormLife, MayUnloadFromAClick) {
  form.ok.Click = [this] { form.Unload(); };
  form.Show();
  user.Click(form.ok);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormLife, HasNothingOfItsLastLifeWhenItIsLoadedAgain) {
  form.Show();
  form.name.SetText(L"Martin");
  form.plainList.AddItem(L"x");
  form.tabs.AddTab(L"x");
  form.tree.Add(controls::kNoNode, {L"\\TRT", L" "}, 0, L"Utilisateurs", 0);
  form.more.SetEnabled(false);
  form.ok.SetVisible(false);
  form.more.SetTabIndex(0);
  form.Unload();
  form.Show();
  EXPECT_EQ(form.name.Text(), L"");
  EXPECT_EQ(form.plainList.ListCount(), 0);
  EXPECT_EQ(form.tabs.TabCount(), 0);
  EXPECT_EQ(form.tree.Nodes().Count(), 0);
  EXPECT_TRUE(form.more.Enabled());
  EXPECT_TRUE(form.ok.Visible());
  EXPECT_EQ(form.more.TabIndex(), 13);
  EXPECT_TRUE(user.Try().Click(form.more));
  EXPECT_EQ(events, (Events{L"load", L"unload", L"load"}));
}

TEST_F(FormLife, EndsQuietlyWithItsObject) {
  {
    TestForm other(desktop);
    other.OnUnload = [this](bool&) { events.push_back(L"asked"); };
    other.Show();
  }
  EXPECT_EQ(events, Events{});
}

TEST_F(FormLife, TakesFonts) {
  const controls::Font font{L"MS Shell Dlg", 11, 0};
  form.OnLoad = [&] { form.SetFont(font); };
  form.Show();
  for (const controls::Font& got : {user.FontOf(form), user.FontOf(form.name)}) {
    EXPECT_EQ(got.face, font.face);
    EXPECT_EQ(got.size, font.size);
    EXPECT_EQ(got.charset, font.charset);
  }
  form.more.SetFont({L"MS Shell Dlg", 14, 0});
  EXPECT_EQ(user.FontOf(form.more).size, 14);
  EXPECT_EQ(user.FontOf(form.ok).size, 11);
}

TEST_F(FormLife, HasNoFontOfAnEarlierLoad) {
  form.Show();
  const controls::Font first = user.FontOf(form);
  form.SetFont({L"MS Shell Dlg", 19, 0});
  form.more.SetFont({L"MS Shell Dlg", 23, 0});
  form.Unload();
  form.Show();
  EXPECT_EQ(user.FontOf(form).size, first.size);
  EXPECT_EQ(user.FontOf(form).face, first.face);
  EXPECT_EQ(user.FontOf(form.more).size, first.size);
}

TEST_F(FormLife, TakesTheFontAndTheIconOfItsSecondLoad) {
  form.Show();
  form.SetFont({L"MS Shell Dlg", 19, 0});
  form.SetIcon(IDI_PROGRAM);
  EXPECT_TRUE(user.HasIcon(form));
  form.Unload();
  form.Show();
  EXPECT_FALSE(user.HasIcon(form));
  form.SetFont({L"MS Shell Dlg", 11, 0});
  form.SetIcon(IDI_USER);
  EXPECT_EQ(user.FontOf(form).size, 11);
  EXPECT_EQ(user.FontOf(form.name).size, 11);
  EXPECT_TRUE(user.HasIcon(form));
}

TEST_F(FormLife, TakesAnchorsAndSizes) {
  form.OnLoad = [this] {
    form.SetResizable(true);
    form.tree.SetAnchors(controls::kAnchorLeft | controls::kAnchorTop | controls::kAnchorRight |
                         controls::kAnchorBottom);
    form.more.SetAnchors(controls::kAnchorRight | controls::kAnchorBottom);
  };
  form.Show();
  EXPECT_TRUE(user.Try().Click(form.more));
}

TEST_F(FormLife, LetsNoInputThroughWhileItRepaints) {
  form.more.Click = [this] { events.push_back(L"more"); };
  form.ok.Click = [this] {
    user.ClickLater(form.more);
    form.Repaint();
    events.push_back(L"done");
  };
  form.Show();
  events.clear();
  user.Click(form.ok);
  user.Settle();
  EXPECT_EQ(events, (Events{L"done", L"more"}));
}

}  // namespace
}  // namespace controls_test
