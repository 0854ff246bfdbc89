// What the user does in the checklist chooser, and what becomes of it.

#include <limits>

#include "app/ErrorReport.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "dialogs/ListItems.h"
#include "dialogs/frmListItem.h"

namespace dialogs {

void frmListItem::List1_Click() {
  const int count = GetCountSelect();
  cmdBtn[0].SetEnabled(count != List1.ListCount());
  cmdBtn[1].SetEnabled(count != 0 || count == List1.ListCount());
}

// The buttons are left as the click has it, in an empty list too, where nothing has changed. The
// one that is disabled now hands the focus to the other, which undoes it.
void frmListItem::cmdBtn_Click(int Index) {
  bChanged = true;
  const bool hadFocus = cmdBtn[Index].HasFocus();
  if (Index == 0) {
    SelectAllRecord();
  } else {
    DeselectAllRecord();
  }
  cmdBtn[1 - Index].SetEnabled(true);
  if (hadFocus) cmdBtn[1 - Index].SetFocus();
  cmdBtn[Index].SetEnabled(false);
}

std::int16_t frmListItem::GetCountSelect() {
  try {
    const int count = List1.SelCount();
    if (count > std::numeric_limits<std::int16_t>::max()) {
      throw data::RunTimeError(data::kOverflow);
    }
    return static_cast<std::int16_t>(count);
  } catch (...) {
    app::ReportError(exchange_.global, L"GetCountSelect");
    return 0;
  }
}

void frmListItem::SelectAllRecord() {
  try {
    CheckAll(List1, true);
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectAllRecord");
  }
}

void frmListItem::DeselectAllRecord() {
  try {
    CheckAll(List1, false);
  } catch (...) {
    app::ReportError(exchange_.global, L"DeselectAllRecord");
  }
}

void frmListItem::cmdOK_Click() {
  exchange_.AddNode = false;
  if (GetCountSelect() != 0) {
    data::ExitStatus status = data::kFailed;
    UpdateData(RelationName, status);
    exchange_.AddNode = status == data::kDone;
  }
  Close();
}

// Each link is written by itself: a failure leaves those before it in place.
void frmListItem::UpdateData(const std::wstring& relationName, data::ExitStatus& status) {
  status = data::kFailed;
  try {
    const Relation relation = RelationOf(relationName);
    for (int i = 0; i < List1.ListCount(); ++i) {
      if (List1.Selected(i)) AddLink(relation, List1.ItemData(i));
    }
    status = data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"UpdateData");
  }
}

std::wstring frmListItem::LinkStatement(Relation relation, std::int32_t itemData) const {
  switch (relation) {
    case Relation::kUserGroups:
      // The ids stand in each other's place. That does no harm: the rows are never read, the result
      // set is only where a row is added.
      return data::SqlSelectMembership(OwnerID, itemData);
    case Relation::kUserPermissions:
      return data::SqlSelectUserPermission(OwnerID, itemData);
    default:
      return data::SqlSelectGroupPermission(OwnerID, itemData);
  }
}

void frmListItem::AddLink(Relation relation, std::int32_t itemData) {
  const auto rows = Connection().OpenResultSet(LinkStatement(relation, itemData));
  rows->AddNew();
  rows->SetColumn(0, OwnerID);
  rows->SetColumn(1, itemData);
  rows->Update();
}

}  // namespace dialogs
