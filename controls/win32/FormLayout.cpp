#include "controls/win32/FormLayout.h"

#include "controls/win32/FormPlace.h"
#include "controls/win32/LeastSize.h"
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

void FormLayout::Capture(HWND form, int templateId, const std::vector<Control::Peer*>& controls) {
  places_.clear();
  base_ = TemplateSize(form, templateId);
  for (const Control::Peer* control : controls) {
    places_.push_back({control, PlaceIn(form, control->window)});
  }
}

void FormLayout::Rescale(unsigned fromDpi, unsigned toDpi) {
  Scale(base_.cx, fromDpi, toDpi);
  Scale(base_.cy, fromDpi, toDpi);
  for (Place& place : places_) {
    for (LONG* side : {&place.base.left, &place.base.top, &place.base.right, &place.base.bottom}) {
      Scale(*side, fromDpi, toDpi);
    }
  }
}

std::vector<AnchorLayout::Item> FormLayout::Items(int line) const {
  std::vector<AnchorLayout::Item> items;
  for (const Place& place : places_) {
    items.push_back(ItemOf(place.control->window, AreaIn(place.base), line));
    items.back().anchors = place.control->state.anchors;
  }
  return items;
}

void FormLayout::Apply(HWND form) const {
  if (places_.empty()) return;
  RECT client = {};
  GetClientRect(form, &client);
  const int line = LineHeight(form);
  const AnchorLayout layout(base_.cx, base_.cy, line / 5, Items(line));
  const std::vector<Area> areas = layout.Fit(client.right, client.bottom);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places_.size()));
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const Area& to = areas[i];
    if (!moves) break;
    // Nothing is copied: under a frame the form's background shows through, which would be copied
    // to a place where another belongs.
    moves = DeferWindowPos(moves, places_[i].control->window, nullptr, to.left, to.top, to.Width(),
                           to.Height(),
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER);
  }
  if (moves) EndDeferWindowPos(moves);
}

}  // namespace controls
