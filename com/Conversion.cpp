#include "com/Conversion.h"

#include "automation/Bstr.h"
#include "automation/Variant.h"
#include "data/RunTimeError.h"

using automation::Variant;
using automation::View;

namespace com {
namespace {

void Convert(VARIANT& target, const VARIANT& source, VARTYPE type) {
  const auto from = const_cast<VARIANT*>(&source);
  CheckConversion(VariantChangeTypeEx(&target, from, LOCALE_INVARIANT, 0, type));
}

// What stands for nothing would convert to 0, which an identifier or a rights mask must not become
// by a mistake.
Variant Converted(const VARIANT& source, VARTYPE type) {
  if (IsNothing(source)) throw data::RunTimeError(data::kTypeMismatch);
  Variant converted;
  Convert(converted, source, type);
  return converted;
}

// True for a decimal or floating number without a fraction, which is then a 64-bit integer.
bool BecomesWhole(VARIANT& value) {
  Variant whole;
  Variant back;
  if (FAILED(VariantChangeTypeEx(&whole, &value, LOCALE_INVARIANT, 0, VT_I8))) return false;
  Convert(back, whole, VT_R8);
  Variant number;
  Convert(number, value, VT_R8);
  if (back.dblVal != number.dblVal) return false;
  value = whole;
  return true;
}

data::ColumnValue UnusualColumnValue(VARIANT& value) {
  switch (value.vt) {
    case VT_I1:
    case VT_UI2:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_UI8:
    case VT_BOOL:
      Convert(value, value, VT_I8);
      return data::ColumnValue(static_cast<std::int64_t>(value.llVal));
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      if (BecomesWhole(value)) return data::ColumnValue(static_cast<std::int64_t>(value.llVal));
      break;
    default:
      break;
  }
  Convert(value, value, VT_BSTR);
  return data::ColumnValue(View(value.bstrVal));
}

}  // namespace

bool IsNothing(const VARIANT& value) {
  return value.vt == VT_EMPTY || value.vt == VT_NULL;
}

void CheckConversion(HRESULT result) {
  if (SUCCEEDED(result)) return;
  throw data::RunTimeError(result == DISP_E_OVERFLOW ? data::kOverflow : data::kTypeMismatch);
}

std::int32_t ToInteger(const VARIANT& value) {
  return value.vt == VT_I4 ? value.lVal : Converted(value, VT_I4).lVal;
}

bool ToBoolean(const VARIANT& value) {
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  return Converted(value, VT_BOOL).boolVal != VARIANT_FALSE;
}

std::wstring ToText(const VARIANT& value) {
  if (value.vt == VT_BSTR) return std::wstring(View(value.bstrVal));
  if (IsNothing(value)) return {};
  return std::wstring(View(Converted(value, VT_BSTR).bstrVal));
}

data::ColumnValue ToColumnValue(VARIANT& value) {
  switch (value.vt) {
    case VT_BSTR:
      return data::ColumnValue(View(value.bstrVal));
    case VT_I4:
      return data::ColumnValue(std::int64_t{value.lVal});
    case VT_I2:
      return data::ColumnValue(std::int64_t{value.iVal});
    case VT_UI1:
      return data::ColumnValue(std::int64_t{value.bVal});
    case VT_I8:
      return data::ColumnValue(static_cast<std::int64_t>(value.llVal));
    case VT_EMPTY:
    case VT_NULL:
      return {};
    default:
      return UnusualColumnValue(value);
  }
}

}  // namespace com
