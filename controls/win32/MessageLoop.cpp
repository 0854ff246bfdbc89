#include <algorithm>
#include <ranges>

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

// More than a screen full of windows can ask to be painted; a window that never gets enough of it
// must not hold up the work that is being done.
constexpr int kMostPaints = 200;

}  // namespace

void Desktop::Peer::LoopWhileLoaded(Form& form) {
  while (form.IsLoaded()) {
    MSG message = {};
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got > 0) {
      Process(message);
      continue;
    }
    // Somebody has asked the whole program to end, which every loop has to learn.
    form.BackEnd().Close();
    PostQuitMessage(static_cast<int>(message.wParam));
  }
}

void Desktop::Peer::Process(MSG& message) {
  Form::Peer* form = FormOf(message.hwnd);
  if (form) form->tips.Preview(message);
  if (form && form->keys.Preview(message)) return;
  if (form && form->life.window && IsDialogMessageW(form->life.window, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void Desktop::Peer::RepaintChanged() const {
  for (Form::Peer* form : forms) form->RepaintChanged();
}

void Desktop::Peer::PaintOnly(HWND window) {
  const bool before = std::exchange(inputHeld, true);
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  // Looking into the queue is what tells the system that the program is alive.
  MSG message = {};
  for (int paints = 0; paints < kMostPaints; ++paints) {
    if (!PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE | PM_QS_PAINT)) break;
    DispatchMessageW(&message);
  }
  inputHeld = before;
}

Form::Peer* Desktop::Peer::FormOf(HWND window) const {
  HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
  const auto found =
      std::ranges::find(forms, root, [](Form::Peer* form) { return form->life.window; });
  return root && found != forms.end() ? *found : nullptr;
}

const Form* Desktop::Peer::ActiveForm() const {
  for (const Form::Peer* form : std::views::reverse(forms)) {
    if (form->life.shown && IsWindowEnabled(form->life.window)) return &form->form;
  }
  return nullptr;
}

void Desktop::Peer::ApplyPointer() const {
  SetCursor(LoadCursorW(nullptr, pointer == MousePointer::kWait ? IDC_WAIT : IDC_ARROW));
}

}  // namespace controls
