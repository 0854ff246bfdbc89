#pragma once

#include "windows.h"

// A text with its length in bytes in front of it, and a zero after it.
using BSTR = wchar_t*;

enum : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
};

constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

// Money, in ten-thousandths.
struct CY {
  LONGLONG int64;
};

struct IDispatch;

struct VARIANT {
  VARTYPE vt;
  union {
    CHAR cVal;
    BYTE bVal;
    SHORT iVal;
    USHORT uiVal;
    LONG lVal;
    ULONG ulVal;
    LONGLONG llVal;
    ULONGLONG ullVal;
    float fltVal;
    double dblVal;
    double date;
    CY cyVal;
    VARIANT_BOOL boolVal;
    LONG scode;
    BSTR bstrVal;
    IDispatch* pdispVal;
    SHORT* piVal;
    LONG* plVal;
    BSTR* pbstrVal;
    VARIANT* pvarVal;
  };
};

// The arguments of a call, the last first.
struct DISPPARAMS {
  VARIANT* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
};

BSTR SysAllocStringLen(const wchar_t* text, UINT units);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);
UINT SysStringByteLen(BSTR text);

HRESULT VariantClear(VARIANT* value);
// source may be target. Nothing is changed where it fails.
HRESULT VariantChangeTypeEx(VARIANT* target, VARIANT* source, LCID locale, USHORT flags,
                            VARTYPE type);
