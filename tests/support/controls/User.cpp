#include "tests/support/controls/User.h"

#include <gtest/gtest.h>

#include <utility>

#include "controls/CommandButton.h"
#include "controls/ListBox.h"
#include "controls/TabStrip.h"
#include "controls/TextBox.h"
#include "controls/TreeView.h"

namespace test_support {
namespace {

void Require(bool done, const char* gesture, int id, const Where& where) {
  if (done) return;
  ADD_FAILURE_AT(where.file_name(), where.line())
      << gesture << ": a user could not do that now (control or form " << id << ")";
}

}  // namespace

User::User(ScriptedDesktop& desktop)
    : desktop_(desktop), script_([this](controls::Form& form) { hands_->Discard(form); }) {
  PutAnswers();
  hands_ = std::make_unique<Hands>(desktop, script_);
}

User::~User() {
  script_.FailLeftovers();
  desktop_.system.answers = {};
}

void User::PutAnswers() {
  SystemAnswers& answers = desktop_.system.answers;
  answers.MsgBox = [this](const std::wstring& prompt, int style, const std::wstring& title) {
    return script_.AnswerBox(prompt, style, title);
  };
  answers.ModalShown = [this](controls::Form& form) { script_.RunModal(form); };
  answers.PopupMenu = [this](const std::vector<controls::MenuItem>& items) {
    return script_.AnswerMenu(items);
  };
  answers.SetClipboardText = [this](const std::wstring& text) {
    if (!clipboardOccupied_) clipboard_ = text;
    return !clipboardOccupied_;
  };
  answers.Beep = [this] { ++beepCount_; };
  answers.UserDefaultLcid = [this] { return lcid_; };
  answers.ProgramFolder = [this] { return programFolder_; };
  answers.CommandLine = [this] { return commandLine_; };
  answers.HtmlHelp = [this](const controls::Form& form, const std::wstring& file, int topic) {
    helpCalls_.push_back({file, topic, form.TemplateId()});
    return helpOutcome_;
  };
}

void User::Click(controls::CommandButton& button, Where where) {
  Require(TryClick(button), "Click", button.Id(), where);
}
bool User::TryClick(controls::CommandButton& button) {
  return hands_->Click(button);
}

void User::Focus(controls::Control& control, Where where) {
  Require(TryFocus(control), "Focus", control.Id(), where);
}
bool User::TryFocus(controls::Control& control) {
  return hands_->Focus(control);
}

void User::Type(controls::TextBox& box, const std::wstring& text, Where where) {
  Require(TryType(box, text), "Type", box.Id(), where);
}
bool User::TryType(controls::TextBox& box, const std::wstring& text) {
  return hands_->Type(box, text);
}

void User::Type(controls::ListBox& list, const std::wstring& text, Where where) {
  Require(hands_->Type(list, text), "Type", list.Id(), where);
}

void User::Paste(controls::TextBox& box, const std::wstring& text, Where where) {
  Require(TryPaste(box, text), "Paste", box.Id(), where);
}
bool User::TryPaste(controls::TextBox& box, const std::wstring& text) {
  return hands_->Paste(box, text);
}

void User::Choose(controls::ListBox& list, int item, Where where) {
  Require(TryChoose(list, item), "Choose", list.Id(), where);
}
bool User::TryChoose(controls::ListBox& list, int item) {
  return hands_->Choose(list, item);
}

void User::Toggle(controls::ListBox& list, int item, Where where) {
  Require(TryToggle(list, item), "Toggle", list.Id(), where);
}
bool User::TryToggle(controls::ListBox& list, int item) {
  return hands_->Toggle(list, item);
}

void User::DoubleClick(controls::ListBox& list, int item, Where where) {
  Require(TryDoubleClick(list, item), "DoubleClick", list.Id(), where);
}
bool User::TryDoubleClick(controls::ListBox& list, int item) {
  return hands_->DoubleClick(list, item);
}

void User::ChooseTab(controls::TabStrip& tabs, int tab, Where where) {
  Require(TryChooseTab(tabs, tab), "ChooseTab", tabs.Id(), where);
}
bool User::TryChooseTab(controls::TabStrip& tabs, int tab) {
  return hands_->ChooseTab(tabs, tab);
}

void User::Select(controls::TreeView& tree, int node, Where where) {
  Require(TrySelect(tree, node), "Select", tree.Id(), where);
}
bool User::TrySelect(controls::TreeView& tree, int node) {
  return hands_->Select(tree, node);
}

void User::Expand(controls::TreeView& tree, int node, Where where) {
  Require(TryExpand(tree, node), "Expand", tree.Id(), where);
}
bool User::TryExpand(controls::TreeView& tree, int node) {
  return hands_->Expand(tree, node);
}

void User::Collapse(controls::TreeView& tree, int node, Where where) {
  Require(TryCollapse(tree, node), "Collapse", tree.Id(), where);
}
bool User::TryCollapse(controls::TreeView& tree, int node) {
  return hands_->Collapse(tree, node);
}

void User::RightClick(controls::TreeView& tree, int node, Where where) {
  Require(TryRightClick(tree, node), "RightClick", tree.Id(), where);
}
bool User::TryRightClick(controls::TreeView& tree, int node) {
  return hands_->RightClick(tree, node);
}

void User::PressMenuKey(controls::TreeView& tree, Where where) {
  Require(TryPressMenuKey(tree), "PressMenuKey", tree.Id(), where);
}
bool User::TryPressMenuKey(controls::TreeView& tree) {
  return hands_->PressMenuKey(tree);
}

void User::PressCtrl(controls::Form& form, int keyCode, Where where) {
  Require(hands_->PressCtrl(form, keyCode), "PressCtrl", form.TemplateId(), where);
}

void User::PressKey(controls::Form& form, int keyCode, Where where) {
  Require(TryPressKey(form, keyCode), "PressKey", form.TemplateId(), where);
}
bool User::TryPressKey(controls::Form& form, int keyCode) {
  return hands_->PressKey(form, keyCode, false);
}

void User::PressShiftTab(controls::Form& form, Where where) {
  Require(hands_->PressKey(form, kKeyTab, true), "PressShiftTab", form.TemplateId(), where);
}

void User::Mnemonic(controls::Form& form, wchar_t letter, Where where) {
  Require(TryMnemonic(form, letter), "Mnemonic", form.TemplateId(), where);
}
bool User::TryMnemonic(controls::Form& form, wchar_t letter) {
  return hands_->Mnemonic(form, letter);
}

void User::Close(controls::Form& form, Where where) {
  Require(TryClose(form), "Close", form.TemplateId(), where);
}
bool User::TryClose(controls::Form& form) {
  return hands_->Close(form);
}

void User::ClickLater(controls::CommandButton& button) {
  hands_->ClickLater(button);
}
void User::Settle() {
  hands_->Settle();
}

void User::ExpectMsgBox(int answer, Where where) {
  script_.ExpectBox({answer, {}, {}, {}}, where);
}
void User::ExpectMsgBox(ExpectedBox box, Where where) {
  script_.ExpectBox(std::move(box), where);
}
void User::ExpectMenu(int command, Where where) {
  ExpectMenu([command](const std::vector<controls::MenuItem>&) { return command; }, where);
}
void User::ExpectMenu(MenuAnswer answer, Where where) {
  script_.ExpectMenu(std::move(answer), where);
}
void User::ExpectModal(Script::FormScript script, Where where) {
  script_.ExpectModal(std::move(script), where);
}

}  // namespace test_support
