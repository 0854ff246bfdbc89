#include "server/com/Arguments.h"

#include <string>

#include "automation/Variant.h"
#include "server/com/CallError.h"

using automation::Bstr;
using automation::Variant;
using automation::View;

namespace server::com {
namespace {

constexpr VARTYPE kTextReference = VT_BYREF | VT_BSTR;
constexpr VARTYPE kNumberReference = VT_BYREF | VT_I4;
constexpr VARTYPE kSmallNumberReference = VT_BYREF | VT_I2;
constexpr VARTYPE kValueReference = VT_BYREF | VT_VARIANT;

// What a script's variable holds.
const VARIANT& Dereferenced(const VARIANT& value) {
  return value.vt == kValueReference ? *value.pvarVal : value;
}

Variant Converted(const VARIANT& value, VARTYPE type, unsigned at) {
  Variant converted;
  const HRESULT result =
      VariantChangeTypeEx(&converted, const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, type);
  if (FAILED(result)) throw CallError{result, at};
  return converted;
}

}  // namespace

std::int32_t Arguments::Integer(unsigned at) const {
  const VARIANT& value = Value(at);
  return value.vt == VT_I4 ? value.lVal : Converted(value, VT_I4, at).lVal;
}

std::wstring_view Arguments::Text(unsigned at) {
  const VARIANT& value = Dereferenced(Value(at));
  if (value.vt == VT_BSTR) return View(value.bstrVal);
  if (value.vt == kTextReference) return View(*value.pbstrVal);
  Variant text = Converted(value, VT_BSTR, at);
  converted_[at].Take(text.DetachText());
  return converted_[at].View();
}

bool Arguments::IsText(unsigned at) const {
  const VARTYPE type = Dereferenced(Value(at)).vt;
  return type == VT_BSTR || type == kTextReference;
}

data::FieldValue Arguments::Field(unsigned at) const {
  const VARIANT& value = Dereferenced(Value(at));
  if (value.vt == VT_NULL || value.vt == VT_EMPTY) return {};
  if (value.vt == VT_BSTR) return std::wstring(View(value.bstrVal));
  if (value.vt == kTextReference) return std::wstring(View(*value.pbstrVal));
  return Integer(at);
}

void Arguments::PutText(unsigned at, std::wstring_view text) {
  VARIANT& target = Value(at);
  if (target.vt == kTextReference) {
    Bstr copy(text);
    SysFreeString(*target.pbstrVal);
    *target.pbstrVal = copy.Detach();
  } else if (target.vt == kValueReference) {
    Bstr copy(text);
    VariantClear(target.pvarVal);
    target.pvarVal->vt = VT_BSTR;
    target.pvarVal->bstrVal = copy.Detach();
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
