#include "tests/program/driver/Mouse.h"

#include <initializer_list>
#include <vector>

#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

INPUT Stroke(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  return input;
}

void SendAll(std::initializer_list<DWORD> flags) {
  std::vector<INPUT> strokes;
  for (const DWORD flag : flags) strokes.push_back(Stroke(flag));
  const auto count = static_cast<UINT>(strokes.size());
  if (SendInput(count, strokes.data(), sizeof(INPUT)) != count) {
    throw Failure("the mouse is not taken");
  }
}

}  // namespace

void Click(const Window& control, POINT place) {
  const LPARAM where = MAKELPARAM(place.x, place.y);
  control.Post(WM_LBUTTONDOWN, MK_LBUTTON, where);
  control.Post(WM_LBUTTONUP, 0, where);
}

void DoubleClick(const Window& control, POINT place) {
  const LPARAM where = MAKELPARAM(place.x, place.y);
  Click(control, place);
  control.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, where);
  control.Post(WM_LBUTTONUP, 0, where);
}

// What covers a control within its own window is for that to sort out: a frame lets the mouse pass.
void PointAt(const Window& control, POINT place) {
  const HWND root = GetAncestor(control.Handle(), GA_ROOT);
  BringToFront(Window(root));
  ClientToScreen(control.Handle(), &place);
  Await("the window to lie under the mouse",
        [&] { return GetAncestor(WindowFromPoint(place), GA_ROOT) == root; });
  SetCursorPos(place.x, place.y);
}

void ClickAt(const Window& control, POINT place) {
  PointAt(control, place);
  SendAll({MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
}

void RightClickAt(const Window& control, POINT place) {
  PointAt(control, place);
  SendAll({MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP});
}

void DoubleClickAt(const Window& control, POINT place) {
  PointAt(control, place);
  SendAll({MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
}

void ClickOn(const Window& button) {
  if (!button.IsVisible() || !button.IsEnabled()) {
    throw Failure("button " + std::to_string(button.Id()) + " cannot be clicked on");
  }
  RECT client{};
  GetClientRect(button.Handle(), &client);
  ClickAt(button, Middle(client));
}

POINT Middle(const RECT& rectangle) {
  return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
}

}  // namespace driver
