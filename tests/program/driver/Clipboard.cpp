#include "tests/program/driver/Clipboard.h"

#include <windows.h>

#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

// The clipboard, which one process has at a time.
class OpenedClipboard {
 public:
  OpenedClipboard() {
    Await("the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
  }
  ~OpenedClipboard() { CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

}  // namespace

std::wstring ClipboardText() {
  const OpenedClipboard opened;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  const auto* const text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
  if (text == nullptr) return {};
  std::wstring copy(text);
  GlobalUnlock(memory);
  return copy;
}

void ClearClipboard() {
  const OpenedClipboard opened;
  EmptyClipboard();
}

}  // namespace driver
