// How a tree view is painted: no more of it than has changed, and in one go.

#include "controls/win32/TreeViewPeer.h"
#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

// What WM_NCPAINT takes for a region that is all of the frame.
constexpr WPARAM kWholeFrame = 1;

}  // namespace

// Into memory first and from there to the window at once. Where windows are emulated each of the
// many pictures and lines of a tree costs much when it goes straight to a window. On its way to
// another machine it is those that cost little, and a picture much.
void TreeViewPeer::Paint() const {
  if (!Buffers()) {
    Native({WM_PAINT, 0, 0});
    return;
  }
  PAINTSTRUCT paint = {};
  HDC target = BeginPaint(window, &paint);
  if (!target) return;
  PaintBuffered(target, paint.rcPaint);
  EndPaint(window, &paint);
}

void TreeViewPeer::PaintBuffered(HDC target, const RECT& area) const {
  HDC context = nullptr;
  const BufferedPaint buffer(
      BeginBufferedPaint(target, &area, BPBF_COMPATIBLEBITMAP, nullptr, &context));
  // Without memory for it the window itself is painted.
  const WPARAM painted = AsWParam(buffer ? context : target);
  Native({WM_ERASEBKGND, painted, 0});
  Native({WM_PRINTCLIENT, painted, PRF_CLIENT});
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
