#pragma once

namespace controls {

// A part of the screen, in pixels. Its right and bottom lie just outside it.
struct Area {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  friend bool operator==(const Area&, const Area&) = default;
};

// A length in another resolution, in dots to the inch; rounded to the nearest.
int Scaled(int length, unsigned fromDpi, unsigned toDpi);

// A window's area moved into a monitor's work area. One that is larger begins at the upper left
// corner, where its caption is.
Area MovedInto(const Area& window, const Area& work);

// The same, made smaller where it is larger than the work area.
Area FittedInto(const Area& window, const Area& work);

// A window's area moved into the middle of another one, as far as the work area lets it.
Area CentredOver(const Area& window, const Area& over, const Area& work);

}  // namespace controls
