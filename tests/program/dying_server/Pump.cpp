#include "tests/program/dying_server/Pump.h"

#include <windows.h>

#include <fstream>

#include "tests/program/dying_server/Signs.h"

namespace dying_server {
namespace {

constexpr const wchar_t* kAsked = L"pump";
constexpr const wchar_t* kPumping = L"pumping";
// How often the sign is looked at while no message comes.
constexpr DWORD kPause = 10;

void HandleMessages() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

// What has been posted before the sign went is in the queue by then.
void PumpIfAsked() {
  if (!HasSign(kAsked) || HasSign(kPumping)) return;
  std::ofstream(SignFile(kPumping)) << "yes";
  while (HasSign(kAsked)) {
    HandleMessages();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPause, QS_ALLINPUT);
  }
  HandleMessages();
  std::filesystem::remove(SignFile(kPumping));
}

}  // namespace dying_server
