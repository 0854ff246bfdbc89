#include "server/com/DispatchObject.h"

#include <algorithm>

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

bool DispatchObject::IsFirst(REFIID id) const {
  return id == IID_IDispatch || id == interfaceId_;
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
  const auto named = [&](const Member& member) { return IsNamed(member, names[0]); };
  const auto found = std::ranges::find_if(members_, named);
  if (found != members_.end()) ids[0] = found->id;
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

const Member* DispatchObject::Find(DISPID id) const {
  const auto found = std::ranges::find(members_, id, &Member::id);
  return found == members_.end() ? nullptr : &*found;
}

HRESULT DispatchObject::Check(const Member* member, WORD kind, const DISPPARAMS* call) {
  if (member == nullptr || (kind & kCalls) == 0) return DISP_E_MEMBERNOTFOUND;
  if (call == nullptr) return E_POINTER;
  if (call->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  return call->cArgs == member->arguments ? S_OK : DISP_E_BADPARAMCOUNT;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* call,
                               VARIANT* answer, EXCEPINFO* exception, UINT* wrongArgument) {
  const Member* const member = Find(id);
  const HRESULT right = Check(member, kind, call);
  if (FAILED(right)) return right;
  VARIANT unwanted;
  VARIANT& target = answer == nullptr ? unwanted : *answer;
  target.vt = VT_EMPTY;
  try {
    Arguments arguments(*call);
    member->handler(*this, arguments, target);
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
