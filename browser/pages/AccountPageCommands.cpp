// The steps that the commands of both pages have in common.

#include "app/MQVXMsgBox.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/pages/AccountPage.h"
#include "browser/pages/DeleteRecord.h"
#include "browser/rules/AccountName.h"
#include "browser/trees/AccountRows.h"
#include "controls/Desktop.h"
#include "data/Text.h"
#include "dialogs/frmListItem.h"

namespace browser {

using controls::NodeId;

bool AccountPage::WarnUnselected(const Selection& at, int text, int style) {
  if (at.id != -1) return false;
  Global().desktop.MsgBox(Global().LoadResString(text), style, Global().LoadResString(app::kTitle));
  return true;
}

std::wstring AccountPage::NameOf(NodeId account) const {
  return AccountName(TreeView1.Nodes(), account);
}

void AccountPage::TellDone(int text, std::initializer_list<std::wstring> values) {
  done_ = app::FillIn(Global().LoadResString(text), values);
}

void AccountPage::TellAssigned(const Selection& at, int one, int many) {
  const int count = exchange_.linksAdded;
  TellDone(count > 1 ? many : one, {data::Decimal(count), NameOf(at.account)});
}

void AccountPage::ShowEdited(const Selection& at, const std::wstring& text,
                             const std::wstring& storedName) {
  TreeView1.SetText(at.account, text);
  TreeView1.SetStoredName(at.account, storedName);
  host_.BringOthersInStep(*this, Change::kAccounts);
}

OwnAccess AccountPage::Access() const {
  return {Global(), exchange_.usersTree.Nodes(), exchange_.groupsTree.Nodes(), context_.accounts};
}

bool AccountPage::Confirm(int question, bool ownAccessEnds) const {
  app::MQVXMsgBox box(Global());
  return box.AskYesNo(Global().LoadResString(question)) == controls::kResultYes &&
         (!ownAccessEnds || box.AskLoseOwnAccess() == controls::kResultYes);
}

void AccountPage::DeleteAccount(const Selection& at, int question, bool ownAccessEnds,
                                std::wstring (*markDeleted)(std::wstring_view name,
                                                            std::int32_t id)) {
  if (!Confirm(question, ownAccessEnds)) return;
  const std::wstring name = TreeView1.Nodes().StoredName(at.account);
  const std::wstring shownName = NameOf(at.account);
  const auto rows = DeleteRecord(Global(), markDeleted(name, at.id));
  if (!rows) return;
  if (*rows != 0) TellDone(layout_.deleted, {shownName});
  RemoveAccount(at.account);
  if (*rows == 0) TellChangedMeanwhile(Global());
}

void AccountPage::RemoveAccount(NodeId account) {
  --accountCount;
  TreeView1.Remove(account);
  host_.BringOthersInStep(*this, Change::kAccounts);
}

// Somebody else has deleted the account while its dialog was open.
void AccountPage::ForgetAccount(const Selection& at) {
  RemoveAccount(at.account);
  TellChangedMeanwhile(Global());
}

// An account that could not be read has no node, and its name would pass as free.
void AccountPage::ShowNew(std::int32_t id) {
  Rebuild([&] {
    const app::Outcome outcome = Accounts().BuildOne(id);
    const bool shown = Accounts().Find(id) != controls::kNoNode;
    if (outcome == app::Outcome::kFailed && !shown) host_.TellMissing(Missing::kAccounts);
    return outcome;
  });
  CountNew();
  const NodeId added = Accounts().Find(id);
  if (added != controls::kNoNode) {
    if (!TreeView1.Matches(added)) txtFind.SetText({});
    TreeView1.SetSelectedNode(added);
    TellDone(layout_.created, {NameOf(added)});
  }
  host_.BringOthersInStep(*this, Change::kAccounts);
}

// An account too many is in the database all the same, and the trees go on to show it.
void AccountPage::CountNew() {
  static_cast<void>(
      app::Reported(Global(), AccountProcedure(), [this] { CountOneMore(accountCount); }));
}

void AccountPage::ShowListItem(const std::wstring& listKind, const std::wstring& relation,
                               std::int32_t owner) {
  dialogs::frmListItem dialog(exchange_);
  dialog.ListKind = listKind;
  dialog.RelationName = relation;
  dialog.OwnerID = owner;
  dialog.ShowModal(TreeView1.Owner());
}

void AccountPage::RemoveLink(const Selection& at, const LinkKind& kind, bool ownAccessEnds,
                             const std::wstring& statement,
                             const std::function<app::Outcome()>& rebuildFolder,
                             const std::function<void()>& after) {
  if (at.tag != kind.leafTag) {
    app::MQVXMsgBox(Global()).ShowInformation(Global().LoadResString(kind.warning1) + L"\r\n" +
                                              Global().LoadResString(kind.warning2));
    return;
  }
  if (!Confirm(kind.question, ownAccessEnds)) return;
  const bool isAccount = kind.done != app::kPermissionRemoved;
  const std::wstring leaf = isAccount ? NameOf(at.node) : TreeView1.Nodes().Text(at.node);
  const auto rows = DeleteRecord(Global(), statement);
  if (!rows) return;
  if (*rows != 0) TellDone(kind.done, {leaf, NameOf(at.account)});
  if (*rows == 0) {
    Rebuild(rebuildFolder);
  } else {
    TreeView1.Remove(at.node);
  }
  after();
  if (*rows == 0) TellChangedMeanwhile(Global());
}

}  // namespace browser
