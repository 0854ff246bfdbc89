#pragma once

#include <windows.h>

#include <unknwn.h>

#include <functional>
#include <memory>

#include "automation/ComObject.h"
#include "data/SessionServer.h"
#include "server/com/LiveObject.h"

namespace server::com {

using ServerMaker = std::function<std::unique_ptr<data::SessionServer>()>;

// Makes session servers for clients.
class ClassFactory final : public automation::ComObject<IClassFactory> {
 public:
  explicit ClassFactory(ServerMaker make);

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  ServerMaker make_;
  LiveObject live_;
};

}  // namespace server::com
