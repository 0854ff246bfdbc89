#include <windows.h>

#include <exception>

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "com/Apartment.h"
#include "com/CallObserver.h"
#include "com/ComSessionServer.h"
#include "controls/Desktop.h"
#include "controls/InputHold.h"
#include "controls/win32/NativeSystem.h"
#include "data/RunTimeError.h"

namespace {

constexpr const wchar_t* kProgId = L"Vardex.Vardex.1";

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

 private:
  controls::Desktop& desktop_;
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
  return com::CreateSessionServer(kProgId, texts, &observer);
}

int Run(controls::Desktop& desktop) {
  const com::Apartment apartment;
  InputHolder holder(desktop);
  app::mGlobal global(desktop);
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
  controls::NativeSystem system;
  controls::Desktop desktop(system);
  try {
    return Run(desktop);
  } catch (const data::RunTimeError&) {
    app::ReportError(app::mGlobal(desktop), kProgram);
    return kFailedStart;
  }
}
