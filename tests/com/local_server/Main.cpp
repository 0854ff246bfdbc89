// The reference session server in a process of its own, for tests of what lies between: started by
// the system with the class that it is to offer and the server's home folder as its arguments. It
// ends with its last object, and leaves its process number in the home folder.

#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "automation/Adopt.h"
#include "server/com/ClassFactory.h"
#include "server/com/LiveObject.h"
#include "server/core/sessions/ReferenceServer.h"
#include "server/engines/Engines.h"

namespace {

std::unique_ptr<data::SessionServer> MakeServer() {
  return std::make_unique<server::ReferenceServer>(
      server::ReferenceServer::Options{server::OpenEngine});
}

// An object is released by a message, so nothing is missed by looking after each of them.
void ServeUntilUnused(long unused) {
  bool used = false;
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
    const bool inUse = server::com::LiveObject::Count() > unused;
    if (used && !inUse) return;
    used = used || inUse;
  }
}

int Serve(const CLSID& classId) {
  const auto factory =
      automation::Adopt<IClassFactory>(std::make_unique<server::com::ClassFactory>(MakeServer));
  DWORD cookie = 0;
  const HRESULT registered = CoRegisterClassObject(classId, factory.Get(), CLSCTX_LOCAL_SERVER,
                                                   REGCLS_MULTIPLEUSE, &cookie);
  if (FAILED(registered)) return 1;
  ServeUntilUnused(server::com::LiveObject::Count());
  CoRevokeClassObject(cookie);
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  CLSID classId{};
  if (count < 3 || FAILED(CLSIDFromString(arguments[1], &classId))) return 2;
  const std::filesystem::path home = arguments[2];
  _wputenv_s(L"VARDEX_HOME", home.c_str());
  std::ofstream(home / L"process") << GetCurrentProcessId();
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 3;
  const int status = Serve(classId);
  CoUninitialize();
  return status;
}
