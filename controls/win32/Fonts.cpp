#include "controls/win32/Fonts.h"

namespace controls {
namespace {

constexpr int kPointsPerInch = 72;

}  // namespace

FontHandle MakeFont(const Font& font, unsigned dpi) {
  LOGFONTW wanted = {};
  // Negative: the height of the letters, not of the line.
  wanted.lfHeight = -MulDiv(font.size, static_cast<int>(dpi), kPointsPerInch);
  wanted.lfWeight = FW_NORMAL;
  wanted.lfCharSet = static_cast<BYTE>(font.charset);
  font.face.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  return FontHandle(CreateFontIndirectW(&wanted));
}

FontHandle ScaleFont(HFONT font, unsigned fromDpi, unsigned toDpi) {
  LOGFONTW wanted = {};
  if (!GetObjectW(font, sizeof wanted, &wanted)) return FontHandle();
  wanted.lfHeight = MulDiv(wanted.lfHeight, static_cast<int>(toDpi), static_cast<int>(fromDpi));
  wanted.lfWidth = 0;
  return FontHandle(CreateFontIndirectW(&wanted));
}

}  // namespace controls
