#include "dialogs/frmListItem.h"

#include <limits>
#include <unordered_map>

#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "resources/ResourceIds.h"

namespace dialogs {

using controls::ListBox;

frmListItem::frmListItem(Exchange& exchange)
    : EditingDialog(exchange, IDD_LIST_ITEM),
      lbl1(*this, IDC_LBL_LIST_ITEM),
      Frame1(*this, IDC_FRA_LIST_ITEM),
      List1(*this, IDC_LIST_LIST_ITEM, ListBox::Kind::kChecked),
      cmdBtn{{*this, IDC_CMD_LIST_ITEM}, {*this, IDC_CMD_LIST_ITEM + 1}},
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON) {}

app::Outcome frmListItem::LoadDialog() {
  SettingControls();
  const Relation relation = CheckedRelation();
  AddCandidates();
  if (SelectedListItem(OwnedStatement(relation)) == app::Outcome::kFailed) {
    return app::Outcome::kFailed;
  }
  // The space bar is to check the first item at once.
  List1.SetListIndex(0);
  List1.SetFocus();
  return app::Outcome::kDone;
}

void frmListItem::SettingControls() {
  SetUpWindow(Text(app::kChoicesTitle) + ListKind, cmdOK, cmdCancel, Command1);
  lbl1.SetCaption(Text(app::kCheckItems));
  cmdBtn[kCheckAll].SetCaption(Text(app::kAll));
  cmdBtn[kCheckNone].SetCaption(Text(app::kNone));
  SetLayout();
  SetEvents();
}

// The list takes what the window gains.
void frmListItem::SetLayout() {
  using namespace controls;
  const unsigned all = kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom;
  lbl1.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  Frame1.SetAnchors(all);
  List1.SetAnchors(all);
  for (CommandButton& button : cmdBtn) button.SetAnchors(kAnchorLeft | kAnchorBottom);
}

void frmListItem::SetEvents() {
  List1.ItemCheck = [this](int) { bChanged = true; };
  List1.Click = [this] { List1_Click(); };
  for (int Index : {kCheckAll, kCheckNone}) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

bool frmListItem::ListsGroups() const {
  return ListKind == Text(app::kGroups);
}

app::HelpTopic frmListItem::Topic() const {
  return ListsGroups() ? app::kTopicListGroups : app::kTopicListPermissions;
}

frmListItem::Relation frmListItem::RelationOf(const std::wstring& name) const {
  if (name == Text(app::kMemberOf)) return Relation::kUserGroups;
  if (name == Text(app::kUserPermissions)) return Relation::kUserPermissions;
  if (name == Text(app::kGroupPermissions)) return Relation::kGroupPermissions;
  throw data::RunTimeError(data::kInvalidProcedureCall);
}

// Groups written as permissions, or the other way round, would be links to whatever has the number.
frmListItem::Relation frmListItem::CheckedRelation() const {
  const Relation relation = RelationOf(RelationName);
  const bool groups = ListsGroups();
  const bool known = groups || ListKind == Text(app::kPermissions);
  if (!known || groups != (relation == Relation::kUserGroups)) {
    throw data::RunTimeError(data::kInvalidProcedureCall);
  }
  return relation;
}

void frmListItem::AddCandidates() {
  const bool groups = ListsGroups();
  FillList(
      List1, Connection(), groups ? data::SqlSelectAllGroups() : data::SqlSelectAllPermissions(),
      [&](std::int32_t, const std::wstring& name) {
        return Server().GetDisplayName(name, groups ? data::kGroupName : data::kPermissionName);
      });
}

std::wstring frmListItem::OwnedStatement(Relation relation) const {
  switch (relation) {
    case Relation::kUserGroups:
      return data::SqlSelectUserGroupIds(OwnerID);
    case Relation::kUserPermissions:
      return data::SqlSelectUserPermIds(OwnerID);
    default:
      return data::SqlSelectGroupPermIds(OwnerID);
  }
}

// Each row takes out the first item of its id that is left. The list is filled again instead of
// losing them one by one, each of which would move all the others.
app::Outcome frmListItem::SelectedListItem(std::wstring_view statement) {
  return Reported(L"SelectedListItem", [&] {
    std::unordered_map<std::int32_t, int> owned;
    const auto rows = Connection().OpenResultSet(statement);
    for (; !rows->EndOfRows(); rows->MoveNext()) ++owned[rows->Column(0).Integer()];
    rows->Close();
    std::vector<ListItem> left;
    for (ListItem& item : Items(List1)) {
      const auto found = owned.find(item.itemData);
      if (found == owned.end() || found->second-- <= 0) left.push_back(std::move(item));
    }
    if (static_cast<int>(left.size()) < List1.ListCount()) SetItems(List1, left);
  });
}

void frmListItem::List1_Click() {
  const int count = GetCountSelect();
  EnableButton(cmdBtn[kCheckAll], count != List1.ListCount(), List1);
  EnableButton(cmdBtn[kCheckNone], count != 0 || count == List1.ListCount(), List1);
}

// The buttons are left as the click has it, in an empty list too, where nothing has changed.
void frmListItem::cmdBtn_Click(int Index) {
  bChanged = true;
  if (Index == kCheckAll) {
    CheckAllReported(L"SelectAllRecord", List1, true);
  } else {
    CheckAllReported(L"DeselectAllRecord", List1, false);
  }
  EnableButton(cmdBtn[kCheckAll], Index != kCheckAll, List1);
  EnableButton(cmdBtn[kCheckNone], Index != kCheckNone, List1);
}

std::int16_t frmListItem::GetCountSelect() {
  return app::ReportedOr(exchange_.global, L"GetCountSelect", std::int16_t{0}, [this] {
    const int count = List1.SelCount();
    if (count > std::numeric_limits<std::int16_t>::max()) {
      throw data::RunTimeError(data::kOverflow);
    }
    return static_cast<std::int16_t>(count);
  });
}

void frmListItem::cmdOK_Click() {
  exchange_.AddNode = GetCountSelect() != 0 && UpdateData(RelationName) == app::Outcome::kDone;
  Close();
}

// Each link is written by itself: a failure leaves those before it in place.
app::Outcome frmListItem::UpdateData(const std::wstring& relationName) {
  return Reported(L"UpdateData", [&] {
    const Relation relation = RelationOf(relationName);
    for (const std::int32_t id : SelectedData(List1)) {
      AddLink(relation, id);
      ++exchange_.linksAdded;
    }
  });
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
