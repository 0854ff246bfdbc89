#include "com/ComConnection.h"

#include <utility>

#include "automation/Bstr.h"
#include "automation/Variant.h"
#include "com/ComResultSet.h"
#include "com/Conversion.h"

using automation::Argument;
using automation::Bstr;
using automation::Variant;

namespace com {
namespace {

constexpr std::int32_t kUnknownCount = -1;

}  // namespace

std::unique_ptr<data::ResultSet> ComConnection::OpenResultSet(std::wstring_view statement) {
  const Bstr text(statement);
  RemoteObject rows = object_.Open(Member::kOpenResultSet, Argument(text));
  kinds_.Recognize(rows);
  return std::make_unique<ComResultSet>(std::move(rows));
}

// A server that does not count answers with nothing or with a null.
std::int32_t ComConnection::Execute(std::wstring_view statement) {
  const Bstr text(statement);
  Variant affected;
  object_.Read(Member::kExecute, affected, Argument(text));
  return IsNothing(affected) ? kUnknownCount : ToInteger(affected);
}

void ComConnection::BeginRead() {
  object_.CallIfThere(Member::kBeginRead);
  if (object_.Observer() != nullptr) object_.Observer()->ReadBegins();
}

// Over is what failed to end, too.
void ComConnection::EndRead() {
  if (object_.Observer() != nullptr) object_.Observer()->ReadEnds();
  object_.CallIfThere(Member::kEndRead);
}

}  // namespace com
