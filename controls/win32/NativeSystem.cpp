#include "controls/win32/NativeSystem.h"

#include <optional>
#include <utility>

#include "controls/win32/Clipboard.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/TreeViewPeer.h"

namespace controls {
namespace {

// In characters, the closing zero included.
constexpr std::size_t kLongestSetting = 128;

HWND WindowOf(const Form* form) {
  return form ? form->BackEnd().life.window : nullptr;
}

MenuHandle MakeMenu(const std::vector<MenuItem>& items) {
  MenuHandle menu(CreatePopupMenu());
  for (const MenuItem& item : items) {
    const UINT kind = item.command == 0 ? MF_SEPARATOR : MF_STRING;
    const UINT state = item.enabled ? MF_ENABLED : MF_GRAYED;
    AppendMenuW(menu.Get(), kind | state, static_cast<UINT_PTR>(item.command),
                item.caption.c_str());
  }
  return menu;
}

}  // namespace

int NativeSystem::MsgBox(const Form* owner, const std::wstring& prompt, int style,
                         const std::wstring& title) {
  HWND window = WindowOf(owner);
  const UINT alone = window ? 0U : static_cast<UINT>(MB_TASKMODAL | MB_SETFOREGROUND);
  return MessageBoxW(window, prompt.c_str(), title.c_str(), static_cast<UINT>(style) | alone);
}

int NativeSystem::PopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items) {
  auto& peer = static_cast<TreeViewPeer&>(tree.BackEnd());
  const MenuHandle menu = MakeMenu(items);
  // The node itself is not to be covered.
  TPMPARAMS around = {sizeof around, peer.ScreenPlace(node)};
  const std::optional<POINT> mouse = std::exchange(peer.menuPlace, std::nullopt);
  const POINT place = mouse.value_or(POINT{around.rcExclude.left, around.rcExclude.bottom});
  TPMPARAMS* exclude = mouse ? nullptr : &around;
  const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
  return TrackPopupMenuEx(menu.Get(),
                          side | TPM_VERTICAL | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY,
                          place.x, place.y, WindowOf(&tree.Owner()), exclude);
}

HelpOutcome NativeSystem::HtmlHelp(const Form& form, const std::wstring& file, int topic) {
  return help_.Show(WindowOf(&form), ProgramFolder(), file, topic);
}

bool NativeSystem::SetClipboardText(const Form* owner, const std::wstring& text) {
  return PutOnClipboard(WindowOf(owner), text);
}

void NativeSystem::Beep() {
  MessageBeep(MB_OK);
}

std::wstring NativeSystem::Setting(const std::wstring& name) const {
  wchar_t text[kLongestSetting] = {};
  DWORD size = sizeof text;
  const bool found =
      !settingsKey_.empty() && RegGetValueW(HKEY_CURRENT_USER, settingsKey_.c_str(), name.c_str(),
                                            RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS;
  return found ? text : std::wstring();
}

void NativeSystem::KeepSetting(const std::wstring& name, const std::wstring& text) {
  if (settingsKey_.empty() || text.size() >= kLongestSetting) return;
  RegSetKeyValueW(HKEY_CURRENT_USER, settingsKey_.c_str(), name.c_str(), REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void NativeSystem::BlockSessionEnd(const Form& form, const std::wstring& reason) {
  ShutdownBlockReasonCreate(WindowOf(&form), reason.c_str());
}

void NativeSystem::UnblockSessionEnd(const Form& form) {
  ShutdownBlockReasonDestroy(WindowOf(&form));
}

void NativeSystem::HandleInput(Form& form) {
  form.OwnerDesktop().BackEnd().LoopWhileLoaded(form);
}

std::wstring NativeSystem::LoadResString(int id) const {
  // With a length of 0 the function gives a pointer into the resource, which has no closing zero.
  const wchar_t* text = nullptr;
  const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                 reinterpret_cast<LPWSTR>(&text), 0);
  return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

int NativeSystem::UserDefaultLcid() const {
  return static_cast<int>(GetUserDefaultLCID());
}

std::wstring NativeSystem::ProgramFolder() const {
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

std::wstring NativeSystem::CommandLine() const {
  std::wstring_view line = GetCommandLineW();
  // The program's name reaches to the closing quotation mark, or else to the first blank.
  const bool quoted = line.starts_with(L'"');
  const std::size_t end = line.find_first_of(quoted ? L"\"" : L" \t", 1);
  line.remove_prefix(end == line.npos ? line.size() : end + (quoted ? 1 : 0));
  const std::size_t start = line.find_first_not_of(L" \t");
  return std::wstring(start == line.npos ? std::wstring_view() : line.substr(start));
}

}  // namespace controls
