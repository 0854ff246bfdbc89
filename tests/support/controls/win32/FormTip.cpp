#include "tests/support/controls/win32/FormTip.h"

namespace test_support {
namespace {

// The most that a tip is asked for.
constexpr std::size_t kMostTipText = 2000;

// A tool of the form itself, without a text of it; the tips of trees have others.
TTTOOLINFOW ToolOf(HWND form, wchar_t* text) {
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = form;
  tool.lpszText = text;
  return tool;
}

}  // namespace

FormTip::FormTip(HWND form) : form_(form) {
  HWND window = nullptr;
  while (!tooltip_ && (window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr))) {
    wchar_t text[kMostTipText] = {};
    TTTOOLINFOW tool = ToolOf(form, text);
    const bool ours = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
    if (ours && SendMessageW(window, TTM_GETTOOLINFOW, 0, controls::AsLParam(&tool))) {
      tooltip_ = window;
    }
  }
}

std::wstring FormTip::TextAt(POINT place) const {
  if (!tooltip_) return {};
  wchar_t text[kMostTipText] = {};
  TTTOOLINFOW tool = ToolOf(form_, text);
  SendMessageW(tooltip_, TTM_GETTOOLINFOW, 0, controls::AsLParam(&tool));
  if (!PtInRect(&tool.rect, place)) return {};
  tool.lpszText = text;
  SendMessageW(tooltip_, TTM_GETTEXTW, kMostTipText, controls::AsLParam(&tool));
  return text;
}

}  // namespace test_support
