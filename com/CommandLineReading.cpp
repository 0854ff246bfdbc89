#include "com/CommandLineReading.h"

#include "com/ComError.h"
#include "com/Conversion.h"
#include "com/SessionServerMembers.h"
#include "data/RunTimeError.h"

namespace com {
namespace {

VARIANT Reference(BSTR* text) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_BSTR;
  argument.pbstrVal = text;
  return argument;
}

VARIANT Reference(LONG* number) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_I4;
  argument.plVal = number;
  return argument;
}

VARIANT Reference(VARIANT* value) {
  VARIANT argument;
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = value;
  return argument;
}

// The server may put a reference of its own where a value is wanted.
void FollowReference(Variant& value) {
  if ((value.vt & VT_BYREF) == 0) return;
  Variant plain;
  CheckConversion(VariantCopyInd(&plain, &value));
  value = std::move(plain);
}

// The way of a server that has its arguments typed. False when it wants them otherwise.
bool ReadTyped(LateBound& server, const Bstr& line, std::wstring& sessionText,
               std::int32_t& sessionId) {
  Bstr text;
  LONG id = 0;
  const HRESULT answer = server.TryCall(kReadCommandLine, nullptr, Argument(line),
                                        Reference(text.Out()), Reference(&id));
  if (answer == DISP_E_TYPEMISMATCH || answer == DISP_E_BADVARTYPE) return false;
  server.Check(kReadCommandLine, answer);
  sessionText = text.View();
  sessionId = id;
  return true;
}

// The way of a script, whose variables hold anything.
void ReadUntyped(LateBound& server, const Bstr& line, std::wstring& sessionText,
                 std::int32_t& sessionId) {
  Variant text;
  Variant id;
  server.Call(kReadCommandLine, nullptr, Argument(line), Reference(&text), Reference(&id));
  FollowReference(text);
  FollowReference(id);
  sessionText = ToText(text);
  sessionId = ToInteger(id);
}

}  // namespace

void ReadCommandLine(LateBound& server, std::wstring_view commandLine, std::wstring& sessionText,
                     std::int32_t& sessionId) {
  const Bstr line(commandLine);
  if (ReadTyped(server, line, sessionText, sessionId)) return;
  ReadUntyped(server, line, sessionText, sessionId);
}

}  // namespace com
