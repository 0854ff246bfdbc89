#include "tests/support/system/ScriptedSystem.h"

#include <utility>

namespace test_support {

ScriptedSystem::ScriptedSystem() : below_(MakeSystemBelow()) {}

int ScriptedSystem::ShowBox(const std::wstring& prompt, int style, const std::wstring& title) {
  return below_->MsgBox(boxOwner_, prompt, style, title);
}

int ScriptedSystem::MsgBox(const controls::Form* owner, const std::wstring& prompt, int style,
                           const std::wstring& title) {
  if (!answers.MsgBox) return below_->MsgBox(owner, prompt, style, title);
  const controls::Form* const before = std::exchange(boxOwner_, owner);
  const int answer = answers.MsgBox(prompt, style, title);
  boxOwner_ = before;
  return answer;
}

int ScriptedSystem::PopupMenu(controls::TreeView& tree, controls::NodeId node,
                              const std::vector<controls::MenuItem>& items) {
  return answers.PopupMenu ? answers.PopupMenu(items) : below_->PopupMenu(tree, node, items);
}

controls::HelpOutcome ScriptedSystem::HtmlHelp(const controls::Form& form, const std::wstring& file,
                                               int topic) {
  if (answers.HtmlHelp) return answers.HtmlHelp(form, file, topic);
  return below_->HtmlHelp(form, file, topic);
}

bool ScriptedSystem::SetClipboardText(const controls::Form* owner, const std::wstring& text) {
  if (answers.SetClipboardText) return answers.SetClipboardText(text);
  return below_->SetClipboardText(owner, text);
}

void ScriptedSystem::Beep() {
  if (answers.Beep) return answers.Beep();
  below_->Beep();
}

std::optional<std::wstring> ScriptedSystem::AskSaveFile(
    const controls::Form& owner, const std::wstring& title, const std::wstring& name,
    const std::vector<controls::FileKind>& kinds) {
  if (answers.AskSaveFile) return answers.AskSaveFile(name, kinds);
  return below_->AskSaveFile(owner, title, name, kinds);
}

bool ScriptedSystem::EscapePressed() {
  return answers.EscapePressed ? answers.EscapePressed() : below_->EscapePressed();
}

std::wstring ScriptedSystem::Setting(const std::wstring& name) const {
  const auto found = settings.find(name);
  return found == settings.end() ? std::wstring() : found->second;
}

void ScriptedSystem::KeepSetting(const std::wstring& name, const std::wstring& text) {
  settings[name] = text;
}

void ScriptedSystem::BlockSessionEnd(const controls::Form& form, const std::wstring& reason) {
  if (answers.BlockSessionEnd) return answers.BlockSessionEnd(form, reason);
  below_->BlockSessionEnd(form, reason);
}

void ScriptedSystem::UnblockSessionEnd(const controls::Form& form) {
  if (answers.UnblockSessionEnd) return answers.UnblockSessionEnd(form);
  below_->UnblockSessionEnd(form);
}

void ScriptedSystem::HandleInput(controls::Form& form) {
  if (answers.ModalShown) answers.ModalShown(form);
  below_->HandleInput(form);
}

std::wstring ScriptedSystem::LoadResString(int id) const {
  return below_->LoadResString(id);
}

int ScriptedSystem::UserDefaultLcid() const {
  return answers.UserDefaultLcid ? answers.UserDefaultLcid() : below_->UserDefaultLcid();
}

std::wstring ScriptedSystem::ProgramFolder() const {
  return answers.ProgramFolder ? answers.ProgramFolder() : below_->ProgramFolder();
}

std::wstring ScriptedSystem::CommandLine() const {
  return answers.CommandLine ? answers.CommandLine() : below_->CommandLine();
}

std::wstring ScriptedSystem::LocalDataFolder() const {
  return answers.LocalDataFolder ? answers.LocalDataFolder() : std::wstring();
}

std::optional<std::wstring> ScriptedSystem::Policy(const std::wstring& product,
                                                   const std::wstring& name) const {
  return answers.Policy ? answers.Policy(product, name) : std::nullopt;
}

std::wstring ScriptedSystem::LocalTime(std::chrono::system_clock::time_point time) const {
  return below_->LocalTime(time);
}

std::wstring ScriptedSystem::ComputerName() const {
  return below_->ComputerName();
}

std::wstring ScriptedSystem::UserName() const {
  return below_->UserName();
}

}  // namespace test_support
