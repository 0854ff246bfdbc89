#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <utility>

#include "automation/Bstr.h"

namespace automation {

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

  // Gives the text in it, which there must be, to the caller, who frees it.
  BSTR DetachText() {
    vt = VT_EMPTY;
    return bstrVal;
  }
};

// A secret that comes back from a call: it is overwritten before its memory goes back.
class SecretVariant : public Variant {
 public:
  SecretVariant() = default;
  ~SecretVariant() {
    if (vt == VT_BSTR) Wipe(bstrVal);
  }
  SecretVariant(SecretVariant&&) = delete;
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

// Arguments that the callee writes to.
inline VARIANT Reference(BSTR* text) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_BSTR;
  argument.pbstrVal = text;
  return argument;
}

inline VARIANT Reference(LONG* number) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_I4;
  argument.plVal = number;
  return argument;
}

inline VARIANT Reference(VARIANT* value) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = value;
  return argument;
}

}  // namespace automation
