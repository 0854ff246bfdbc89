#include <stdexcept>

#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class EscapedError : public ControlsTest {
 protected:
  EscapedError() {
    desktop.EscapedError = [this] {
      try {
        throw;
      } catch (const std::exception& error) {
        const std::string text = error.what();
        events.emplace_back(text.begin(), text.end());
      }
    };
  }
  static void Throw() { throw std::runtime_error("escaped"); }
};

TEST_F(EscapedError, FromAClickIsReportedAndTheProgramGoesOn) {
  form.more.Click = Throw;
  user.Click(form.more);
  user.Click(form.more);
  EXPECT_EQ(events, (Events{L"escaped", L"escaped"}));
  EXPECT_TRUE(form.IsVisible());
}

TEST_F(EscapedError, FromAnEventOfTheProgramsOwnChangeLeavesTheChangeMade) {
  form.name.Change = Throw;
  form.checkList.AddItem(L"x");
  form.checkList.ItemCheck = [](int) { Throw(); };
  form.tabs.AddTab(L"a");
  form.tabs.AddTab(L"b");
  form.tabs.Click = Throw;
  form.password.GotFocus = Throw;
  form.name.SetText(L"Martin");
  form.checkList.SetSelected(0, true);
  form.tabs.SetSelectedTab(1);
  form.password.SetFocus();
  EXPECT_EQ(form.name.Text(), L"Martin");
  EXPECT_TRUE(form.checkList.Selected(0));
  EXPECT_EQ(form.tabs.SelectedTab(), 1);
  EXPECT_TRUE(form.password.HasFocus());
  EXPECT_EQ(events, (Events(4, L"escaped")));
}

TEST_F(EscapedError, FromATreesEventIsReported) {
  const controls::NodeId root = form.tree.Add(controls::kNoNode, {L"\\TRT", L" "}, 0, L"root", 0);
  form.tree.Add(root, {L"\\TUS", L"\\U", true}, 1, L"child", 0);
  form.tree.Expand = [](controls::NodeId) { Throw(); };
  form.tree.NodeClick = [](controls::NodeId) { Throw(); };
  form.tree.SetExpanded(root, true);
  user.Select(form.tree, root);
  EXPECT_TRUE(form.tree.Nodes().Expanded(root));
  EXPECT_EQ(form.tree.SelectedNode(), root);
  EXPECT_EQ(events, (Events(2, L"escaped")));
}

TEST_F(EscapedError, FromTheLoadLeavesTheFormLoaded) {
  TestForm other(desktop);
  other.OnLoad = Throw;
  other.Show();
  EXPECT_TRUE(other.IsVisible());
  EXPECT_EQ(events, (Events{L"escaped"}));
}

TEST_F(EscapedError, FromTheUnloadLetsTheFormGo) {
  form.OnUnload = [](bool&) { Throw(); };
  user.Close(form);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, (Events{L"escaped"}));
}

TEST_F(EscapedError, FromAKeyProcedureIsReported) {
  form.OnKeyDown = [](int) { Throw(); };
  user.PressKey(form, controls::kKeyF1);
  EXPECT_EQ(events, (Events{L"escaped"}));
}

TEST_F(EscapedError, InAModalFormLeavesItShown) {
  SmallForm dialog(desktop);
  dialog.cancel.Click = Throw;
  dialog.ok.Click = [&] { dialog.Unload(); };
  user.ExpectModal([&](controls::Form&) {
    user.Click(dialog.cancel);
    EXPECT_TRUE(dialog.IsVisible());
    user.Click(dialog.ok);
  });
  dialog.ShowModal(form);
  EXPECT_EQ(events, (Events{L"escaped"}));
}

}  // namespace
}  // namespace controls_test
