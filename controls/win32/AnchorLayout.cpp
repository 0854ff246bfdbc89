#include "controls/win32/AnchorLayout.h"

#include <algorithm>

#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

void Scale(LONG& length, unsigned fromDpi, unsigned toDpi) {
  length = MulDiv(length, static_cast<int>(toDpi), static_cast<int>(fromDpi));
}

// The beginning of an extended dialog template, as the resource compiler writes it.
#pragma pack(push, 2)
struct DialogTemplate {
  WORD version;
  WORD signature;
  DWORD helpId;
  DWORD extendedStyle;
  DWORD style;
  WORD controls;
  short x, y, width, height;  // in dialog units
};
#pragma pack(pop)

// The client area that the template asks for. The system makes no window larger than the screen
// that its user may resize.
SIZE TemplateSize(HWND form, int templateId) {
  HMODULE program = GetModuleHandleW(nullptr);
  HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(templateId), RT_DIALOG);
  const auto& design =
      *static_cast<const DialogTemplate*>(LockResource(LoadResource(program, found)));
  RECT client = {0, 0, design.width, design.height};
  MapDialogRect(form, &client);
  return {client.right, client.bottom};
}

}  // namespace

void AnchorLayout::Capture(HWND form, int templateId, const std::vector<Control::Peer*>& controls) {
  places_.clear();
  base_ = TemplateSize(form, templateId);
  for (const Control::Peer* control : controls) {
    places_.push_back({control, PlaceIn(form, control->window)});
  }
}

void AnchorLayout::Rescale(unsigned fromDpi, unsigned toDpi) {
  Scale(base_.cx, fromDpi, toDpi);
  Scale(base_.cy, fromDpi, toDpi);
  for (Place& place : places_) {
    for (LONG* side : {&place.base.left, &place.base.top, &place.base.right, &place.base.bottom}) {
      Scale(*side, fromDpi, toDpi);
    }
  }
}

RECT AnchorLayout::Moved(const Place& place, int dx, int dy) {
  const unsigned anchors = place.control->state.anchors;
  RECT moved = place.base;
  if (anchors & kAnchorRight) {
    moved.right += dx;
    if (!(anchors & kAnchorLeft)) moved.left += dx;
  }
  if (anchors & kAnchorRightMiddle) moved.right = place.base.right + dx / 2;
  if (anchors & kAnchorLeftMiddle) moved.left = place.base.left + dx / 2;
  if (anchors & kAnchorBottom) {
    moved.bottom += dy;
    if (!(anchors & kAnchorTop)) moved.top += dy;
  }
  return moved;
}

void AnchorLayout::Apply(HWND form) const {
  if (places_.empty()) return;
  RECT client = {};
  GetClientRect(form, &client);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places_.size()));
  for (const Place& place : places_) {
    const RECT to = Moved(place, client.right - base_.cx, client.bottom - base_.cy);
    if (!moves) break;
    // Nothing is copied: under a frame the form's background shows through, which would be copied
    // to a place where another belongs.
    moves = DeferWindowPos(moves, place.control->window, nullptr, to.left, to.top,
                           std::max(0L, to.right - to.left), std::max(0L, to.bottom - to.top),
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER);
  }
  if (moves) EndDeferWindowPos(moves);
}

}  // namespace controls
