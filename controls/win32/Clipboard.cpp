#include "controls/win32/Clipboard.h"

#include <cstring>

namespace controls {
namespace {

// Programs that watch the clipboard hold it for a few milliseconds after each change.
constexpr int kTries = 8;
constexpr DWORD kMillisecondsBetween = 20;

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int tries = 1; !(open_ = OpenClipboard(owner)) && tries < kTries; ++tries) {
      Sleep(kMillisecondsBetween);
    }
  }
  ~OpenedClipboard() {
    if (open_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return open_; }

 private:
  bool open_ = false;
};

// A block of the kind that the clipboard takes over.
HGLOBAL CopyOf(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (!block) return nullptr;
  std::memcpy(GlobalLock(block), text.c_str(), bytes);
  GlobalUnlock(block);
  return block;
}

}  // namespace

bool PutOnClipboard(HWND owner, const std::wstring& text) {
  const OpenedClipboard clipboard(owner);
  if (!clipboard) return false;
  HGLOBAL block = CopyOf(text);
  if (!block) return false;
  if (EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, block)) return true;
  GlobalFree(block);
  return false;
}

}  // namespace controls
