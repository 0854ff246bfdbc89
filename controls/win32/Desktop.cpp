#include "controls/Desktop.h"

#include "controls/Form.h"
#include "controls/win32/Clipboard.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {

Desktop::Desktop() : peer_(std::make_unique<Peer>()) {
  INITCOMMONCONTROLSEX classes = {sizeof classes,
                                  ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
}

Desktop::~Desktop() = default;

int Desktop::MsgBox(const std::wstring& prompt, int style, const std::wstring& title) {
  peer_->RepaintChanged();
  if (Instead.MsgBox) return Instead.MsgBox(prompt, style, title);
  HWND owner = peer_->ActiveWindow();
  const UINT alone = owner ? 0U : static_cast<UINT>(MB_TASKMODAL | MB_SETFOREGROUND);
  return MessageBoxW(owner, prompt.c_str(), title.c_str(), static_cast<UINT>(style) | alone);
}

void Desktop::Beep() {
  if (Instead.Beep) return Instead.Beep();
  MessageBeep(MB_OK);
}

bool Desktop::SetClipboardText(const std::wstring& text) {
  if (Instead.SetClipboardText) return Instead.SetClipboardText(text);
  return PutOnClipboard(peer_->ActiveWindow(), text);
}

void Desktop::SetMousePointer(MousePointer pointer) {
  if (peer_->pointer == pointer) return;
  peer_->pointer = pointer;
  if (pointer == MousePointer::kWait) return peer_->ShowPointer();
  // What is under the mouse shows its own pointer again.
  POINT place = {};
  GetCursorPos(&place);
  HWND under = WindowFromPoint(place);
  if (peer_->FormOf(under)) {
    SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  }
}

MousePointer Desktop::Pointer() const {
  return peer_->pointer;
}

std::wstring Desktop::LoadResString(int id) const {
  // With a length of 0 the function gives a pointer into the resource, which has no closing zero.
  const wchar_t* text = nullptr;
  const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                 reinterpret_cast<LPWSTR>(&text), 0);
  return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

int Desktop::UserDefaultLcid() const {
  if (Instead.UserDefaultLcid) return Instead.UserDefaultLcid();
  return static_cast<int>(GetUserDefaultLCID());
}

std::wstring Desktop::ProgramFolder() const {
  if (Instead.ProgramFolder) return Instead.ProgramFolder();
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  return path.substr(0, path.rfind(L'\\'));
}

std::wstring Desktop::CommandLine() const {
  if (Instead.CommandLine) return Instead.CommandLine();
  std::wstring_view line = GetCommandLineW();
  // The program's name reaches to the closing quotation mark, or else to the first blank.
  const bool quoted = line.starts_with(L'"');
  const std::size_t end = line.find_first_of(quoted ? L"\"" : L" \t", 1);
  line.remove_prefix(end == line.npos ? line.size() : end + (quoted ? 1 : 0));
  const std::size_t start = line.find_first_not_of(L" \t");
  return std::wstring(start == line.npos ? std::wstring_view() : line.substr(start));
}

HelpOutcome Desktop::HtmlHelp(const Form& form, const std::wstring& file, int topic) {
  if (Instead.HtmlHelp) return Instead.HtmlHelp(form, file, topic);
  return peer_->help.Show(form.BackEnd().window, ProgramFolder(), file, topic);
}

void Desktop::Run(Form& form) {
  form.Show();
  if (form.IsLoaded()) peer_->LoopWhileLoaded(*this, form);
}

}  // namespace controls
