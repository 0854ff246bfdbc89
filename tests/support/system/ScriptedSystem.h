#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/System.h"

namespace test_support {

// What a test answers in place of the system. Where a member is empty the system below answers.
struct SystemAnswers {
  std::function<int(const std::wstring& prompt, int style, const std::wstring& title)> MsgBox;
  // A form has been shown, modally or by Desktop::Run, and its owner disabled; it has not handled
  // input yet. Returning lets it do so until it is unloaded.
  std::function<void(controls::Form& form)> ModalShown;
  std::function<int(const std::vector<controls::MenuItem>& items)> PopupMenu;
  std::function<void()> Beep;
  std::function<std::optional<std::wstring>(const std::wstring& name,
                                            const std::vector<controls::FileKind>& kinds)>
      AskSaveFile;
  std::function<bool()> EscapePressed;
  std::function<void(const controls::Form& form, const std::wstring& reason)> BlockSessionEnd;
  std::function<void(const controls::Form& form)> UnblockSessionEnd;
  std::function<bool(const std::wstring& text)> SetClipboardText;
  std::function<int()> UserDefaultLcid;
  std::function<std::wstring()> ProgramFolder;
  std::function<std::wstring()> CommandLine;
  // Without it there is none: a test leaves nothing with the user that it runs as.
  std::function<std::wstring()> LocalDataFolder;
  // Without it nothing is laid down.
  std::function<std::optional<std::wstring>(const std::wstring& product, const std::wstring& name)>
      Policy;
  std::function<controls::HelpOutcome(const controls::Form& form, const std::wstring& file,
                                      int topic)>
      HtmlHelp;
};

// The system as a test wants it.
class ScriptedSystem : public controls::System {
 public:
  ScriptedSystem();

  SystemAnswers answers;

  // What is kept between runs; never that of the user who runs the tests.
  std::map<std::wstring, std::wstring> settings;

  // Has the system below show the message box that the test is being asked for.
  int ShowBox(const std::wstring& prompt, int style, const std::wstring& title);

  int MsgBox(const controls::Form* owner, const std::wstring& prompt, int style,
             const std::wstring& title) override;
  int PopupMenu(controls::TreeView& tree, controls::NodeId node,
                const std::vector<controls::MenuItem>& items) override;
  controls::HelpOutcome HtmlHelp(const controls::Form& form, const std::wstring& file,
                                 int topic) override;
  bool SetClipboardText(const controls::Form* owner, const std::wstring& text) override;
  void Beep() override;
  std::optional<std::wstring> AskSaveFile(const controls::Form& owner, const std::wstring& title,
                                          const std::wstring& name,
                                          const std::vector<controls::FileKind>& kinds) override;
  bool EscapePressed() override;
  std::wstring Setting(const std::wstring& name) const override;
  void KeepSetting(const std::wstring& name, const std::wstring& text) override;
  void BlockSessionEnd(const controls::Form& form, const std::wstring& reason) override;
  void UnblockSessionEnd(const controls::Form& form) override;
  void HandleInput(controls::Form& form) override;

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
  std::unique_ptr<controls::System> below_;
  const controls::Form* boxOwner_ = nullptr;
};

// What answers where a test does not, one source for each back end: the operating system itself
// under native controls; in memory, where there is none, nobody: a message box gives its refusing
// answer, a modal form is unloaded once no input waits, nothing is chosen from a menu, the
// clipboard takes nothing. The texts are those of the program in both.
std::unique_ptr<controls::System> MakeSystemBelow();

}  // namespace test_support
