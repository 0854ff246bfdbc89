#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/PopupMenu.h"

namespace controls {

class Form;

// What HtmlHelp can fail on.
enum class HelpOutcome { kShown, kLibraryMissing, kFunctionMissing, kFileMissing, kTopicMissing };

// What a test puts in the place of the system around a desktop. Where a member is empty the system
// itself answers. In memory, where there is no system, an empty member means that nobody is there:
// a message box gives its refusing answer, a modal form is unloaded at once, nothing is chosen from
// a menu, the clipboard takes nothing, the texts are empty.
struct StandIns {
  std::function<int(const std::wstring& prompt, int style, const std::wstring& title)> MsgBox;
  // A form has been shown, modally or by Desktop::Run, and its owner disabled; it has not handled
  // input yet. Returning lets it do so until it is unloaded.
  std::function<void(Form& form)> ModalShown;
  std::function<int(const std::vector<MenuItem>& items)> PopupMenu;
  std::function<void()> Beep;
  std::function<bool(const std::wstring& text)> SetClipboardText;
  std::function<int()> UserDefaultLcid;
  std::function<std::wstring()> ProgramFolder;
  std::function<std::wstring()> CommandLine;
  std::function<HelpOutcome(const Form& form, const std::wstring& file, int topic)> HtmlHelp;
};

}  // namespace controls
