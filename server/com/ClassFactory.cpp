#include "server/com/ClassFactory.h"

#include <utility>

#include "server/com/Adopt.h"
#include "server/com/Failure.h"
#include "server/com/Identity.h"
#include "server/com/SessionServerObject.h"

namespace server::com {

ClassFactory::ClassFactory(ServerMaker make) : make_(std::move(make)) {}

HRESULT ClassFactory::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG ClassFactory::AddRef() {
  return ++references_;
}

// Behind the last reference nobody owns the factory but itself, for as long as it takes to end.
ULONG ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) const std::unique_ptr<ClassFactory> last(this);
  return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  try {
    const auto created = Adopt<IDispatch>(std::make_unique<SessionServerObject>(make_()));
    return created.CopyTo(id, object);
  } catch (...) {
    const HRESULT result = DescribeCurrentException(kSessionServerId, 0, nullptr, nullptr);
    return result == DISP_E_EXCEPTION ? E_FAIL : result;
  }
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    LiveObject::Lock();
  } else {
    LiveObject::Unlock();
  }
  return S_OK;
}

}  // namespace server::com
