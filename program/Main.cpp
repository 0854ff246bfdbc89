#include <windows.h>

#include <exception>
#include <functional>

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "com/Apartment.h"
#include "com/CallObserver.h"
#include "com/ComSessionServer.h"
#include "controls/Desktop.h"
#include "controls/InputHold.h"
#include "controls/MsgBox.h"
#include "controls/win32/NativeSystem.h"
#include "data/RunTimeError.h"

namespace {

constexpr const wchar_t* kProgId = L"Vardex.Vardex.1";

// Where the user's registry keeps how he left the windows.
constexpr const wchar_t* kSettingsKey = L"Software\\User Administration\\Windows";

// What the process ends with when the program could not start.
constexpr int kFailedStart = 1;

// An error that no procedure has reported under its own name.
constexpr const wchar_t* kProgram = L"uadmin";

// Keeps the program's windows from taking input while the session server is called.
class InputHolder final : public com::CallObserver {
 public:
  explicit InputHolder(controls::Desktop& desktop) : desktop_(desktop) {}

  void CallBegins() noexcept override { controls::HoldInput(desktop_); }
  void CallEnds() noexcept override { controls::ReleaseInput(desktop_); }
  void ReadBegins() noexcept override { reads_ = true; }
  void ReadEnds() noexcept override { reads_ = false; }

  bool Reads() const { return reads_; }

 private:
  controls::Desktop& desktop_;
  bool reads_ = false;
};

std::unique_ptr<data::SessionServer> CreateSessionServer(const controls::Desktop& desktop,
                                                         com::CallObserver& observer) {
  com::ServerTexts texts;
  texts.notRegistered = desktop.LoadResString(app::kServerNotRegistered);
  texts.fileMissing = desktop.LoadResString(app::kServerFileMissing);
  texts.wrongBitness = desktop.LoadResString(app::kServerWrongBitness);
  texts.lost = desktop.LoadResString(app::kServerLost);
  texts.memberMissing = desktop.LoadResString(app::kServerMemberMissing);
  texts.forUserOnly = desktop.LoadResString(app::kServerForUserOnly);
  texts.busy = desktop.LoadResString(app::kServerBusy);
  return com::CreateSessionServer(kProgId, texts, &observer);
}

// Whether to go on waiting for a busy server. In the middle of a reading transaction nobody is
// asked: other administrators would wait for the answer.
bool WaitsOn(const app::mGlobal& global, const InputHolder& holder) {
  if (holder.Reads()) return false;
  app::MQVXMsgBox box(global);
  return box.AskYesNo(global.LoadResString(app::kAskWaitForServer)) == controls::kResultYes;
}

int Run(controls::Desktop& desktop) {
  std::function<bool()> waitsOn;
  const com::Apartment apartment([&waitsOn] { return waitsOn && waitsOn(); });
  InputHolder holder(desktop);
  app::mGlobal global(desktop);
  waitsOn = [&] { return WaitsOn(global, holder); };
  global.CreateSessionServer = [&] { return CreateSessionServer(desktop, holder); };
  desktop.EscapedError = [&global] { app::ReportError(global, kProgram); };
  browser::frmUserGroupPerm window(global);
  desktop.Run(window);
  return global.startUpFailed ? kFailedStart : 0;
}

// Whatever this process loads, a server's libraries included, comes from the folder of what needs
// it, the program's or the system's, and never from the folder that it happens to be started in.
void LoadFromKnownFoldersOnly() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

}  // namespace

// What fails out here, before there is a window, is the apartment: without it nothing can be
// called.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
  LoadFromKnownFoldersOnly();
  controls::NativeSystem system(kSettingsKey);
  controls::Desktop desktop(system);
  try {
    return Run(desktop);
  } catch (const data::RunTimeError&) {
    app::ReportError(app::mGlobal(desktop), kProgram);
    return kFailedStart;
  }
}
