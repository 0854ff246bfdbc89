#include "controls/Desktop.h"

#include "controls/Form.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {

Desktop::Desktop(System& system) : system_(system), peer_(std::make_unique<Peer>()) {
  INITCOMMONCONTROLSEX classes = {sizeof classes,
                                  ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
}

Desktop::~Desktop() = default;

int Desktop::MsgBox(const std::wstring& prompt, int style, const std::wstring& title) {
  peer_->RepaintChanged();
  return system_.MsgBox(peer_->ActiveForm(), prompt, style, title);
}

bool Desktop::SetClipboardText(const std::wstring& text) {
  return system_.SetClipboardText(peer_->ActiveForm(), text);
}

void Desktop::SetMousePointer(MousePointer pointer) {
  if (peer_->pointer == pointer) return;
  peer_->pointer = pointer;
  if (pointer == MousePointer::kWait) return peer_->ApplyPointer();
  // What is under the mouse shows its own pointer again.
  POINT place = {};
  GetCursorPos(&place);
  HWND under = WindowFromPoint(place);
  if (peer_->FormOf(under)) {
    SendMessageW(under, WM_SETCURSOR, AsWParam(under), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  }
}

MousePointer Desktop::Pointer() const {
  return peer_->pointer;
}

void Desktop::Run(Form& form) {
  form.Show();
  if (form.IsLoaded()) HandleInput(form);
}

void Desktop::HandleInput(Form& form) {
  peer_->RepaintChanged();
  system_.HandleInput(form);
}

}  // namespace controls
