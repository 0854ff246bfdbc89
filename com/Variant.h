#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

#include "com/Bstr.h"

namespace com {

// An owned VARIANT, usable as one.
class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  ~Variant() { Clear(); }
  Variant(Variant&& other) noexcept : VARIANT(other) { other.vt = VT_EMPTY; }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
  }

  // Frees what is in it; numbers cost nothing.
  void Clear() {
    if (vt == VT_BSTR) {
      SysFreeString(bstrVal);
      vt = VT_EMPTY;
    } else {
      VariantClear(this);
    }
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
