#include "server/com/Failure.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <new>
#include <string>

#include "data/RunTimeError.h"
#include "server/com/CallError.h"
#include "server/com/Identity.h"

using Microsoft::WRL::ComPtr;

namespace server::com {
namespace {

constexpr long kLargestStandardNumber = 0xFFFF;

// Standard numbers travel in the control facility, as automation clients expect it; the numbers of
// the server's own are results already.
HRESULT ResultOf(long number) {
  if (number < 0) return static_cast<HRESULT>(number);
  if (number == 0 || number > kLargestStandardNumber) return E_FAIL;
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

BSTR Copy(const std::wstring& text) {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

void FillIn(EXCEPINFO& exception, const data::RunTimeError& error) {
  exception = {};
  exception.scode = ResultOf(error.Number());
  exception.bstrSource = SysAllocString(kProgId);
  exception.bstrDescription = Copy(error.Text());
}

void LeaveErrorObject(const GUID& source, const data::RunTimeError& error) {
  ComPtr<ICreateErrorInfo> creation;
  ComPtr<IErrorInfo> info;
  if (FAILED(CreateErrorInfo(creation.GetAddressOf()))) return;
  creation->SetGUID(source);
  creation->SetSource(const_cast<wchar_t*>(kProgId));
  creation->SetDescription(const_cast<wchar_t*>(error.Text().c_str()));
  if (SUCCEEDED(creation.As(&info))) SetErrorInfo(0, info.Get());
}

}  // namespace

HRESULT DescribeCurrentException(const GUID& source, unsigned argumentCount, EXCEPINFO* exception,
                                 UINT* wrongArgument) noexcept {
  try {
    throw;
  } catch (const CallError& error) {
    if (wrongArgument != nullptr) *wrongArgument = argumentCount - 1 - error.argument;
    return error.result;
  } catch (const data::RunTimeError& error) {
    if (exception != nullptr) FillIn(*exception, error);
    LeaveErrorObject(source, error);
    return DISP_E_EXCEPTION;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace server::com
