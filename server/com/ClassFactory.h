#pragma once

#include <windows.h>

#include <unknwn.h>

#include <functional>
#include <memory>

#include "data/SessionServer.h"
#include "server/com/LiveObject.h"

namespace server::com {

using ServerMaker = std::function<std::unique_ptr<data::SessionServer>()>;

// Makes session servers for clients. Made with one reference, which belongs to its maker.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(ServerMaker make);
  virtual ~ClassFactory() = default;
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  ServerMaker make_;
  ULONG references_ = 1;
  LiveObject live_;
};

}  // namespace server::com
