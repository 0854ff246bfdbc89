#include "dialogs/frmListItem.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "app/ErrorReport.h"
#include "app/LocaleFont.h"
#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "dialogs/ListItems.h"
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

void frmListItem::Form_Load() {
  try {
    SettingControls();
    const Relation relation = CheckedRelation();
    AddCandidates();
    data::ExitStatus status = data::kFailed;
    SelectedListItem(OwnedStatement(relation), status);
    if (status == data::kFailed) {
      Close();
      return;
    }
    // The space bar is to check the first item at once.
    List1.SetListIndex(0);
    List1.SetFocus();
    bChanged = false;
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    Close();
  }
}

void frmListItem::SettingControls() {
  const auto text = [this](int id) { return exchange_.global.LoadResString(id); };
  app::SetLocaleFont(*this);
  SetCaption(text(app::kChoicesTitle) + ListKind);
  SetIcon(IDI_PROGRAM);
  lbl1.SetCaption(text(app::kCheckItems));
  cmdBtn[0].SetCaption(text(app::kAll));
  cmdBtn[1].SetCaption(text(app::kNone));
  SetDialogButtons(cmdOK, cmdCancel, Command1);
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
  for (CommandButton* button : {&cmdOK, &cmdCancel, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
}

void frmListItem::SetEvents() {
  List1.ItemCheck = [this](int) { bChanged = true; };
  List1.Click = [this] { List1_Click(); };
  for (int Index : {0, 1}) cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
}

bool frmListItem::ListsGroups() const {
  return ListKind == exchange_.global.LoadResString(app::kGroups);
}

app::HelpTopic frmListItem::Topic() const {
  return ListsGroups() ? app::kTopicListGroups : app::kTopicListPermissions;
}

frmListItem::Relation frmListItem::RelationOf(const std::wstring& name) const {
  const auto text = [this](int id) { return exchange_.global.LoadResString(id); };
  if (name == text(app::kMemberOf)) return Relation::kUserGroups;
  if (name == text(app::kUserPermissions)) return Relation::kUserPermissions;
  if (name == text(app::kGroupPermissions)) return Relation::kGroupPermissions;
  throw data::RunTimeError(data::kInvalidProcedureCall);
}

// Groups written as permissions, or the other way round, would be links to whatever has the number.
frmListItem::Relation frmListItem::CheckedRelation() const {
  const Relation relation = RelationOf(RelationName);
  const bool groups = ListsGroups();
  const bool known = groups || ListKind == exchange_.global.LoadResString(app::kPermissions);
  if (!known || groups != (relation == Relation::kUserGroups)) {
    throw data::RunTimeError(data::kInvalidProcedureCall);
  }
  return relation;
}

void frmListItem::AddCandidates() {
  const bool groups = ListsGroups();
  const ListBox::Update update(List1);
  const auto rows = Connection().OpenResultSet(groups ? data::SqlSelectAllGroups()
                                                      : data::SqlSelectAllPermissions());
  List1.Clear();
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    const std::int32_t id = rows->Column(0).Integer();
    const std::wstring name = rows->Column(1).Text();
    const data::DisplayCode code = groups ? data::kGroupName : data::kPermissionName;
    List1.AddItem(exchange_.global.SessionServer->GetDisplayName(name, code), id);
  }
  rows->Close();
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

// Each row takes out the first item of its id that is left. The list is made anew instead of losing
// them one by one, each of which would move all the others.
void frmListItem::SelectedListItem(std::wstring_view statement, data::ExitStatus& status) {
  status = data::kFailed;
  try {
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
    status = data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectedListItem");
  }
}

}  // namespace dialogs
