#pragma once

#include <vector>

#include "controls/win32/Handles.h"

namespace controls {

// What is seen of a form behind and between its controls. Frames and labels that lie on a tab strip
// get the strip's own surface behind them, also where a theme gives that a picture. Controls that
// paint all of their area are left out, so that resizing does not flicker.
class FormBackground {
 public:
  // Takes note of the form's controls. They stay the same as long as its window: to ask for them,
  // and for what each is, whenever something is painted costs more than the painting.
  void Capture(HWND form);
  // Paints the background into a context of the form; everywhere, where the context is one that the
  // system lends to show a control's own background.
  void Erase(HWND form, HDC context);
  // The brush behind a label or frame, and its origin set; null where the system's own is right.
  HBRUSH Behind(HWND control, HDC context);
  // The strips have changed their look.
  void Forget();

 private:
  struct Child {
    HWND window;
    bool isFrame;
    bool isStrip;
  };

  struct Strip {
    HWND window;
    BitmapHandle picture;
    BrushHandle brush;
    SIZE size;
  };

  Strip* Under(HWND control);
  void Picture(Strip& strip);
  void FillFrames(HWND form, HDC context);
  void Draw(Strip& strip, HWND form, HDC context);

  std::vector<Child> children_;
  std::vector<Strip> strips_;
  bool drawing_ = false;  // a strip is drawing its picture
};

}  // namespace controls
