#include "tests/program/driver/TabStrip.h"

#include <commctrl.h>

#include "tests/program/driver/Mouse.h"

namespace driver {
namespace {

constexpr int kLongestCaption = 512;
constexpr std::size_t kCaptionAt = 256;

}  // namespace

TabStrip::TabStrip(const Window& window)
    : window_(window),
      memory_(window.ProcessId(), kCaptionAt + kLongestCaption * sizeof(wchar_t)) {}

std::vector<std::wstring> TabStrip::Captions() {
  std::vector<std::wstring> captions;
  const LRESULT count = window_.Send(TCM_GETITEMCOUNT);
  for (LRESULT tab = 0; tab < count; ++tab) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = static_cast<wchar_t*>(memory_.At(kCaptionAt));
    item.cchTextMax = kLongestCaption;
    memory_.Write(0, &item, sizeof item);
    window_.Send(TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(memory_.At(0)));
    captions.push_back(memory_.ReadText(kCaptionAt, kLongestCaption));
  }
  return captions;
}

int TabStrip::Selected() const {
  return static_cast<int>(window_.Send(TCM_GETCURSEL));
}

POINT TabStrip::Place(int tab) {
  RECT place{};
  window_.Send(TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(memory_.At(0)));
  memory_.Read(0, &place, sizeof place);
  return Middle(place);
}

// The focus message tells the parent of the change; setting the selection would not.
void TabStrip::Select(int tab) {
  window_.Send(TCM_SETCURFOCUS, static_cast<WPARAM>(tab));
}

}  // namespace driver
