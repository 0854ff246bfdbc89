#include "tests/support/controls/UserInput.h"

#include "controls/CommandButton.h"
#include "controls/Events.h"
#include "controls/TabStrip.h"
#include "controls/memory/DesktopPeer.h"
#include "controls/memory/FormPeer.h"
#include "controls/memory/ListBoxPeer.h"
#include "controls/memory/ListViewPeer.h"
#include "controls/memory/TabStripPeer.h"
#include "controls/memory/TextBoxPeer.h"
#include "controls/memory/TreeViewPeer.h"
#include "tests/support/controls/memory/Keyboard.h"
#include "tests/support/system/ScriptedDesktop.h"

namespace test_support {

using namespace controls;

namespace {

// Whether a user can get to the node, by opening what stands above it at the most.
bool IsThere(const TreeModel& model, NodeId node) {
  return model.Nodes().Exists(node) && model.Filter().LetsThrough(node);
}

}  // namespace

struct UserInput::Parts {
  ScriptedDesktop& desktop;
};

UserInput::UserInput(ScriptedDesktop& desktop, Script&)
    : parts_(std::make_unique<Parts>(Parts{desktop})) {}
UserInput::~UserInput() = default;

bool UserInput::CanUse(const Control& control) const {
  return control.Owner().BackEnd().TakesInput() && control.BackEnd().Usable();
}

Font UserInput::FontOf(const Control& control) const {
  return control.Owner().BackEnd().FontOf(control.BackEnd());
}
Font UserInput::FontOf(const Form& form) const {
  return form.BackEnd().life.font;
}
bool UserInput::HasIcon(const Form& form) const {
  return form.BackEnd().life.icon != 0;
}

bool UserInput::Focus(Control& control) {
  if (!CanUse(control) || !control.BackEnd().TakesFocus()) return false;
  control.SetFocus();
  return true;
}

// After Focus has moved the focus, what that set off may have put the control out of reach: the
// gesture then ends there.

bool UserInput::Click(CommandButton& button) {
  if (!Focus(button)) return false;
  if (CanUse(button)) button.BackEnd().PressEnter();
  return true;
}

bool UserInput::Type(TextBox& box, const std::wstring& text) {
  if (!Focus(box)) return false;
  for (const wchar_t character : text) {
    if (!CanUse(box) || !box.HasFocus()) break;
    PeerOf<TextBoxPeer>(box).TypeCharacter(box, character);
  }
  return true;
}

bool UserInput::Type(ListBox& list, const std::wstring& text) {
  if (!Focus(list)) return false;
  for (const wchar_t character : text) {
    if (CanUse(list) && list.HasFocus()) PeerOf<ListBoxPeer>(list).Type(character);
  }
  return true;
}

bool UserInput::Paste(TextBox& box, const std::wstring& text) {
  if (!Focus(box)) return false;
  if (CanUse(box)) PeerOf<TextBoxPeer>(box).ReplaceSelection(box, text);
  return true;
}

bool UserInput::Choose(ListBox& list, int item) {
  ListModel& model = ModelOf(list);
  if (!model.Has(item) || !Focus(list)) return false;
  if (CanUse(list) && model.Has(item)) model.Choose(item);
  return true;
}

bool UserInput::Toggle(ListBox& list, int item) {
  ListModel& model = ModelOf(list);
  if (model.Kind() == ListBox::Kind::kPlain || !model.Has(item) || !Focus(list)) return false;
  if (CanUse(list) && model.Has(item)) model.Toggle(item);
  return true;
}

bool UserInput::DoubleClick(ListBox& list, int item) {
  if (!Choose(list, item)) return false;
  if (CanUse(list) && ModelOf(list).Has(item)) Raise(list.Owner(), list.DblClick);
  return true;
}

bool UserInput::Choose(ListView& list, int place) {
  ListViewModel& model = ModelOf(list);
  if (!model.HasPlace(place) || !Focus(list)) return false;
  if (CanUse(list)) model.Choose(place);
  return true;
}

bool UserInput::Toggle(ListView& list, int place) {
  ListViewModel& model = ModelOf(list);
  if (!model.HasPlace(place) || !Focus(list)) return false;
  if (CanUse(list)) model.Toggle(place);
  return true;
}

bool UserInput::DoubleClick(ListView& list, int place) {
  if (!Choose(list, place)) return false;
  if (CanUse(list) && ModelOf(list).HasPlace(place)) ModelOf(list).Activate();
  return true;
}

// A heading takes no focus.
bool UserInput::ClickHeading(ListView& list, int column) {
  if (!CanUse(list) || !ModelOf(list).HasColumn(column)) return false;
  ModelOf(list).ClickHeading(column);
  return true;
}

bool UserInput::ChooseTab(TabStrip& tabs, int tab) {
  if (!PeerOf<TabStripPeer>(tabs).Has(tab) || !Focus(tabs)) return false;
  if (CanUse(tabs)) tabs.SetSelectedTab(tab);
  return true;
}

bool UserInput::Select(TreeView& tree, NodeId node) {
  TreeModel& model = ModelOf(tree);
  if (!IsThere(model, node) || !Focus(tree)) return false;
  model.OpenWay(node);
  if (CanUse(tree) && model.Nodes().Exists(node)) model.Choose(node);
  return true;
}

bool UserInput::DoubleClick(TreeView& tree, NodeId node) {
  if (!Select(tree, node)) return false;
  TreeModel& model = ModelOf(tree);
  if (!CanUse(tree) || !model.Nodes().Exists(node)) return true;
  if (model.Nodes().HasChildren(node)) model.SetExpanded(node, !model.Nodes().Expanded(node));
  if (CanUse(tree)) model.DoubleClick(node);
  return true;
}

bool UserInput::RightClick(TreeView& tree, NodeId node) {
  if (!Select(tree, node)) return false;
  if (CanUse(tree)) ModelOf(tree).AskForMenu(node);
  return true;
}

bool UserInput::PressMenuKey(TreeView& tree) {
  if (!CanUse(tree) || !tree.HasFocus()) return false;
  ModelOf(tree).AskForMenu(ModelOf(tree).Selected());
  return true;
}

std::wstring UserInput::TipOf(TreeView& tree, NodeId node) const {
  return ModelOf(tree).AskTip(node);
}

std::wstring UserInput::TipOf(const CommandButton& button) const {
  const auto& state = button.BackEnd().state;
  return state.IsEnabled() || !state.IsVisible() ? std::wstring() : button.WhyDisabled();
}

bool UserInput::Expand(TreeView& tree, NodeId node) {
  TreeModel& model = ModelOf(tree);
  if (!IsThere(model, node) || model.Nodes().Expanded(node)) return false;
  if (!model.HasChildrenOnView(node) || !Focus(tree)) return false;
  model.OpenWay(node);
  if (CanUse(tree) && model.Nodes().Exists(node)) model.SetExpanded(node, true);
  return true;
}

bool UserInput::Collapse(TreeView& tree, NodeId node) {
  TreeModel& model = ModelOf(tree);
  if (!IsThere(model, node) || !model.Nodes().Expanded(node)) return false;
  if (!model.HasChildrenOnView(node) || !Focus(tree)) return false;
  model.OpenWay(node);
  if (CanUse(tree) && model.Nodes().Exists(node)) model.SetExpanded(node, false);
  return true;
}

bool UserInput::PressKey(Form& form, int keyCode, bool shift) {
  if (!form.BackEnd().TakesInput()) return false;
  RunEventProcedure(form.OwnerDesktop(), [&] { form.Form_KeyDown(keyCode); });
  if (form.BackEnd().TakesInput()) PressOnControls(form.BackEnd(), keyCode, shift);
  if (!form.BackEnd().TakesInput()) return true;
  RunEventProcedure(form.OwnerDesktop(), [&] { form.Form_KeyUp(keyCode); });
  return true;
}

bool UserInput::PressCtrl(Form& form, int keyCode) {
  if (!form.BackEnd().TakesInput()) return false;
  RunEventProcedure(form.OwnerDesktop(), [&] { form.Form_KeyDown(keyCode + kKeyControl); });
  if (form.BackEnd().TakesInput()) PressCtrlOnControls(form.BackEnd(), keyCode);
  if (!form.BackEnd().TakesInput()) return true;
  RunEventProcedure(form.OwnerDesktop(), [&] { form.Form_KeyUp(keyCode); });
  return true;
}

bool UserInput::Mnemonic(Form& form, wchar_t letter) {
  return form.BackEnd().TakesInput() && PressMnemonic(form.BackEnd(), letter);
}

bool UserInput::Close(Form& form) {
  if (!form.BackEnd().TakesInput()) return false;
  form.Unload();
  return true;
}

void UserInput::ClickLater(CommandButton& button) {
  parts_->desktop.BackEnd().input.emplace_back([this, &button] { Click(button); });
}

void UserInput::Settle() {
  while (parts_->desktop.BackEnd().HandleOne()) {
  }
}

void UserInput::Discard(Form& form) {
  form.BackEnd().Destroy();
}

}  // namespace test_support
