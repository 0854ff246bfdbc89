#include "controls/win32/FormBackground.h"

#include "controls/win32/WindowClass.h"
#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

bool IsShown(HWND window) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

HBRUSH PlainBrush() {
  return GetSysColorBrush(COLOR_3DFACE);
}

void Exclude(HDC context, const RECT& place) {
  ExcludeClipRect(context, place.left, place.top, place.right, place.bottom);
}

}  // namespace

void FormBackground::Capture(HWND form) {
  children_.clear();
  strips_.clear();
  for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    const bool isStrip = IsOfClass(child, WC_TABCONTROLW);
    children_.push_back({child, IsFrame(child), isStrip});
    if (isStrip) strips_.push_back({child, {}, {}, {}});
  }
}

void FormBackground::Forget() {
  for (Strip& strip : strips_) {
    strip.brush.Reset();
  }
}

void FormBackground::Erase(HWND form, HDC context) {
  RECT client = {};
  GetClientRect(form, &client);
  if (drawing_ || WindowFromDC(context) != form) {
    FillRect(context, &client, PlainBrush());
    for (Strip& strip : strips_) {
      if (IsShown(strip.window)) Draw(strip, form, context);
    }
    return;
  }
  SaveDC(context);
  for (const Child& child : children_) {
    if (IsShown(child.window)) Exclude(context, PlaceIn(form, child.window));
  }
  FillRect(context, &client, PlainBrush());
  RestoreDC(context, -1);
  FillFrames(form, context);
}

// A frame lets its form be seen, or the strip that it lies on.
void FormBackground::FillFrames(HWND form, HDC context) {
  SaveDC(context);
  for (const Child& child : children_) {
    if (child.isFrame || child.isStrip || !IsShown(child.window)) continue;
    Exclude(context, PlaceIn(form, child.window));
  }
  for (const Child& child : children_) {
    if (!child.isFrame || !IsShown(child.window)) continue;
    const RECT place = PlaceIn(form, child.window);
    SaveDC(context);
    IntersectClipRect(context, place.left, place.top, place.right, place.bottom);
    // In a window that is too small a frame may reach out of its strip.
    FillRect(context, &place, PlainBrush());
    if (Strip* strip = Under(child.window)) Draw(*strip, form, context);
    RestoreDC(context, -1);
  }
  RestoreDC(context, -1);
}

void FormBackground::Draw(Strip& strip, HWND form, HDC context) {
  // The strip asks for what lies behind its tabs, which is the form alone.
  if (drawing_) return;
  Picture(strip);
  const MemoryContext source(CreateCompatibleDC(context));
  if (!source || !strip.picture) return;
  HGDIOBJ old = SelectObject(source.Get(), strip.picture.Get());
  const RECT place = PlaceIn(form, strip.window);
  BitBlt(context, place.left, place.top, place.right - place.left, place.bottom - place.top,
         source.Get(), 0, 0, SRCCOPY);
  SelectObject(source.Get(), old);
}

HBRUSH FormBackground::Behind(HWND control, HDC context) {
  // A text box that is disabled asks as well; its own surface is right.
  Strip* strip = IsOfClass(control, WC_EDITW) ? nullptr : Under(control);
  if (!strip) return nullptr;
  Picture(*strip);
  if (!strip->brush) return nullptr;
  const RECT origin = PlaceIn(control, strip->window);
  SetBrushOrgEx(context, origin.left, origin.top, nullptr);
  SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
  SetBkMode(context, TRANSPARENT);
  return strip->brush.Get();
}

FormBackground::Strip* FormBackground::Under(HWND control) {
  RECT place = {};
  GetWindowRect(control, &place);
  const POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  for (Strip& strip : strips_) {
    RECT area = {};
    GetWindowRect(strip.window, &area);
    if (IsShown(strip.window) && PtInRect(&area, middle)) return &strip;
  }
  return nullptr;
}

// Lets the strip draw itself once into a bitmap of its size, which then serves as the brush. While
// its form is hidden a strip draws nothing.
void FormBackground::Picture(Strip& strip) {
  if (drawing_ || !IsWindowVisible(strip.window)) return;
  RECT area = {};
  GetClientRect(strip.window, &area);
  if (strip.brush && strip.size.cx == area.right && strip.size.cy == area.bottom) return;
  strip.size = {area.right, area.bottom};
  HDC screen = GetDC(strip.window);
  const MemoryContext context(CreateCompatibleDC(screen));
  strip.picture.Reset(CreateCompatibleBitmap(screen, area.right, area.bottom));
  ReleaseDC(strip.window, screen);
  if (!context || !strip.picture) return;
  HGDIOBJ old = SelectObject(context.Get(), strip.picture.Get());
  FillRect(context.Get(), &area, PlainBrush());
  drawing_ = true;
  SendMessageW(strip.window, WM_PRINTCLIENT, AsWParam(context.Get()), PRF_CLIENT | PRF_ERASEBKGND);
  drawing_ = false;
  SelectObject(context.Get(), old);
  strip.brush.Reset(CreatePatternBrush(strip.picture.Get()));
}

}  // namespace controls
