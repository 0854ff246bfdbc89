// The system's question where to save a file.

#include <shlobj.h>

#include <filesystem>

#include "controls/win32/FormPeer.h"
#include "controls/win32/NativeSystem.h"

namespace controls {
namespace {

template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ~ComPointer() {
    if (pointer_ != nullptr) pointer_->Release();
  }
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;

  Interface** Out() { return &pointer_; }
  Interface* operator->() const { return pointer_; }

 private:
  Interface* pointer_ = nullptr;
};

std::wstring PathOf(IShellItem& item) {
  PWSTR text = nullptr;
  std::wstring path;
  if (SUCCEEDED(item.GetDisplayName(SIGDN_FILESYSPATH, &text))) path = text;
  CoTaskMemFree(text);
  return path;
}

void SetKinds(IFileSaveDialog& dialog, const std::vector<FileKind>& kinds) {
  std::vector<std::wstring> patterns;
  for (const FileKind& kind : kinds) patterns.push_back(L"*." + kind.extension);
  std::vector<COMDLG_FILTERSPEC> types;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    types.push_back({kinds[i].name.c_str(), patterns[i].c_str()});
  }
  dialog.SetFileTypes(static_cast<UINT>(types.size()), types.data());
  // With an extension of its own the dialog puts that of the kind chosen in its place.
  if (!kinds.empty()) dialog.SetDefaultExtension(kinds.front().extension.c_str());
}

// Where the user has chosen a kind and the dialog has put no extension.
std::wstring WithExtension(std::wstring path, IFileSaveDialog& dialog,
                           const std::vector<FileKind>& kinds) {
  UINT kind = 0;
  if (!std::filesystem::path(path).extension().empty() || FAILED(dialog.GetFileTypeIndex(&kind)) ||
      kind < 1 || kind > kinds.size()) {
    return path;
  }
  return path + L"." + kinds[kind - 1].extension;
}

}  // namespace

std::optional<std::wstring> NativeSystem::AskSaveFile(const Form& owner, const std::wstring& title,
                                                      const std::wstring& name,
                                                      const std::vector<FileKind>& kinds) {
  ComPointer<IFileSaveDialog> dialog;
  if (FAILED(CoCreateInstance(CLSID_FileSaveDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IFileSaveDialog, reinterpret_cast<void**>(dialog.Out())))) {
    return std::nullopt;
  }
  SetKinds(*dialog.operator->(), kinds);
  dialog->SetTitle(title.c_str());
  dialog->SetFileName((kinds.empty() ? name : name + L"." + kinds.front().extension).c_str());
  dialog->SetOptions(FOS_OVERWRITEPROMPT | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST |
                     FOS_NOREADONLYRETURN | FOS_NOCHANGEDIR);
  ComPointer<IShellItem> chosen;
  if (FAILED(dialog->Show(owner.BackEnd().life.window)) ||
      FAILED(dialog->GetResult(chosen.Out()))) {
    return std::nullopt;
  }
  const std::wstring path = PathOf(*chosen.operator->());
  if (path.empty()) return std::nullopt;
  return WithExtension(path, *dialog.operator->(), kinds);
}

// What is typed while a form works would come to it afterwards, Escape included.
bool NativeSystem::EscapePressed() {
  bool pressed = false;
  MSG message = {};
  while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
    pressed |= message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
  }
  return pressed;
}

}  // namespace controls
