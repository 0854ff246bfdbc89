#include "com/ComConnection.h"

#include <cstddef>
#include <utility>

#include "com/ComResultSet.h"
#include "com/Conversion.h"

using Microsoft::WRL::ComPtr;

namespace com {
namespace {

enum ConnectionMember : std::size_t { kOpenResultSet, kExecute, kBeginRead, kEndRead };

constexpr const wchar_t* kConnectionNames[] = {L"OpenResultSet", L"Execute", L"BeginRead",
                                               L"EndRead"};

constexpr std::int32_t kUnknownCount = -1;

}  // namespace

ComConnection::ComConnection(ComPtr<IDispatch> object, std::shared_ptr<ServerFate> fate)
    : object_(std::move(object), std::make_shared<MemberIds>(kConnectionNames), std::move(fate)) {}

std::unique_ptr<data::ResultSet> ComConnection::OpenResultSet(std::wstring_view statement) {
  const Bstr text(statement);
  Variant opened;
  object_.Call(kOpenResultSet, &opened, Argument(text));
  ComPtr<IDispatch> rows = object_.ObjectIn(opened);
  std::shared_ptr<MemberIds> ids = kinds_.For(rows.Get(), *object_.Fate());
  return std::make_unique<ComResultSet>(LateBound(std::move(rows), std::move(ids), object_.Fate()));
}

std::int32_t ComConnection::Execute(std::wstring_view statement) {
  const Bstr text(statement);
  Variant affected;
  object_.Read(kExecute, affected, Argument(text));
  return affected.vt == VT_EMPTY ? kUnknownCount : ToInteger(affected);
}

void ComConnection::BeginRead() {
  object_.CallIfThere(kBeginRead);
}

void ComConnection::EndRead() {
  object_.CallIfThere(kEndRead);
}

}  // namespace com
