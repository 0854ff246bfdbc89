#pragma once

#include <functional>
#include <memory>
#include <string>

#include "controls/MsgBox.h"
#include "controls/System.h"

namespace controls {

enum class MousePointer { kDefault, kWait };

// The surroundings of the program's forms: message boxes, resources, locale, pointer and message
// loop. One object, made first in the program and outliving every form.
class Desktop {
 public:
  struct Peer;

  explicit Desktop(System& system);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // Shows a modal message box over the active form. style adds up MsgBoxStyle values; the answer is
  // a MsgBoxResult.
  int MsgBox(const std::wstring& prompt, int style, const std::wstring& title);
  void Beep() { system_.Beep(); }
  // See System.
  std::optional<std::wstring> AskSaveFile(const Form& owner, const std::wstring& title,
                                          const std::wstring& name,
                                          const std::vector<FileKind>& kinds) {
    return system_.AskSaveFile(owner, title, name, kinds);
  }
  bool EscapePressed() { return system_.EscapePressed(); }
  // Puts a text on the clipboard; false when another program keeps it occupied.
  bool SetClipboardText(const std::wstring& text);
  // See System::Setting.
  std::wstring Setting(const std::wstring& name) const { return system_.Setting(name); }
  void KeepSetting(const std::wstring& name, const std::wstring& text) {
    system_.KeepSetting(name, text);
  }
  void BlockSessionEnd(const Form& form, const std::wstring& reason) {
    system_.BlockSessionEnd(form, reason);
  }
  void UnblockSessionEnd(const Form& form) { system_.UnblockSessionEnd(form); }
  void SetMousePointer(MousePointer pointer);
  MousePointer Pointer() const;

  // A text of the program's string table; empty when the number has none.
  std::wstring LoadResString(int id) const { return system_.LoadResString(id); }
  // The user's default locale identifier, 1036 for French.
  int UserDefaultLcid() const { return system_.UserDefaultLcid(); }
  // The folder of the executable, without a closing backslash.
  std::wstring ProgramFolder() const { return system_.ProgramFolder(); }
  // The whole command line, the program's own name left out.
  std::wstring CommandLine() const { return system_.CommandLine(); }
  // What else the program asks of its surroundings (see System).
  const System& Surroundings() const { return system_; }

  // Opens a compiled help file at a topic number through the function HtmlHelpForVB of the library
  // kvh_util, which is loaded when it is first needed.
  HelpOutcome HtmlHelp(const Form& form, const std::wstring& file, int topic) {
    return system_.HtmlHelp(form, file, topic);
  }
  // See ShowPopupMenu, which asks first whether there is anything to show.
  int PopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items) {
    return system_.PopupMenu(tree, node, items);
  }

  // Shows the form and handles input until it is unloaded.
  void Run(Form& form);
  // Handles input until the form, which is shown, is unloaded.
  void HandleInput(Form& form);

  // Called inside a catch block when an exception escapes a form's event procedure: the current
  // exception is to be reported. Without one the program ends.
  std::function<void()> EscapedError;

  Peer& BackEnd() const { return *peer_; }

 private:
  System& system_;
  std::unique_ptr<Peer> peer_;
};

}  // namespace controls
