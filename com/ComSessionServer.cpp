#include "com/ComSessionServer.h"

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <string>

#include "com/ClassFault.h"
#include "com/ErrorObject.h"
#include "com/FailureNumber.h"
#include "com/SessionServerAdapter.h"
#include "data/RunTimeError.h"

namespace com {
namespace {

// A server may run in this process or in one of its own.
constexpr DWORD kContexts = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

// text: what the maker of the object said about its failure.
[[noreturn]] void RaiseFault(ClassFault fault, HRESULT result, const ServerTexts& texts,
                             const std::wstring& text) {
  switch (fault) {
    case ClassFault::kNotRegistered:
      throw data::RunTimeError(data::kCannotCreateObject, texts.notRegistered);
    case ClassFault::kForUserOnly:
      throw data::RunTimeError(data::kCannotCreateObject, texts.forUserOnly);
    case ClassFault::kFileMissing:
      throw data::RunTimeError(data::kCannotCreateObject, texts.fileMissing);
    case ClassFault::kWrongBitness:
      throw data::RunTimeError(data::kCannotCreateObject, texts.wrongBitness);
    case ClassFault::kNone:
      break;
  }
  if (result == E_NOINTERFACE) throw data::RunTimeError(data::kNoAutomation);
  throw data::RunTimeError(FailureNumber(result), text);
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

// An error object that is older than the call would be taken for the maker's.
HRESULT Create(const std::wstring& progId, IDispatch*& object) {
  CLSID id{};
  const HRESULT named = CLSIDFromProgID(progId.c_str(), &id);
  if (FAILED(named)) return named;
  SetErrorInfo(0, nullptr);
  return CoCreateInstance(id, nullptr, kContexts, __uuidof(IDispatch),
                          reinterpret_cast<void**>(&object));
}

std::wstring TextOfMaker(ServerState& server) {
  const ErrorObject error(server);
  return error.IsThere() ? error.Text() : std::wstring();
}

}  // namespace

std::unique_ptr<data::SessionServer> CreateSessionServer(std::wstring_view progId,
                                                         const ServerTexts& texts,
                                                         CallObserver* observer) {
  const std::wstring name(progId);
  auto server = std::make_shared<ServerState>(texts, observer);
  IDispatch* object = nullptr;
  HRESULT result = E_UNEXPECTED;
  server->Touch([&]() noexcept { result = Create(name, object); });
  if (FAILED(result)) {
    const std::wstring text = TextOfMaker(*server);
    RaiseFault(FaultBehind(result, name), result, texts, text);
  }
  return std::make_unique<SessionServerAdapter>(RemoteObject(object, std::move(server)));
}

}  // namespace com
