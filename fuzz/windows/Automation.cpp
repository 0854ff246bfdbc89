#include "fuzz/windows/Automation.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kBefore = sizeof(std::uint64_t);
constexpr double kTwoTo63 = 9223372036854775808.0;

unsigned left = 0;
HRESULT failure = S_OK;

// A number as it was read out of a value: whole where that is exact.
struct Number {
  bool whole = true;
  bool beyond = false;  // a whole one above the signed range, as it is in real
  std::int64_t integer = 0;
  double real = 0;
};

Number Whole(std::int64_t integer) {
  return {true, false, integer, static_cast<double>(integer)};
}

Number Real(double real) {
  return {false, false, 0, real};
}

std::optional<Number> NumberIn(std::wstring_view text) {
  const std::string narrow(text.begin(), text.end());
  for (const wchar_t letter : text) {
    if (letter <= 0 || letter > 0x7E) return std::nullopt;
  }
  char* end = nullptr;
  const double real = std::strtod(narrow.c_str(), &end);
  if (end == narrow.c_str() || std::isnan(real)) return std::nullopt;
  while (*end == ' ') ++end;
  if (*end != 0) return std::nullopt;
  return Real(real);
}

std::optional<Number> NumberOf(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return Whole(0);
    case VT_I1:
      return Whole(static_cast<signed char>(value.cVal));
    case VT_UI1:
      return Whole(value.bVal);
    case VT_I2:
      return Whole(value.iVal);
    case VT_UI2:
      return Whole(value.uiVal);
    case VT_BOOL:
      return Whole(value.boolVal);
    case VT_I4:
    case VT_INT:
      return Whole(value.lVal);
    case VT_UI4:
    case VT_UINT:
      return Whole(value.ulVal);
    case VT_I8:
      return Whole(value.llVal);
    case VT_UI8: {
      Number number = Whole(static_cast<std::int64_t>(value.ullVal));
      number.beyond = value.ullVal > static_cast<ULONGLONG>(INT64_MAX);
      number.real = static_cast<double>(value.ullVal);
      return number;
    }
    case VT_R4:
      return Real(static_cast<double>(value.fltVal));
    case VT_R8:
    case VT_DATE:
      return Real(value.dblVal);
    case VT_CY:
      return Real(static_cast<double>(value.cyVal.int64) / 10000);
    case VT_BSTR:
      return NumberIn({value.bstrVal, SysStringLen(value.bstrVal)});
    default:
      return std::nullopt;
  }
}

HRESULT ToWhole(const Number& number, std::int64_t least, std::int64_t most, std::int64_t& whole) {
  if (number.beyond) return DISP_E_OVERFLOW;
  whole = number.integer;
  if (!number.whole) {
    // Also where it is no number at all.
    const double rounded = std::nearbyint(number.real);
    if (!(rounded >= -kTwoTo63 && rounded < kTwoTo63)) return DISP_E_OVERFLOW;
    whole = static_cast<std::int64_t>(rounded);
  }
  return whole >= least && whole <= most ? S_OK : DISP_E_OVERFLOW;
}

std::string TextOf(const VARIANT& value, const Number& number) {
  if (value.vt == VT_EMPTY) return {};
  if (value.vt == VT_UI8) return std::to_string(value.ullVal);
  if (number.whole) return std::to_string(number.integer);
  char text[40];
  std::snprintf(text, sizeof text, "%.15g", number.real);
  return text;
}

HRESULT Change(VARIANT& made, const VARIANT& source, VARTYPE type) {
  const std::optional<Number> number = NumberOf(source);
  std::int64_t whole = 0;
  HRESULT result = S_OK;
  if (type == VT_BSTR && source.vt == VT_BSTR) {
    made.bstrVal = SysAllocStringLen(source.bstrVal, SysStringLen(source.bstrVal));
    return S_OK;
  }
  if (!number) return DISP_E_TYPEMISMATCH;
  switch (type) {
    case VT_I4:
      result = ToWhole(*number, INT32_MIN, INT32_MAX, whole);
      made.lVal = static_cast<LONG>(whole);
      return result;
    case VT_I8:
      result = ToWhole(*number, INT64_MIN, INT64_MAX, whole);
      made.llVal = whole;
      return result;
    case VT_BOOL:
      made.boolVal = number->real != 0 ? VARIANT_TRUE : VARIANT_FALSE;
      return S_OK;
    case VT_R8:
      made.dblVal = number->real;
      return S_OK;
    case VT_BSTR: {
      const std::string text = TextOf(source, *number);
      made.bstrVal = SysAllocStringLen(std::wstring(text.begin(), text.end()).c_str(),
                                       static_cast<UINT>(text.size()));
      return S_OK;
    }
    default:
      return DISP_E_BADVARTYPE;
  }
}

// What a reference refers to, with its own type.
VARIANT Dereferenced(const VARIANT& value) {
  VARIANT target{};
  target.vt = value.vt & static_cast<VARTYPE>(~VT_BYREF);
  switch (target.vt) {
    case VT_I2:
      target.iVal = *value.piVal;
      break;
    case VT_I4:
      target.lVal = *value.plVal;
      break;
    case VT_BSTR:
      target.bstrVal = *value.pbstrVal;
      break;
    case VT_VARIANT:
      return (value.pvarVal->vt & VT_BYREF) != 0 ? Dereferenced(*value.pvarVal) : *value.pvarVal;
    default:
      target.vt = VT_ERROR;
  }
  return target;
}

}  // namespace

void fuzz::FailConversions(unsigned after, HRESULT result) {
  left = after;
  failure = result;
}

void SecureZeroMemory(void* memory, std::size_t bytes) {
  std::memset(memory, 0, bytes);
}

BSTR SysAllocStringLen(const wchar_t* text, UINT units) {
  const std::uint64_t bytes = units * sizeof(wchar_t);
  auto* const block = static_cast<char*>(std::malloc(kBefore + bytes + sizeof(wchar_t)));
  if (block == nullptr) return nullptr;
  std::memcpy(block, &bytes, kBefore);
  if (units > 0 && text != nullptr) std::memcpy(block + kBefore, text, bytes);
  std::memset(block + kBefore + bytes, 0, sizeof(wchar_t));
  return reinterpret_cast<BSTR>(block + kBefore);
}

void SysFreeString(BSTR text) {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - kBefore);
}

UINT SysStringByteLen(BSTR text) {
  if (text == nullptr) return 0;
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(text) - kBefore, kBefore);
  return static_cast<UINT>(bytes);
}

UINT SysStringLen(BSTR text) {
  return SysStringByteLen(text) / sizeof(wchar_t);
}

HRESULT VariantClear(VARIANT* value) {
  if (value->vt == VT_BSTR) SysFreeString(value->bstrVal);
  value->vt = VT_EMPTY;
  return S_OK;
}

HRESULT VariantChangeTypeEx(VARIANT* target, VARIANT* source, LCID, USHORT, VARTYPE type) {
  if (failure != S_OK && left-- == 0) {
    left = 0;
    return failure;
  }
  VARIANT made{};
  const bool reference = (source->vt & VT_BYREF) != 0;
  const HRESULT result = Change(made, reference ? Dereferenced(*source) : *source, type);
  if (FAILED(result)) return result;
  VariantClear(target);
  made.vt = type;
  *target = made;
  return S_OK;
}
