#include "controls/win32/LeastSize.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "controls/win32/ControlPeer.h"
#include "controls/win32/MessageParams.h"
#include "controls/win32/WindowClass.h"

namespace controls {
namespace {

// A context to measure a window's text in.
class TextContext {
 public:
  explicit TextContext(HWND window) : window_(window), context_(GetDC(window)) {
    HFONT font = HandleIn<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    before_ = SelectObject(context_, font ? font : GetStockObject(SYSTEM_FONT));
  }
  ~TextContext() {
    SelectObject(context_, before_);
    ReleaseDC(window_, context_);
  }
  TextContext(const TextContext&) = delete;
  TextContext& operator=(const TextContext&) = delete;

  // The size of a text on one line, or broken into lines of this width.
  SIZE Measure(const std::wstring& text, int width = 0) const {
    RECT room = {0, 0, width, 0};
    DrawTextW(context_, text.c_str(), -1, &room, DT_CALCRECT | (width > 0 ? DT_WORDBREAK : 0));
    return {room.right, room.bottom};
  }
  int LineHeight() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context_, &metrics);
    return metrics.tmHeight;
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ before_;
};

std::wstring TextOf(HWND control) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return text;
}

AnchorLayout::Length AtLeast(int least, int designed) {
  return {std::min(designed, least), std::min(designed, least)};
}

// A list may become short before anything else comes closer together, but not as short as it gets.
AnchorLayout::Length AtLeastLines(int lines, int line, int designed) {
  return {std::min(designed, 2 * lines * line), std::min(designed, lines * line)};
}

// What the tabs take of their strip.
int TabsHeight(HWND strip) {
  RECT area = {};
  SendMessageW(strip, TCM_ADJUSTRECT, FALSE, AsLParam(&area));
  return static_cast<int>(area.top);
}

void SetLabel(AnchorLayout::Item& item, HWND label, int line) {
  const auto style = GetWindowLongPtrW(label, GWL_STYLE);
  const int width = item.place.Width();
  item.height = AtLeast(line, item.place.Height());
  if ((style & SS_ELLIPSISMASK) != 0) {
    item.width = AtLeast(12 * line, width);
  } else if (item.place.Height() < 3 * line / 2) {
    item.width = AtLeast(TextContext(label).Measure(TextOf(label)).cx + 1, width);
  } else {
    item.width = {std::min(width, 12 * line), std::min(width, 6 * line)};
    item.heightAt = [label](int room) {
      const TextContext context(label);
      return std::max<int>(context.Measure(TextOf(label), room).cy, 2 * context.LineHeight());
    };
  }
}

}  // namespace

int LineHeight(HWND window) {
  return TextContext(window).LineHeight();
}

AnchorLayout::Item ItemOf(HWND control, const Area& place, int line) {
  AnchorLayout::Item item;
  item.place = place;
  const int width = place.Width();
  const int height = place.Height();
  // Borders, and the ground around a text.
  const int border = line / 2;
  if (IsOfClass(control, WC_TABCONTROLW)) {
    item.holds = true;
    item.top = TabsHeight(control);
  } else if (IsFrame(control)) {
    item.holds = true;
    item.top = line + line / 8;
    item.width = AtLeast(TextContext(control).Measure(TextOf(control)).cx + line, width);
  } else if (IsOfClass(control, WC_BUTTONW)) {
    item.width = AtLeast(TextContext(control).Measure(TextOf(control)).cx + line, width);
    item.height = AtLeast(line + border, height);
  } else if (IsOfClass(control, WC_STATICW)) {
    SetLabel(item, control, line);
  } else if (IsOfClass(control, WC_EDITW)) {
    item.width = AtLeastLines(6, line, width);
    item.height = AtLeast(line + border, height);
  } else {
    item.width = AtLeastLines(6, line, width);
    item.height = AtLeastLines(3, line, height);
  }
  return item;
}

}  // namespace controls
