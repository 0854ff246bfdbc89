#include "com/ComSessionServer.h"

#include <objbase.h>

#include <string>

#include "com/CallGuard.h"
#include "com/ClassFault.h"
#include "com/SessionServerAdapter.h"
#include "data/RunTimeError.h"

using Microsoft::WRL::ComPtr;

namespace com {
namespace {

// A server may run in this process or in one of its own.
constexpr DWORD kContexts = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

[[noreturn]] void RaiseFault(ClassFault fault, HRESULT result, const ServerTexts& texts) {
  switch (fault) {
    case ClassFault::kNotRegistered:
      throw data::RunTimeError(data::kCannotCreateObject, texts.notRegistered);
    case ClassFault::kFileMissing:
      throw data::RunTimeError(data::kCannotCreateObject, texts.fileMissing);
    case ClassFault::kWrongBitness:
      throw data::RunTimeError(data::kCannotCreateObject, texts.wrongBitness);
    case ClassFault::kNone:
      break;
  }
  if (result == E_NOINTERFACE) throw data::RunTimeError(data::kNoAutomation);
  throw data::RunTimeError(result);
}

// The result of the system comes first where it is plain; the registry is asked for the rest, since
// one and the same result stands for several causes.
ClassFault FaultBehind(HRESULT result, const std::wstring& progId) {
  if (result == HRESULT_FROM_WIN32(ERROR_BAD_EXE_FORMAT)) return ClassFault::kWrongBitness;
  if (result == E_NOINTERFACE) return ClassFault::kNone;
  const ClassFault fault = FindClassFault(progId);
  // A class may be known from a manifest alone, of which the registry says nothing.
  const bool isUnknown = result == CO_E_CLASSSTRING || result == REGDB_E_CLASSNOTREG;
  if (fault == ClassFault::kNotRegistered ? isUnknown : fault != ClassFault::kNone) return fault;
  const bool noLibrary =
      result == HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND) || result == CO_E_DLLNOTFOUND;
  return noLibrary ? ClassFault::kFileMissing : ClassFault::kNone;
}

HRESULT Create(const std::wstring& progId, ComPtr<IDispatch>& object) {
  CLSID id{};
  const HRESULT named = CLSIDFromProgID(progId.c_str(), &id);
  if (FAILED(named)) return named;
  return CoCreateInstance(id, nullptr, kContexts, IID_PPV_ARGS(object.GetAddressOf()));
}

}  // namespace

std::unique_ptr<data::SessionServer> CreateSessionServer(std::wstring_view progId,
                                                         const ServerTexts& texts) {
  const std::wstring name(progId);
  ComPtr<IDispatch> object;
  HRESULT result = E_UNEXPECTED;
  const DWORD exception = Guarded([&]() noexcept { result = Create(name, object); });
  if (exception != 0) throw data::RunTimeError(static_cast<long>(exception), texts.lost);
  if (FAILED(result)) RaiseFault(FaultBehind(result, name), result, texts);
  return std::make_unique<SessionServerAdapter>(std::move(object), texts);
}

}  // namespace com
