#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

#include "com/Bstr.h"

namespace com {

// An owned VARIANT, usable as one.
class Variant : public VARIANT {
 public:
  Variant() { vt = VT_EMPTY; }
  ~Variant() { Clear(); }
  Variant(Variant&& other) noexcept : VARIANT(other) { other.vt = VT_EMPTY; }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
  }

  // Frees what is in it. Rows by the million are read through here, and most values own nothing:
  // the system is asked only where there is something to free.
  void Clear() {
    if (vt == VT_BSTR) {
      SysFreeString(bstrVal);
    } else if (vt > VT_DATE && vt != VT_BOOL) {
      VariantClear(this);
    }
    vt = VT_EMPTY;
  }
};

// Arguments of a call. They borrow what they are made from.
inline VARIANT Argument(std::int32_t number) {
  VARIANT argument;
  argument.vt = VT_I4;
  argument.lVal = number;
  return argument;
}

inline VARIANT Argument(const Bstr& text) {
  VARIANT argument;
  argument.vt = VT_BSTR;
  argument.bstrVal = text.Get();
  return argument;
}

inline VARIANT NullArgument() {
  VARIANT argument;
  argument.vt = VT_NULL;
  return argument;
}

}  // namespace com
