#pragma once

#include <string>
#include <utility>

#include "controls/System.h"
#include "controls/win32/HelpLibrary.h"

namespace controls {

// The operating system itself.
class NativeSystem : public System {
 public:
  // The key of the user's registry that settings are kept in; none are where it is empty.
  explicit NativeSystem(std::wstring settingsKey = {}) : settingsKey_(std::move(settingsKey)) {}

  int MsgBox(const Form* owner, const std::wstring& prompt, int style,
             const std::wstring& title) override;
  int PopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items) override;
  HelpOutcome HtmlHelp(const Form& form, const std::wstring& file, int topic) override;
  bool SetClipboardText(const Form* owner, const std::wstring& text) override;
  void Beep() override;
  std::optional<std::wstring> AskSaveFile(const Form& owner, const std::wstring& title,
                                          const std::wstring& name,
                                          const std::vector<FileKind>& kinds) override;
  bool EscapePressed() override;
  std::wstring Setting(const std::wstring& name) const override;
  void KeepSetting(const std::wstring& name, const std::wstring& text) override;
  void BlockSessionEnd(const Form& form, const std::wstring& reason) override;
  void UnblockSessionEnd(const Form& form) override;
  void HandleInput(Form& form) override;

  std::wstring LoadResString(int id) const override;
  int UserDefaultLcid() const override;
  std::wstring ProgramFolder() const override;
  std::wstring CommandLine() const override;
  std::wstring LocalDataFolder() const override;
  std::optional<std::wstring> Policy(const std::wstring& product,
                                     const std::wstring& name) const override;
  std::wstring LocalTime(std::chrono::system_clock::time_point time) const override;
  std::wstring ComputerName() const override;
  std::wstring UserName() const override;

 private:
  std::wstring settingsKey_;
  HelpLibrary help_;
};

}  // namespace controls
