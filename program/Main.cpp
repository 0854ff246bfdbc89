#include <windows.h>

#include <exception>

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "com/Apartment.h"
#include "com/ComSessionServer.h"
#include "controls/Desktop.h"

namespace {

constexpr const wchar_t* kProgId = L"Vardex.Vardex.1";

// An error that no procedure has reported under its own name.
constexpr const wchar_t* kProgram = L"uadmin";

std::unique_ptr<data::SessionServer> CreateSessionServer(const controls::Desktop& desktop) {
  com::ServerTexts texts;
  texts.notRegistered = desktop.LoadResString(app::kServerNotRegistered);
  texts.fileMissing = desktop.LoadResString(app::kServerFileMissing);
  texts.wrongBitness = desktop.LoadResString(app::kServerWrongBitness);
  texts.lost = desktop.LoadResString(app::kServerLost);
  texts.memberMissing = desktop.LoadResString(app::kServerMemberMissing);
  return com::CreateSessionServer(kProgId, texts);
}

int Run() {
  const com::Apartment apartment;
  controls::Desktop desktop;
  app::mGlobal global(desktop);
  global.CreateSessionServer = [&desktop] { return CreateSessionServer(desktop); };
  desktop.EscapedError = [&global] { app::ReportError(global, kProgram); };
  browser::frmUserGroupPerm window(global);
  desktop.Run(window);
  return global.startUpFailed ? 1 : 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
  return Run();
}
