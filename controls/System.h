#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "controls/NodeId.h"
#include "controls/PopupMenu.h"

namespace controls {

class Form;
class TreeView;

// How a call of the help library ended.
enum class HelpOutcome {
  kShown,
  kLibraryMissing,
  kFunctionMissing,
  kFileMissing,
  kFileRefused,  // downloaded or on another machine, and no copy could be made
  kTopicMissing
};

// A kind of file that the user may choose among when he saves one.
struct FileKind {
  std::wstring name;
  std::wstring extension;  // without the dot
};

// What the controls need of the operating system beyond their own windows. The program has one over
// the system itself (win32/NativeSystem), the tests one that a script answers for. It outlives the
// desktop that it is given to.
class System {
 public:
  virtual ~System() = default;

  // Shows a modal message box over the owner, null for none, and gives the button pressed.
  virtual int MsgBox(const Form* owner, const std::wstring& prompt, int style,
                     const std::wstring& title) = 0;
  // Shows a menu for a node that is there, of a tree that is on view, and gives the command chosen,
  // 0 for none.
  virtual int PopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items) = 0;
  virtual HelpOutcome HtmlHelp(const Form& form, const std::wstring& file, int topic) = 0;
  // On behalf of the owner, null for none; false when another program keeps the clipboard occupied.
  virtual bool SetClipboardText(const Form* owner, const std::wstring& text) = 0;
  virtual void Beep() = 0;
  // Asks where to save a file: a full path, or nothing where the user has thought better of it. He
  // has been asked whether a file that is there is to be replaced. name is proposed, without an
  // extension; that of the kind chosen, the first one at first, is added to it.
  virtual std::optional<std::wstring> AskSaveFile(const Form& owner, const std::wstring& title,
                                                  const std::wstring& name,
                                                  const std::vector<FileKind>& kinds) = 0;
  // Whether the user has pressed Escape since this was last asked, for use in the middle of long
  // work. What he has typed meanwhile is dropped.
  virtual bool EscapePressed() = 0;
  // A text that this run or an earlier one has kept for this user under a name; empty when there is
  // none. What cannot be kept is lost: nothing depends on it.
  virtual std::wstring Setting(const std::wstring& name) const = 0;
  virtual void KeepSetting(const std::wstring& name, const std::wstring& text) = 0;
  // Tells why the user's session should not end as long as the form is as it is, or that it may.
  virtual void BlockSessionEnd(const Form& form, const std::wstring& reason) = 0;
  virtual void UnblockSessionEnd(const Form& form) = 0;
  // Handles the user's input, of whichever form, until this form is unloaded.
  virtual void HandleInput(Form& form) = 0;

  // A text of the program's string table; empty when the number has none.
  virtual std::wstring LoadResString(int id) const = 0;
  // The user's default locale identifier, 1036 for French.
  virtual int UserDefaultLcid() const = 0;
  // The folder of the executable, without a closing backslash.
  virtual std::wstring ProgramFolder() const = 0;
  // The whole command line, the program's own name left out.
  virtual std::wstring CommandLine() const = 0;
  // The folder for what programs keep of a user on this machine, without a closing backslash; empty
  // when there is none.
  virtual std::wstring LocalDataFolder() const = 0;
  // The value that an administrator has laid down for a product, for the machine or, where there is
  // none, for the user; a number in decimal. Nothing where there is neither.
  virtual std::optional<std::wstring> Policy(const std::wstring& product,
                                             const std::wstring& name) const = 0;
  // A date and a time of day, to the second, where the program runs and as its user writes them.
  virtual std::wstring LocalTime(std::chrono::system_clock::time_point time) const = 0;
  // Where the program runs, and as whom.
  virtual std::wstring ComputerName() const = 0;
  virtual std::wstring UserName() const = 0;

 protected:
  System() = default;
  System(const System&) = default;
  System& operator=(const System&) = default;
};

}  // namespace controls
