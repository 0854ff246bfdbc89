#include "server/com/ResultSetObject.h"

#include <utility>

#include "server/com/Answer.h"
#include "server/com/Identity.h"

using Microsoft::WRL::ComPtr;

namespace server::com {

const std::array<Member, 9> ResultSetObject::kMembers = {{
    {L"EndOfRows", 1, 0, Handle<ResultSetObject, &ResultSetObject::EndOfRows>},
    {L"Column", 2, 1, Handle<ResultSetObject, &ResultSetObject::Column>},
    {L"MoveNext", 3, 0, Handle<ResultSetObject, &ResultSetObject::MoveNext>},
    {L"MoveFirst", 4, 0, Handle<ResultSetObject, &ResultSetObject::MoveFirst>},
    {L"AddNew", 5, 0, Handle<ResultSetObject, &ResultSetObject::AddNew>},
    {L"Edit", 6, 0, Handle<ResultSetObject, &ResultSetObject::Edit>},
    {L"SetColumn", 7, 2, Handle<ResultSetObject, &ResultSetObject::SetColumn>},
    {L"Update", 8, 0, Handle<ResultSetObject, &ResultSetObject::Update>},
    {L"Close", 9, 0, Handle<ResultSetObject, &ResultSetObject::Close>},
}};

ResultSetObject::ResultSetObject(ComPtr<IDispatch> connection,
                                 std::unique_ptr<data::ResultSet> rows)
    : DispatchObject(kResultSetId, kMembers),
      connection_(std::move(connection)),
      rows_(std::move(rows)) {}

void ResultSetObject::EndOfRows(Arguments&, VARIANT& answer) {
  Put(answer, rows_->EndOfRows());
}

void ResultSetObject::Column(Arguments& arguments, VARIANT& answer) {
  Put(answer, rows_->Column(arguments.Integer(0)));
}

void ResultSetObject::MoveNext(Arguments&, VARIANT&) {
  rows_->MoveNext();
}

void ResultSetObject::MoveFirst(Arguments&, VARIANT&) {
  rows_->MoveFirst();
}

void ResultSetObject::AddNew(Arguments&, VARIANT&) {
  rows_->AddNew();
}

void ResultSetObject::Edit(Arguments&, VARIANT&) {
  rows_->Edit();
}

void ResultSetObject::SetColumn(Arguments& arguments, VARIANT&) {
  const data::FieldValue value = arguments.Field(1);
  if (arguments.IsText(0)) {
    rows_->SetColumn(arguments.Text(0), value);
  } else {
    rows_->SetColumn(arguments.Integer(0), value);
  }
}

void ResultSetObject::Update(Arguments&, VARIANT&) {
  rows_->Update();
}

void ResultSetObject::Close(Arguments&, VARIANT&) {
  rows_->Close();
}

}  // namespace server::com
