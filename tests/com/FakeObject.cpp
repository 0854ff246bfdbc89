#include "FakeObject.h"

#include <memory>
#include <utility>

#include "automation/Adopt.h"

using Microsoft::WRL::ComPtr;

namespace com_test {

ComPtr<FakeObject> FakeObject::Make(DISPID firstId) {
  return automation::Adopt<FakeObject>(std::unique_ptr<FakeObject>(new FakeObject(firstId)));
}

FakeObject& FakeObject::On(const wchar_t* name, Handler handler) {
  entries_.push_back({name, nextId_, std::move(handler)});
  nextId_ += nextId_ < 0 ? -3 : 7;
  return *this;
}

FakeObject& FakeObject::Gives(const wchar_t* name, const VARIANT& value) {
  return On(name, [value](const FakeCall& call) { return Give(call.result, value); });
}

HRESULT FakeObject::QueryInterface(REFIID id, void** object) {
  ++queries;
  if (onQuery) onQuery();
  const bool refused =
      (id == IID_IDispatch && !isDispatch) || (id == IID_ISupportErrorInfo && !supportsErrorInfo);
  if (!refused) return ComObject::QueryInterface(id, object);
  *object = nullptr;
  return E_NOINTERFACE;
}

ULONG FakeObject::Release() {
  if (ComObject::References() == 1 && onLastRelease) std::exchange(onLastRelease, {})();
  return ComObject::Release();
}

HRESULT FakeObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT FakeObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  *info = nullptr;
  return E_NOTIMPL;
}

HRESULT FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  ++lookups;
  if (onLookup) onLookup();
  ids[0] = DISPID_UNKNOWN;
  for (const Entry& entry : entries_) {
    if (lstrcmpiW(entry.name.c_str(), names[0]) == 0) ids[0] = entry.id;
  }
  return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* params, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
  ++calls;
  for (const Entry& entry : entries_) {
    if (entry.id == id) return entry.handler({kind, params, result, exception});
  }
  return DISP_E_MEMBERNOTFOUND;
}

HRESULT FakeObject::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT Give(VARIANT* target, VARIANT value) {
  return target == nullptr ? S_OK : VariantCopy(target, &value);
}

VARIANT Value(std::int32_t number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

VARIANT SmallValue(std::int16_t number) {
  VARIANT value{};
  value.vt = VT_I2;
  value.iVal = number;
  return value;
}

VARIANT RealValue(double number) {
  VARIANT value{};
  value.vt = VT_R8;
  value.dblVal = number;
  return value;
}

VARIANT NullValue() {
  VARIANT value{};
  value.vt = VT_NULL;
  return value;
}

VARIANT ObjectValue(IDispatch* object) {
  VARIANT value{};
  value.vt = VT_DISPATCH;
  value.pdispVal = object;
  return value;
}

VARIANT TextValue(const wchar_t* text) {
  VARIANT value{};
  value.vt = VT_BSTR;
  value.bstrVal = SysAllocString(text);
  return value;
}

}  // namespace com_test
