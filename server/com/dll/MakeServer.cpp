#include "MakeServer.h"

#include <windows.h>

#include <string>
#include <utility>

#include "server/core/sessions/ReferenceServer.h"
#include "server/engines/Engines.h"

namespace {

void ShowAboutBox(const std::wstring& title, const std::wstring& text) {
  MessageBoxW(GetActiveWindow(), text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION);
}

}  // namespace

std::unique_ptr<data::SessionServer> MakeServer() {
  server::ReferenceServer::Options options{server::OpenEngine};
  options.showAbout = ShowAboutBox;
  return std::make_unique<server::ReferenceServer>(std::move(options));
}
