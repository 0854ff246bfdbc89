#include "server/com/ClassFactory.h"

#include <utility>

#include "automation/Adopt.h"
#include "server/com/Failure.h"
#include "server/com/Identity.h"
#include "server/com/SessionServerObject.h"

namespace server::com {

ClassFactory::ClassFactory(ServerMaker make) : make_(std::move(make)) {}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  try {
    const auto created =
        automation::Adopt<IDispatch>(std::make_unique<SessionServerObject>(make_()));
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
