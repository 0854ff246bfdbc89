#pragma once

#include <windows.h>

// Where things stand, in one window's measure or another's.
namespace controls {

// A rectangle of a window's client area as one of another's; a null window is the screen.
inline RECT Mapped(HWND from, HWND to, RECT place) {
  MapWindowPoints(from, to, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// Where a window stands in the client area of its form.
inline RECT PlaceIn(HWND form, HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  return Mapped(nullptr, form, place);
}

}  // namespace controls
