#include "com/MemberIds.h"

namespace com {

HRESULT MemberIds::Ask(IDispatch* object, std::size_t member, DISPID& id) {
  if (absent_[member]) return DISP_E_UNKNOWNNAME;
  auto name = const_cast<wchar_t*>(names_[member]);
  const HRESULT result = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(result)) ids_[member] = id;
  absent_[member] = result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND;
  return result;
}

}  // namespace com
