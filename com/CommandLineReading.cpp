#include "com/CommandLineReading.h"

#include "automation/Bstr.h"
#include "automation/Variant.h"
#include "com/Conversion.h"

using automation::Argument;
using automation::Bstr;
using automation::Reference;
using automation::Variant;

namespace com {
namespace {

// The way of a server that has its arguments typed. False when it wants them otherwise.
bool ReadTyped(RemoteObject& server, const Bstr& line, std::wstring& sessionText,
               std::int32_t& sessionId) {
  Bstr text;
  LONG id = 0;
  const HRESULT answer = server.TryCall(Member::kReadCommandLine, Argument(line),
                                        Reference(text.Out()), Reference(&id));
  if (answer == DISP_E_TYPEMISMATCH || answer == DISP_E_BADVARTYPE) return false;
  server.Check(Member::kReadCommandLine, answer);
  sessionText = text.View();
  sessionId = id;
  return true;
}

// The way of a script, whose variables hold anything.
void ReadUntyped(RemoteObject& server, const Bstr& line, std::wstring& sessionText,
                 std::int32_t& sessionId) {
  Variant text;
  Variant id;
  server.Call(Member::kReadCommandLine, Argument(line), Reference(&text), Reference(&id));
  // The server may put a reference, or an object, where a value is wanted.
  server.MakePlain(text);
  server.MakePlain(id);
  sessionText = ToText(text);
  sessionId = ToInteger(id);
}

}  // namespace

void ReadCommandLine(RemoteObject& server, std::wstring_view commandLine, std::wstring& sessionText,
                     std::int32_t& sessionId) {
  const Bstr line(commandLine);
  if (ReadTyped(server, line, sessionText, sessionId)) return;
  ReadUntyped(server, line, sessionText, sessionId);
}

}  // namespace com
