#include "controls/win32/FormPeer.h"

#include <wtsapi32.h>

#include <utility>

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/Fonts.h"
#include "controls/win32/FormPlace.h"
#include "controls/win32/Icons.h"
#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

// The form lays itself out for another resolution, by its anchors; the system's own way knows
// the template only. Systems that have no such way lack the function.
void KeepLayoutFromSystem(HWND window) {
  using Function = BOOL(WINAPI*)(HWND, int mask, int values);
  constexpr int kDisableAll = 1;  // DDC_DISABLE_ALL
  FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior");
  // By way of void*: the compiler warns of any direct cast between function types.
  auto set = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
  if (set) set(window, kDisableAll, kDisableAll);
}

}  // namespace

Form::Peer::Peer(Form& owned, Desktop& surroundings)
    : form(owned),
      desktop(surroundings),
      order(owned, [this] { focus.ShowDefaultButton(); }),
      focus(*this, order),
      keys(*this) {}

Form::Peer::~Peer() {
  if (life.window) Close();
  DropWindows();
}

void Form::Peer::Add(Control::Peer& control) {
  controls.push_back(&control);
  order.Add(control);
}

void Form::Peer::Remove(Control::Peer& control) {
  std::erase(controls, &control);
  order.Remove(control);
  life.layout.Clear();
}

void Form::Peer::Load(HWND below) {
  if (life.window) return;
  Create(below);
  RunEventProcedure(desktop, [this] { form.Form_Load(); });
}

void Form::Peer::Create(HWND below) {
  order.Restart();
  life.window = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(form.TemplateId()),
                                   below, FormProcedure, AsLParam(this));
  Require(life.window != nullptr, "a form's dialog template is missing or broken");
  desktop.BackEnd().forms.push_back(this);
  KeepLayoutFromSystem(life.window);
  WTSRegisterSessionNotification(life.window, NOTIFY_FOR_THIS_SESSION);
  life.dpi = life.templateDpi = GetDpiForWindow(life.window);
  life.templateFont = HandleIn<HFONT>(SendMessageW(life.window, WM_GETFONT, 0, 0));
  // The form paints what lies behind its frames, which are children like any other.
  const LONG_PTR style = GetWindowLongPtrW(life.window, GWL_STYLE);
  SetWindowLongPtrW(life.window, GWL_STYLE, style & ~WS_CLIPCHILDREN);
  AttachControls();
  life.layout.Capture(life.window, form.TemplateId(), controls);
  life.background.Capture(life.window);
}

void Form::Peer::AttachControls() {
  for (Control::Peer* control : controls) {
    HWND native = GetDlgItem(life.window, control->id);
    Require(native != nullptr, "a control is not in its form's dialog template");
    control->Attach(native);
  }
}

void Form::Peer::Show() {
  if (life.shown) return;
  const bool maximised = TakePlace();
  // A window that the screen has no room for has been made smaller than its template.
  life.layout.Apply(life.window);
  for (Control::Peer* control : controls) control->Showing();
  ShowWindow(life.window, maximised ? SW_SHOWMAXIMIZED : SW_SHOW);
  UpdateWindow(life.window);
  life.shown = true;
  life.memory.Shown(life.window);
  focus.Start();
}

// In the middle of its owner first: there it has the resolution in which its size is restored.
bool Form::Peer::TakePlace() const {
  if (life.ownerWindow) CentreOver(life.window, life.ownerWindow);
  const bool maximised = life.memory.Restore(life.window, desktop);
  FitOntoMonitor(life.window, life.resizable);
  if (life.ownerWindow) CentreOver(life.window, life.ownerWindow);
  return maximised;
}

void Form::Peer::StandOver(Peer& below) {
  if (!below.life.window) return;
  life.ownerWindow = below.life.window;
  if (GetWindow(life.window, GW_OWNER) != below.life.window) {
    SetWindowLongPtrW(life.window, GWLP_HWNDPARENT, AsLParam(below.life.window));
  }
  EnableWindow(below.life.window, FALSE);
}

void Form::Peer::Close() {
  const bool active = GetActiveWindow() == life.window;
  life.memory.Keep(life.window, desktop);
  life.shown = false;
  // The form below has to take input again before this one goes, or the system would make a window
  // of another program the active one.
  const HWND owner = life.ownerWindow;
  if (owner) EnableWindow(owner, TRUE);
  for (Control::Peer* control : controls) control->Detach();
  order.Restart();
  keys.Forget();
  tips.Forget();
  std::erase(desktop.BackEnd().forms, this);
  WTSUnRegisterSessionNotification(life.window);
  SetWindowLongPtrW(life.window, DWLP_USER, 0);
  if (owner && active) SetActiveWindow(owner);
  ShowWindow(life.window, SW_HIDE);
  // What has closed the form may be a message that was sent, which the loop that waits for the
  // form's end does not come back from GetMessage for.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
  closed_.push_back(std::exchange(life, {}));
  if (scopes_ == 0) DropWindows();
}

void Form::Peer::DropWindows() {
  // Moved out first: the end of a window sends messages.
  const std::vector<Life> dropped = std::exchange(closed_, {});
  for (const Life& over : dropped) DestroyWindow(over.window);
}

Form::Peer::MessageScope::~MessageScope() {
  if (--form_.scopes_ > 0) return;
  form_.RepaintChanged();
  // A dialog's answer is read off its window when its procedure is over.
  if (std::exchange(form_.answers_, false)) return;
  if (!form_.closed_.empty()) form_.DropWindows();
}

bool Form::Peer::TakesInput() const {
  const Desktop::Peer& surroundings = desktop.BackEnd();
  return life.shown && IsWindowEnabled(life.window) && !surroundings.inputHeld &&
         surroundings.inputHolds == 0;
}

void Form::Peer::ApplyStates() {
  if (!life.window) return;
  for (const Control::Peer* control : controls) {
    if (!control->ApplyState()) continue;
    const RECT place = PlaceIn(life.window, control->window);
    UnionRect(&life.changed, &life.changed, &place);
  }
  if (scopes_ == 0) RepaintChanged();
  focus.LeaveUnfit();
}

void Form::Peer::RepaintChanged() {
  const RECT area = std::exchange(life.changed, {});
  if (life.window && !IsRectEmpty(&area)) RepaintLater(&area);
}

// With all below it: what a frame lets be seen is painted by the form. A null area is all of it.
void Form::Peer::RepaintLater(const RECT* area) const {
  RedrawWindow(life.window, area, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void Form::Peer::LookChanged() {
  life.background.Forget();
}

void Form::Peer::SetFont(const Font& wanted) {
  if (!life.window) return;
  life.font = wanted;
  for (Control::Peer* control : controls) control->state.font.reset();
  ApplyFont();
}

// Gives the form and all that has no font of its own the font asked for, else the template's.
void Form::Peer::ApplyFont() {
  FontHandle handle = life.font ? MakeFont(*life.font, life.dpi)
                                : ScaleFont(life.templateFont, life.templateDpi, life.dpi);
  const auto shownFont = AsWParam(handle.Get());
  for (HWND child = GetWindow(life.window, GW_CHILD); child;
       child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SETFONT, shownFont, TRUE);
  }
  for (Control::Peer* control : controls) control->RenewFont();
  life.fontHandle = std::move(handle);
}

void Form::Peer::SetIcon(int iconResource) {
  if (!life.window) return;
  life.icon = iconResource;
  const auto load = [&](int metric) {
    return LoadIconOfSize(iconResource, GetSystemMetricsForDpi(metric, life.dpi));
  };
  IconHandle big = load(SM_CXICON);
  IconHandle small = load(SM_CXSMICON);
  SendMessageW(life.window, WM_SETICON, ICON_BIG, AsLParam(big.Get()));
  SendMessageW(life.window, WM_SETICON, ICON_SMALL, AsLParam(small.Get()));
  life.bigIcon = std::move(big);
  life.smallIcon = std::move(small);
}

void Form::Peer::SetResizable(bool wanted) {
  if (!life.window) return;
  life.resizable = wanted;
  RECT client = {};
  GetClientRect(life.window, &client);
  LONG_PTR style = GetWindowLongPtrW(life.window, GWL_STYLE);
  LONG_PTR extended = GetWindowLongPtrW(life.window, GWL_EXSTYLE);
  if (wanted) {
    style = (style & ~DS_MODALFRAME) | WS_THICKFRAME;
    extended &= ~static_cast<LONG_PTR>(WS_EX_DLGMODALFRAME);
  } else {
    style &= ~static_cast<LONG_PTR>(WS_THICKFRAME | WS_MAXIMIZEBOX);
  }
  SetWindowLongPtrW(life.window, GWL_STYLE, style);
  SetWindowLongPtrW(life.window, GWL_EXSTYLE, extended);
  // The other frame has another width: what it holds keeps its size.
  AdjustWindowRectExForDpi(&client, static_cast<DWORD>(style), FALSE, static_cast<DWORD>(extended),
                           life.dpi);
  SetWindowPos(life.window, nullptr, 0, 0, client.right - client.left, client.bottom - client.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace controls
