#include "server/com/Arguments.h"

#include <new>
#include <string>

#include "server/com/CallError.h"

namespace server::com {
namespace {

constexpr VARTYPE kTextReference = VT_BYREF | VT_BSTR;
constexpr VARTYPE kNumberReference = VT_BYREF | VT_I4;
constexpr VARTYPE kSmallNumberReference = VT_BYREF | VT_I2;
constexpr VARTYPE kValueReference = VT_BYREF | VT_VARIANT;

// What a script's variable holds.
const VARIANT& Followed(const VARIANT& value) {
  return value.vt == kValueReference ? *value.pvarVal : value;
}

VARIANT Converted(const VARIANT& value, VARTYPE type, unsigned at) {
  VARIANT converted;
  VariantInit(&converted);
  const HRESULT result =
      VariantChangeTypeEx(&converted, const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, type);
  if (FAILED(result)) throw CallError{result, at};
  return converted;
}

std::wstring_view View(BSTR text) {
  return {text, SysStringLen(text)};
}

BSTR Copy(std::wstring_view text) {
  const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (copy == nullptr) throw std::bad_alloc();
  return copy;
}

}  // namespace

void Arguments::FreeConverted() {
  for (const BSTR text : converted_) {
    if (text != nullptr) SysFreeString(text);
  }
}

std::int32_t Arguments::Integer(unsigned at) const {
  const VARIANT& value = Value(at);
  return value.vt == VT_I4 ? value.lVal : Converted(value, VT_I4, at).lVal;
}

std::wstring_view Arguments::Text(unsigned at) {
  const VARIANT& value = Followed(Value(at));
  if (value.vt == VT_BSTR) return View(value.bstrVal);
  if (value.vt == kTextReference) return View(*value.pbstrVal);
  SysFreeString(converted_[at]);
  converted_[at] = nullptr;
  anyConverted_ = true;
  converted_[at] = Converted(value, VT_BSTR, at).bstrVal;
  return View(converted_[at]);
}

bool Arguments::IsText(unsigned at) const {
  const VARTYPE type = Followed(Value(at)).vt;
  return type == VT_BSTR || type == kTextReference;
}

data::FieldValue Arguments::Field(unsigned at) const {
  const VARIANT& value = Followed(Value(at));
  if (value.vt == VT_NULL || value.vt == VT_EMPTY) return {};
  if (value.vt == VT_BSTR) return std::wstring(View(value.bstrVal));
  if (value.vt == kTextReference) return std::wstring(View(*value.pbstrVal));
  return Integer(at);
}

void Arguments::PutText(unsigned at, std::wstring_view text) {
  VARIANT& target = Value(at);
  if (target.vt == kTextReference) {
    const BSTR copy = Copy(text);
    SysFreeString(*target.pbstrVal);
    *target.pbstrVal = copy;
  } else if (target.vt == kValueReference) {
    const BSTR copy = Copy(text);
    VariantClear(target.pvarVal);
    target.pvarVal->vt = VT_BSTR;
    target.pvarVal->bstrVal = copy;
  } else {
    throw CallError{DISP_E_TYPEMISMATCH, at};
  }
}

void Arguments::PutInteger(unsigned at, std::int32_t number) {
  VARIANT& target = Value(at);
  if (target.vt == kNumberReference) {
    *target.plVal = number;
  } else if (target.vt == kSmallNumberReference) {
    const bool fits = number == static_cast<SHORT>(number);
    if (!fits) throw CallError{DISP_E_OVERFLOW, at};
    *target.piVal = static_cast<SHORT>(number);
  } else if (target.vt == kValueReference) {
    VariantClear(target.pvarVal);
    target.pvarVal->vt = VT_I4;
    target.pvarVal->lVal = number;
  } else {
    throw CallError{DISP_E_TYPEMISMATCH, at};
  }
}

}  // namespace server::com
