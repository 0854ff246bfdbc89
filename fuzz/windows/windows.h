#pragma once

// As much of the Windows headers as com/Conversion and server/com/Arguments need, so that clang's
// fuzzer, which runs on no Windows, can reach them. What stands here is written after the published
// description of OLE automation; Automation.cpp does the work.

#include <cstddef>
#include <cstdint>

#define STDMETHODCALLTYPE

using BYTE = std::uint8_t;
using CHAR = char;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using UINT = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using HRESULT = std::int32_t;
using LCID = std::uint32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using DISPID = std::int32_t;

constexpr LCID LOCALE_INVARIANT = 0x7F;

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005U);
constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008U);
constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000AU);

constexpr bool SUCCEEDED(HRESULT result) {
  return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
  return result < 0;
}

void SecureZeroMemory(void* memory, std::size_t bytes);
