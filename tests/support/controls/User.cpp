#include "tests/support/controls/User.h"

#include <gtest/gtest.h>

#include <utility>

#include "controls/CommandButton.h"
#include "controls/ListBox.h"
#include "controls/ListView.h"
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
    : desktop_(desktop), script_([this](controls::Form& form) { input_->Discard(form); }) {
  PutAnswers();
  input_ = std::make_unique<UserInput>(desktop, script_);
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
  Require(input_->Click(button), "Click", button.Id(), where);
}

void User::Focus(controls::Control& control, Where where) {
  Require(input_->Focus(control), "Focus", control.Id(), where);
}

void User::Type(controls::TextBox& box, const std::wstring& text, Where where) {
  Require(input_->Type(box, text), "Type", box.Id(), where);
}

void User::Type(controls::ListBox& list, const std::wstring& text, Where where) {
  Require(input_->Type(list, text), "Type", list.Id(), where);
}

void User::Paste(controls::TextBox& box, const std::wstring& text, Where where) {
  Require(input_->Paste(box, text), "Paste", box.Id(), where);
}

void User::Choose(controls::ListBox& list, int item, Where where) {
  Require(input_->Choose(list, item), "Choose", list.Id(), where);
}

void User::Toggle(controls::ListBox& list, int item, Where where) {
  Require(input_->Toggle(list, item), "Toggle", list.Id(), where);
}

void User::DoubleClick(controls::ListBox& list, int item, Where where) {
  Require(input_->DoubleClick(list, item), "DoubleClick", list.Id(), where);
}

void User::Choose(controls::ListView& list, int place, Where where) {
  Require(input_->Choose(list, place), "Choose", list.Id(), where);
}

void User::Toggle(controls::ListView& list, int place, Where where) {
  Require(input_->Toggle(list, place), "Toggle", list.Id(), where);
}

void User::DoubleClick(controls::ListView& list, int place, Where where) {
  Require(input_->DoubleClick(list, place), "DoubleClick", list.Id(), where);
}

void User::ClickHeading(controls::ListView& list, int column, Where where) {
  Require(input_->ClickHeading(list, column), "ClickHeading", list.Id(), where);
}

void User::ChooseTab(controls::TabStrip& tabs, int tab, Where where) {
  Require(input_->ChooseTab(tabs, tab), "ChooseTab", tabs.Id(), where);
}

void User::Select(controls::TreeView& tree, controls::NodeId node, Where where) {
  Require(input_->Select(tree, node), "Select", tree.Id(), where);
}

void User::Expand(controls::TreeView& tree, controls::NodeId node, Where where) {
  Require(input_->Expand(tree, node), "Expand", tree.Id(), where);
}

void User::Collapse(controls::TreeView& tree, controls::NodeId node, Where where) {
  Require(input_->Collapse(tree, node), "Collapse", tree.Id(), where);
}

void User::DoubleClick(controls::TreeView& tree, controls::NodeId node, Where where) {
  Require(input_->DoubleClick(tree, node), "DoubleClick", tree.Id(), where);
}

void User::RightClick(controls::TreeView& tree, controls::NodeId node, Where where) {
  Require(input_->RightClick(tree, node), "RightClick", tree.Id(), where);
}

void User::PressMenuKey(controls::TreeView& tree, Where where) {
  Require(input_->PressMenuKey(tree), "PressMenuKey", tree.Id(), where);
}

void User::PressCtrl(controls::Form& form, int keyCode, Where where) {
  Require(input_->PressCtrl(form, keyCode), "PressCtrl", form.TemplateId(), where);
}

void User::PressKey(controls::Form& form, int keyCode, Where where) {
  Require(input_->PressKey(form, keyCode), "PressKey", form.TemplateId(), where);
}

void User::PressShiftTab(controls::Form& form, Where where) {
  Require(input_->PressKey(form, kKeyTab, true), "PressShiftTab", form.TemplateId(), where);
}

void User::Mnemonic(controls::Form& form, wchar_t letter, Where where) {
  Require(input_->Mnemonic(form, letter), "Mnemonic", form.TemplateId(), where);
}

void User::Close(controls::Form& form, Where where) {
  Require(input_->Close(form), "Close", form.TemplateId(), where);
}

void User::ClickLater(controls::CommandButton& button) {
  input_->ClickLater(button);
}
void User::Settle() {
  input_->Settle();
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
