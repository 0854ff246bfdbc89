// How a tree view is painted: no more of it than has changed, and in one go.

#include "controls/win32/TreeViewPeer.h"
#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

// What WM_NCPAINT takes for a region that is all of the frame.
constexpr WPARAM kWholeFrame = 1;

}  // namespace

// Into memory first and from there to the window at once. Where windows are emulated each of the
// many pictures and lines of a tree costs much when it goes straight to a window.
void TreeViewPeer::Paint() const {
  PAINTSTRUCT paint = {};
  HDC target = BeginPaint(window, &paint);
  if (!target) return;
  RECT client = {};
  GetClientRect(window, &client);
  BITMAPINFO info = {};
  info.bmiHeader = {
      sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const MemoryContext memory(CreateCompatibleDC(target));
  const BitmapHandle picture(CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (memory && picture) {
    HGDIOBJ old = SelectObject(memory.Get(), picture.Get());
    const RECT& area = paint.rcPaint;
    IntersectClipRect(memory.Get(), area.left, area.top, area.right, area.bottom);
    const auto context = AsWParam(memory.Get());
    Native({WM_ERASEBKGND, context, 0});
    Native({WM_PRINTCLIENT, context, PRF_CLIENT});
    BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top,
           memory.Get(), area.left, area.top, SRCCOPY);
    SelectObject(memory.Get(), old);
  }
  EndPaint(window, &paint);
}

// Whether a part of the window that is to be painted reaches out of its client area. Some systems
// ask for the frame, with its scroll bars, also where it does not.
bool TreeViewPeer::IsFrameConcerned(WPARAM part) const {
  if (part == kWholeFrame) return true;
  RECT client = {};
  RECT changed = {};
  GetClientRect(window, &client);
  client = Mapped(window, nullptr, client);
  if (GetRgnBox(HandleIn<HRGN>(part), &changed) == ERROR) return true;
  UnionRect(&changed, &changed, &client);
  return EqualRect(&changed, &client) == FALSE;
}

}  // namespace controls
