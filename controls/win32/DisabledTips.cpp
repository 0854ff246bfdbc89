#include "controls/win32/DisabledTips.h"

#include <windowsx.h>

#include <utility>

#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

constexpr int kWidth = 320;  // at the system's default resolution
constexpr LPARAM kShownMilliseconds = 30000;

bool IsMouse(UINT number) {
  return number >= WM_MOUSEFIRST && number <= WM_MBUTTONUP;
}

// Where the mouse was, on the screen. In a form nothing is laid out from right to left.
POINT PlaceOf(const MSG& message) {
  POINT place = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  ClientToScreen(message.hwnd, &place);
  return place;
}

}  // namespace

void DisabledTips::Preview(const MSG& message) {
  if (!IsMouse(message.message)) return;
  const POINT place = PlaceOf(message);
  if (message.message == WM_MOUSEMOVE) Hover(ControlAt(place));
  if (!tooltip_) return;
  POINT inForm = place;
  ScreenToClient(form_.life.window, &inForm);
  MSG relayed = message;
  relayed.hwnd = form_.life.window;
  relayed.lParam = MAKELPARAM(inForm.x, inForm.y);
  SendMessageW(tooltip_.Get(), TTM_RELAYEVENT, 0, AsLParam(&relayed));
}

void DisabledTips::Changed() {
  if (hovered_ && (hovered_->state.IsEnabled() || hovered_->state.whyDisabled != shown_)) {
    Hover(nullptr);
  }
}

void DisabledTips::Forget() {
  hovered_ = nullptr;
  tooltip_.Reset();
}

const Control::Peer* DisabledTips::ControlAt(POINT place) const {
  for (const Control::Peer* control : form_.controls) {
    const ControlState& state = control->state;
    if (state.whyDisabled.empty() || state.IsEnabled() || !control->window) continue;
    RECT bounds = {};
    GetWindowRect(control->window, &bounds);
    if (PtInRect(&bounds, place) && IsWindowVisible(control->window)) return control;
  }
  return nullptr;
}

void DisabledTips::Hover(const Control::Peer* control) {
  if (control == hovered_ || !MakeTooltip()) return;
  hovered_ = control;
  SendMessageW(tooltip_.Get(), TTM_POP, 0, 0);
  RECT place = {};
  shown_ = control ? control->state.whyDisabled : std::wstring();
  if (control) {
    GetWindowRect(control->window, &place);
    MapWindowPoints(nullptr, form_.life.window, reinterpret_cast<POINT*>(&place), 2);
  }
  SetTool(TTM_NEWTOOLRECTW, place, {});
  SetTool(TTM_UPDATETIPTEXTW, place, shown_);
  const int dpi = static_cast<int>(form_.life.dpi);
  SendMessageW(tooltip_.Get(), TTM_SETMAXTIPWIDTH, 0, MulDiv(kWidth, dpi, USER_DEFAULT_SCREEN_DPI));
}

// Not before there is something to say: most forms never have.
bool DisabledTips::MakeTooltip() {
  if (tooltip_ || !form_.life.window) return static_cast<bool>(tooltip_);
  tooltip_.Reset(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                                 CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                 form_.life.window, nullptr, GetModuleHandleW(nullptr), nullptr));
  if (!tooltip_) return false;
  SetWindowSubclass(tooltip_.Get(), TooltipProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
  SendMessageW(tooltip_.Get(), TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownMilliseconds);
  SetTool(TTM_ADDTOOLW, {}, {});
  return true;
}

void DisabledTips::SetTool(UINT message, const RECT& place, std::wstring text) const {
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = form_.life.window;
  tool.rect = place;
  tool.lpszText = text.data();
  SendMessageW(tooltip_.Get(), message, 0, AsLParam(&tool));
}

// Before it appears, and while it is there, the tip asks what lies under the mouse. That is not the
// disabled button but what stands around it.
LRESULT CALLBACK DisabledTips::TooltipProcedure(HWND window, UINT number, WPARAM wParam,
                                                LPARAM lParam, UINT_PTR /*id*/, DWORD_PTR tips) {
  if (number == TTM_WINDOWFROMPOINT) {
    const auto& own = *reinterpret_cast<const DisabledTips*>(tips);
    const auto& place = StructIn<const POINT>(lParam);
    const Control::Peer* control = own.ControlAt(place);
    HWND below = WindowFromPoint(place);
    if (control && GetAncestor(below, GA_ROOT) == own.form_.life.window) {
      return AsLParam(own.form_.life.window);
    }
  }
  return DefSubclassProc(window, number, wParam, lParam);
}

}  // namespace controls
