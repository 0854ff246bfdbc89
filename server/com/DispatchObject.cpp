#include "server/com/DispatchObject.h"

#include <memory>

#include "server/com/Failure.h"
#include "server/com/TypeLibrary.h"

namespace server::com {
namespace {

// A script may call a function as if it were a property, and the other way round.
constexpr WORD kCalls = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

bool IsNamed(const Member& member, const wchar_t* name) {
  return CompareStringOrdinal(member.name, -1, name, -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

HRESULT DispatchObject::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch || id == interfaceId_) {
    *object = static_cast<IDispatch*>(this);
  } else if (id == IID_ISupportErrorInfo) {
    *object = static_cast<ISupportErrorInfo*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG DispatchObject::AddRef() {
  return ++references_;
}

// Behind the last reference nobody owns the object but the object itself, for as long as it takes
// to end.
ULONG DispatchObject::Release() {
  const ULONG left = --references_;
  if (left == 0) const std::unique_ptr<DispatchObject> last(this);
  return left;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return index == 0 ? LoadTypeInfo(interfaceId_, info) : DISP_E_BADINDEX;
}

// Names of arguments may follow the member's name; there are none to be known.
HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < members_.size() && ids[0] == DISPID_UNKNOWN; ++i) {
    if (IsNamed(members_[i], names[0])) ids[0] = static_cast<DISPID>(i + 1);
  }
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Find(DISPID id, WORD kind, const DISPPARAMS* call) const {
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
  const Member& member = members_[static_cast<std::size_t>(id) - 1];
  if ((kind & kCalls) == 0) return DISP_E_MEMBERNOTFOUND;
  if (call == nullptr) return E_POINTER;
  if (call->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  return call->cArgs == member.arguments ? S_OK : DISP_E_BADPARAMCOUNT;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* call,
                               VARIANT* answer, EXCEPINFO* exception, UINT* wrongArgument) {
  const HRESULT found = Find(id, kind, call);
  if (FAILED(found)) return found;
  VARIANT unwanted;
  VARIANT& target = answer == nullptr ? unwanted : *answer;
  target.vt = VT_EMPTY;
  try {
    Arguments arguments(*call);
    Run(id, arguments, target);
    // Most of what is called without a wish for an answer gives none: moving on, row by row.
    if (answer == nullptr && unwanted.vt != VT_EMPTY) VariantClear(&unwanted);
    return S_OK;
  } catch (...) {
    return DescribeCurrentException(interfaceId_, call->cArgs, exception, wrongArgument);
  }
}

HRESULT DispatchObject::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_IDispatch || id == interfaceId_ ? S_OK : S_FALSE;
}

}  // namespace server::com
