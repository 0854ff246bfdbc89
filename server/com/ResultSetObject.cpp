#include "server/com/ResultSetObject.h"

#include <utility>

#include "server/com/Answer.h"
#include "server/com/Identity.h"

using Microsoft::WRL::ComPtr;

namespace server::com {
namespace {

enum ResultSetDispId : DISPID {
  kEndOfRows = 1,
  kColumn,
  kMoveNext,
  kMoveFirst,
  kAddNew,
  kEdit,
  kSetColumn,
  kUpdate,
  kClose,
};

constexpr Member kMembers[] = {
    {L"EndOfRows", 0}, {L"Column", 1},    {L"MoveNext", 0}, {L"MoveFirst", 0}, {L"AddNew", 0},
    {L"Edit", 0},      {L"SetColumn", 2}, {L"Update", 0},   {L"Close", 0},
};

}  // namespace

ResultSetObject::ResultSetObject(ComPtr<IDispatch> connection,
                                 std::unique_ptr<data::ResultSet> rows)
    : DispatchObject(kResultSetId, kMembers),
      connection_(std::move(connection)),
      rows_(std::move(rows)) {}

void ResultSetObject::Run(DISPID id, Arguments& arguments, VARIANT& answer) {
  switch (id) {
    case kEndOfRows:
      return Put(answer, rows_->EndOfRows());
    case kColumn:
      return Put(answer, rows_->Column(arguments.Integer(0)));
    case kMoveNext:
      return rows_->MoveNext();
    case kMoveFirst:
      return rows_->MoveFirst();
    case kAddNew:
      return rows_->AddNew();
    case kEdit:
      return rows_->Edit();
    case kSetColumn:
      return SetColumn(arguments);
    case kUpdate:
      return rows_->Update();
    case kClose:
      return rows_->Close();
  }
}

void ResultSetObject::SetColumn(Arguments& arguments) {
  const data::FieldValue value = arguments.Field(1);
  if (arguments.IsText(0)) {
    rows_->SetColumn(arguments.Text(0), value);
  } else {
    rows_->SetColumn(arguments.Integer(0), value);
  }
}

}  // namespace server::com
