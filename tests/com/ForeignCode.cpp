#include "ForeignCode.h"

#include <windows.h>

#include <cstring>
#include <memory>

namespace com_test {
namespace {

// The same for both word sizes: clears the register that answers stand in, writes 1 to where it
// points, and returns.
constexpr unsigned char kCode[] = {0x31, 0xC0, 0xC7, 0x00, 0x01, 0x00, 0x00, 0x00, 0xC3};

struct PageFreer {
  void operator()(void* page) const { VirtualFree(page, 0, MEM_RELEASE); }
};

using Page = std::unique_ptr<void, PageFreer>;

Page MakeCode() {
  Page page(VirtualAlloc(nullptr, sizeof kCode, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
  std::memcpy(page.get(), kCode, sizeof kCode);
  DWORD before = 0;
  VirtualProtect(page.get(), sizeof kCode, PAGE_EXECUTE_READ, &before);
  FlushInstructionCache(GetCurrentProcess(), page.get(), sizeof kCode);
  return page;
}

}  // namespace

void FaultInForeignCode() {
  static const Page page = MakeCode();
  reinterpret_cast<void (*)()>(page.get())();
}

}  // namespace com_test
