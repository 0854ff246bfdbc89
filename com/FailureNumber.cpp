#include "com/FailureNumber.h"

#include "data/RunTimeError.h"

namespace com {

// The control facility is the one that standard numbers travel in.
long FailureNumber(HRESULT result) {
  if (FAILED(result) && HRESULT_FACILITY(result) == FACILITY_CONTROL) return HRESULT_CODE(result);
  switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return data::kNoSuchMember;
    case DISP_E_TYPEMISMATCH:
      return data::kTypeMismatch;
    case DISP_E_OVERFLOW:
      return data::kOverflow;
    case DISP_E_BADINDEX:
      return data::kSubscriptOutOfRange;
    case E_NOINTERFACE:
      return data::kNoAutomation;
    default:
      return result;
  }
}

bool SaysThatTheObjectIsGone(HRESULT result) {
  switch (result) {
    case RPC_E_DISCONNECTED:
    case RPC_E_SERVER_DIED:
    case RPC_E_SERVER_DIED_DNE:
    case RPC_E_SERVERFAULT:
    case CO_E_OBJNOTCONNECTED:
      return true;
    default:
      return result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
             result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
  }
}

bool SaysThatTheServerIsBusy(HRESULT result) {
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER ||
         result == RPC_E_SERVERCALL_REJECTED;
}

bool SaysThatTheMemberIsUnknown(HRESULT result) {
  return result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND;
}

}  // namespace com
