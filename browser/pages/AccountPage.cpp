#include "browser/pages/AccountPage.h"

#include <set>

#include "app/MQVXMsgBox.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/pages/WaitPointer.h"
#include "browser/rules/ButtonRules.h"
#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"
#include "controls/Desktop.h"

namespace browser {

using controls::NodeId;

AccountPage::AccountPage(controls::Form& form, const PageLayout& layout, const PageContext& context)
    : PageView(form, layout),
      lookup(context.trees.global, TreeView1),
      context_(context.trees),
      exchange_(context.exchange),
      host_(context.host),
      images_(context.images) {}

void AccountPage::Load() {
  filter_ = {};
  SetControls(Global(), images_);
  SetEvents();
}

void AccountPage::SetEvents() {
  txtFind.Change = [this] { txtFind_Change(); };
  TreeView1.NodeClick = [this](NodeId) { RefreshSelection(); };
  TreeView1.ContextMenu = [this](NodeId node) { TreeView1_ContextMenu(node); };
  TreeView1.DblClick = [this](NodeId node) { GoToAccount(node); };
  TreeView1.Copy = [this](NodeId node) { TreeView1_Copy(node); };
  TreeView1.Expand = [this](NodeId node) { TreeView1_Expand(node, true); };
  TreeView1.Collapse = [this](NodeId node) { TreeView1_Expand(node, false); };
}

app::Outcome AccountPage::Fill(app::KeptError& error) {
  const controls::TreeView::Update update(TreeView1);
  TreeView1.SetImageList(images_);
  TreeView1.Clear();
  const NodeId root = TreeView1.Add(controls::kNoNode, kRootKey, 0,
                                    Global().LoadResString(layout_.accountCaption), kFolderClosed);
  TreeView1.SetSorted(root, true);
  accountCount = 0;
  const app::Outcome outcome = Accounts().BuildAll(error);
  TreeView1.SetSelectedNode(root);
  TreeView1.SetExpanded(root, true);
  return outcome;
}

void AccountPage::Rebuild(const std::function<app::Outcome()>& work) {
  const WaitPointer wait(Global().desktop);
  if (work() == app::Outcome::kFailed) host_.TellMissing(Missing::kLeaves);
}

void AccountPage::RebuildAndReveal(const Selection& at, const controls::KeyForm& folder,
                                   const std::function<app::Outcome()>& work) {
  const controls::TreeNodes& nodes = TreeView1.Nodes();
  std::set<std::int32_t> before;
  const auto leaves = [&](const std::function<bool(NodeId leaf)>& see) {
    const NodeId parent = nodes.FindChild(at.account, folder, 0);
    if (parent == controls::kNoNode) return;
    for (const NodeId leaf : nodes.ChildrenInOrder(parent)) {
      if (!see(leaf)) return;
    }
  };
  leaves([&](NodeId leaf) { return before.insert(nodes.Id(leaf)).second; });
  Rebuild(work);
  leaves([&](NodeId leaf) {
    const bool known = before.contains(nodes.Id(leaf));
    if (!known) TreeView1.EnsureVisible(leaf);
    return known;
  });
}

// What was selected may have gone.
void AccountPage::BringInStep(Change change) {
  Rebuild([&] { return Update(change); });
  RefreshSelection();
}

std::wstring AccountPage::KeyOf(NodeId node) const {
  return node == controls::kNoNode ? std::wstring() : TreeView1.Nodes().Key(node);
}

std::wstring AccountPage::OriginOf(NodeId /*node*/) const {
  return {};
}

void AccountPage::ClearSelection() {
  exchange_.UserName.clear();
  exchange_.GroupName.clear();
  selectedPermName.clear();
  exchange_.UserID = -1;
  exchange_.GroupID = -1;
  selectedPermId = -1;
}

void AccountPage::ResetButtons(std::wstring_view tag) {
  const ButtonRule rule = ButtonRuleOf(layout_.tab, tag, NamesAreKnown());
  Switch(fraAccount, cmdAccount[kEditButton], rule.edit);
  Switch(fraAccount, cmdAccount[kDeleteButton], rule.remove);
  Switch(fraAccount, cmdAccount[kNewButton], rule.create);
  Switch(fraFirst, cmdFirst[kAssignButton], rule.assignFirst);
  Switch(fraFirst, cmdFirst[kRemoveButton], rule.removeFirst);
  Switch(fraSecond, cmdSecond[kAssignButton], rule.assignSecond);
  Switch(fraSecond, cmdSecond[kRemoveButton], rule.removeSecond);
}

void AccountPage::Switch(const controls::Frame& section, controls::CommandButton& button,
                         const WhyOff& why) {
  button.SetEnabled(!why);
  button.SetWhyDisabled(TextOf(why, section.Caption()));
}

std::wstring AccountPage::TextOf(const WhyOff& why, const std::wstring& section) const {
  if (!why) return {};
  std::wstring text = app::FillIn(Global().LoadResString(why.text), {section});
  if (why.more == 0) return text;
  if (!text.ends_with(L' ')) text += L' ';
  return text + Global().LoadResString(why.more);
}

void AccountPage::RefreshSelection() {
  const NodeId node = TreeView1.SelectedNode();
  TakeIn(node);
  Protect(node);
  host_.ShowStatus();
}

void AccountPage::ShowNode(NodeId node) {
  TreeView1.SetSelectedNode(node);
  RefreshSelection();
  TreeView1.SetFocus();
}

// Commands go by what is selected at the moment they are given, not by what was when the selection
// last changed.
AccountPage::Selection AccountPage::ReadSelection() {
  Selection at;
  at.node = TreeView1.SelectedNode();
  at.key = KeyOf(at.node);
  at.tag = lookup.GetTypeNode(at.key);
  at.account = OwnerOf(at.tag, at.node);
  if (at.account != controls::kNoNode) at.id = TreeView1.Nodes().Id(at.account);
  SelectedID() = at.id;
  exchange_.AddNode = false;
  exchange_.accountGone = false;
  exchange_.linksAdded = 0;
  exchange_.membersRemoved = false;
  Protect(at.node);
  return at;
}

app::JournalEntry::Account AccountPage::Concerned(const Selection& at) const {
  const data::Table table =
      layout_.accountCaption == app::kUsers ? data::Table::kUsers : data::Table::kGroups;
  if (at.id == -1) return {table, -1, {}};
  return {table, at.id, NameOf(at.account)};
}

// A button that was clicked has the focus, and its letters: a letter typed to find an account would
// press another button.
void AccountPage::Run(const std::function<bool(const Selection& at)>& command) {
  done_.clear();
  const Selection at = ReadSelection();
  app::Journal& journal = context_.global.journal;
  app::Journal::Command journaled(journal, Concerned(at));
  if (command(at)) RefreshSelection();
  journaled.Finish(done_, exchange_.AddNode || !done_.empty());
  host_.ShowDone(done_);
  TreeView1.SetFocus();
  if (journal.TakeTrouble()) {
    app::MQVXMsgBox(Global()).ShowInformation(
        app::FillIn(Global().LoadResString(app::kJournalTrouble1), {journal.Folder()}) + L"\r\n" +
        Global().LoadResString(app::kJournalTrouble2));
  }
}

}  // namespace browser
