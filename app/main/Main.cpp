#include <windows.h>

#include <exception>

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "com/ComSessionServer.h"
#include "controls/Desktop.h"

namespace {

constexpr const wchar_t* kProgId = L"Vardex.Vardex.1";

// An error that no procedure has reported under its own name.
constexpr const wchar_t* kProgram = L"uadmin";

std::unique_ptr<data::SessionServer> CreateSessionServer(const controls::Desktop& desktop) {
  return com::CreateSessionServer(kProgId, {desktop.LoadResString(app::kServerNotRegistered),
                                            desktop.LoadResString(app::kServerFileMissing),
                                            desktop.LoadResString(app::kServerWrongBitness)});
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
