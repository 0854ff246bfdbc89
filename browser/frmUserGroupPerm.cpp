#include "browser/frmUserGroupPerm.h"

#include "app/LocaleFont.h"
#include "app/MQVXMsgBox.h"
#include "app/MShowHelp.h"
#include "app/StringIds.h"
#include "browser/StartUp.h"
#include "browser/evidence/RightsExport.h"
#include "browser/pages/WaitPointer.h"
#include "browser/rules/OwnAccess.h"
#include "browser/trees/TreeImages.h"
#include "controls/Desktop.h"
#include "controls/MsgBox.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/ReadScope.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace browser {
namespace {

// How often the status line tells how far a tree has been read.
constexpr std::chrono::milliseconds kProgressInterval{100};

constexpr const wchar_t* kExecutableName = L"uadmin.exe";

constexpr const wchar_t* kTabSetting = L"Tab";

// The buttons of the window's own row.
enum WindowButton : int { kRefreshButton, kExitButton };

}  // namespace

frmUserGroupPerm::frmUserGroupPerm(app::mGlobal& global)
    : Form(global.desktop, IDD_USER_GROUP_PERM),
      global_(global),
      context_{global, captions_, accounts,
               [this](int done, int total) { ShowProgress(done, total); }},
      ImageList1(global.desktop, TreeImageResources()),
      TabStrip1(*this, IDC_TAB),
      Users(*this, {context_, ImageList1, exchange, *this}),
      Groups(*this, {context_, ImageList1, exchange, *this}),
      lblStatus(*this, IDC_STATUS),
      lblSession(*this, IDC_SESSION),
      cmdBtn{{*this, IDC_CMD_BTN}, {*this, IDC_CMD_BTN + 1}},
      cmdAbout(*this, IDC_CMD_ABOUT),
      Command1(*this, IDC_HELP_BUTTON),
      exchange{global, Users.TreeView1, Groups.TreeView1} {}

void frmUserGroupPerm::Form_Load() {
  isStarted = false;
  history_.Clear();
  done_.clear();
  const app::Outcome outcome = app::Reported(global_, L"Form Load", [this] { return Start(); });
  if (outcome == app::Outcome::kFailed) {
    global_.startUpFailed = true;
    Unload();
  }
}

app::Outcome frmUserGroupPerm::Start() {
  app::SetLocaleFont(*this);
  SettingControls();
  ShowPage();
  SetAnchors();
  SetEvents();
  global_.helpFile = app::HelpFile(global_);
  StartUp startUp(global_);
  if (!startUp.AttachToSession()) {
    Unload();
    return app::Outcome::kDone;
  }
  if (!global_.sessionUserText.empty()) {
    lblSession.SetPlainCaption(
        app::FillIn(global_.LoadResString(app::kSessionUser), {global_.sessionUserText}));
  }
  // From here on there may be much to read, which the window shows.
  Show();
  if (startUp.FindAccounts(accounts) == app::Outcome::kFailed) return app::Outcome::kFailed;
  exchange.adminUserId = accounts.adminUserId;
  if (RefreshTree() == app::Outcome::kFailed) return app::Outcome::kFailed;
  GetCountPerm();
  ShowStatus();
  Shown().TreeView1.SetFocus();
  isStarted = true;
  return app::Outcome::kDone;
}

void frmUserGroupPerm::SettingControls() {
  const auto text = [this](int id) { return global_.LoadResString(id); };
  captions_ = TreeCaptions::Load(global_);
  SetCaption(text(app::kTitle));
  SetIcon(IDI_PROGRAM);
  TabStrip1.AddTab(text(app::kUsersTab));
  TabStrip1.AddTab(text(app::kGroupsTab));
  TabStrip1.SetSelectedTab(KeptTab());
  for (AccountPage* page : pages_) page->Load();
  cmdBtn[kRefreshButton].SetCaption(text(app::kRefresh));
  cmdBtn[kExitButton].SetCaption(text(app::kExit));
  cmdAbout.SetCaption(text(app::kAbout));
  Command1.SetCaption(text(app::kHelp));
  // Exit stands last in its row; the Tab key is to come to it last, too.
  cmdBtn[kExitButton].SetTabIndex(Command1.TabIndex());
  lblStatus.SetPlainCaption({});
  lblSession.SetPlainCaption({});
}

// The pages take what the window gains; the row of buttons keeps to its lower right corner.
void frmUserGroupPerm::SetAnchors() {
  using namespace controls;
  TabStrip1.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
  lblStatus.SetAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
  lblSession.SetAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
  for (CommandButton* button :
       {&cmdBtn[kRefreshButton], &cmdBtn[kExitButton], &cmdAbout, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
  KeepPlace(L"MainWindow", Kept::kPlace);
}

// The tab that was on view when the window was last closed.
int frmUserGroupPerm::KeptTab() const {
  const bool groups = global_.desktop.Setting(kTabSetting) == data::Decimal(kGroupsTab);
  return groups ? kGroupsTab : kUsersTab;
}

void frmUserGroupPerm::KeepTab() const {
  const int tab = TabStrip1.SelectedTab();
  if (isStarted && tab != KeptTab()) global_.desktop.KeepSetting(kTabSetting, data::Decimal(tab));
}

void frmUserGroupPerm::SetEvents() {
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  for (const int Index : {kRefreshButton, kExitButton}) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
  cmdAbout.Click = [this] { cmdAbout_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  AskBeforeOwnAccessEnds();
}

// A dialog's save may take from the session's user his own right to this program.
void frmUserGroupPerm::AskBeforeOwnAccessEnds() {
  using Ids = dialogs::Exchange::Ids;
  const auto access = [this] {
    return OwnAccess(global_, Users.TreeView1.Nodes(), Groups.TreeView1.Nodes(), accounts);
  };
  const auto goesOn = [this](bool ends) {
    return !ends || app::MQVXMsgBox(global_).AskLoseOwnAccess() == controls::kResultYes;
  };
  exchange.MaySaveUser = [=](std::int32_t user, const Ids& groups, const Ids& permissions) {
    return goesOn(access().EndsWithUser(user, groups, permissions));
  };
  exchange.MaySaveGroup = [=](std::int32_t group, const Ids& members, const Ids& permissions) {
    return goesOn(access().EndsWithGroup(group, members, permissions));
  };
  exchange.MayRemoveMembers = [=](std::int32_t group) {
    return goesOn(access().EndsWithoutGroup(group));
  };
}

void frmUserGroupPerm::TabStrip1_Click() {
  ShowPage();
  if (isStarted) Shown().RefreshSelection();
}

// What is hidden loses the focus; a tree hands it to the one that takes its place, and so does the
// box above it.
void frmUserGroupPerm::ShowPage() {
  AccountPage& shown = Shown();
  bool treeHadFocus = false;
  bool boxHadFocus = false;
  for (const AccountPage* page : pages_) {
    treeHadFocus |= page->TreeView1.HasFocus();
    boxHadFocus |= page->txtFind.HasFocus();
  }
  shown.ShowTree();
  if (treeHadFocus) shown.TreeView1.SetFocus();
  if (boxHadFocus) shown.txtFind.SetFocus();
  for (AccountPage* page : pages_) {
    if (page != &shown) page->Hide();
  }
  shown.ShowSections();
}

app::Outcome frmUserGroupPerm::RefreshTree() {
  leavesMissing_ = accountsMissing_ = true;
  done_.clear();
  const app::Outcome outcome =
      app::ReportedLater(global_, L"RefreshTree", [this](app::KeptError& error) {
        const WaitPointer wait(global_.desktop);
        data::ReadScope read(*global_.databaseConnection);
        const app::Outcome filled = FillPages(error);
        if (filled == app::Outcome::kDone) read.Finish();
        return filled;
      });
  if (outcome == app::Outcome::kDone) leavesMissing_ = accountsMissing_ = false;
  RefreshSelections();
  return outcome;
}

// A tree that cannot be read leaves the ones after it as they were.
app::Outcome frmUserGroupPerm::FillPages(app::KeptError& error) {
  for (AccountPage* page : pages_) {
    StartProgress(page->ReadingText());
    if (page->Fill(error) == app::Outcome::kFailed) return app::Outcome::kFailed;
  }
  return app::Outcome::kDone;
}

// The page on view comes last: its selection is what counts.
void frmUserGroupPerm::RefreshSelections() {
  for (AccountPage* page : pages_) {
    if (page != &Shown()) page->RefreshSelection();
  }
  Shown().RefreshSelection();
}

void frmUserGroupPerm::GetCountPerm() {
  permissionCount = app::ReportedOr(global_, L"GetCountPerm", permissionCount, [this] {
    return data::CountRows(*global_.databaseConnection, data::SqlSelectAllPermissions());
  });
}

void frmUserGroupPerm::BringOthersInStep(const AccountPage& page, Change change) {
  for (AccountPage* other : pages_) {
    if (other == &page) continue;
    StartProgress(other->UpdatingText());
    other->BringInStep(change);
  }
}

bool frmUserGroupPerm::Has(const Account& account) const {
  return Page(account.tab).NodeOf(account.id) != controls::kNoNode;
}

void frmUserGroupPerm::GoTo(const Account& account) {
  const controls::NodeId node = Page(account.tab).NodeOf(account.id);
  if (node == controls::kNoNode) return;
  history_.Push({TabStrip1.SelectedTab(), Shown().SelectedKey()});
  ShowNode(account.tab, node);
}

void frmUserGroupPerm::ExportRights() {
  RightsExport rights(global_, *this, Users.TreeView1.Nodes(), Groups.TreeView1.Nodes());
  if (!rights.AskWhere()) return;
  std::wstring told;
  {
    const WaitPointer wait(global_.desktop);
    StartProgress(app::kExporting);
    told = rights.Write(permissionCount, leavesMissing_ || accountsMissing_,
                        [this](int done, int total) { ShowProgress(done, total); });
  }
  ShowDone(told);
}

// What has been removed meanwhile is passed over.
bool frmUserGroupPerm::GoBack() {
  while (const std::optional<Place> place = history_.Pop()) {
    const controls::NodeId node = Page(place->tab).TreeView1.Nodes().Find(place->key);
    if (node == controls::kNoNode) continue;
    ShowNode(place->tab, node);
    return true;
  }
  return false;
}

void frmUserGroupPerm::ShowNode(int tab, controls::NodeId node) {
  TabStrip1.SetSelectedTab(tab);
  Page(tab).ShowNode(node);
}

void frmUserGroupPerm::TellMissing(Missing what) {
  leavesMissing_ = true;
  if (what == Missing::kAccounts) accountsMissing_ = true;
}

void frmUserGroupPerm::StartProgress(int text) {
  progressText_ = text;
  nextProgress_ = std::chrono::steady_clock::now() + kProgressInterval;
}

void frmUserGroupPerm::ShowProgress(int done, int total) {
  const auto now = std::chrono::steady_clock::now();
  // Of a tree that is read at once there is nothing to say that anybody could read.
  if (now < nextProgress_) return;
  nextProgress_ = now + kProgressInterval;
  lblStatus.SetPlainCaption(app::FillIn(global_.LoadResString(progressText_),
                                        {data::Decimal(done), data::Decimal(total)}));
  Repaint();
}

void frmUserGroupPerm::ShowDone(const std::wstring& text) {
  done_ = text;
  doneAt_ = SelectedHere();
  ShowStatus();
}

void frmUserGroupPerm::ShowStatus() {
  if (SelectedHere() != doneAt_) done_.clear();
  const std::wstring text = StatusText();
  if (text == lblStatus.Caption()) return;
  lblStatus.SetPlainCaption(text);
  lblStatus.Announce();
}

// What an error has left out comes first, then what a command has done, then how many accounts a
// search has found and what the page has to say about its selection.
std::wstring frmUserGroupPerm::StatusText() const {
  if (accountsMissing_) return global_.LoadResString(app::kAccountsIncomplete);
  if (leavesMissing_) return global_.LoadResString(app::kIncomplete);
  if (!done_.empty()) return done_;
  std::wstring selection = Shown().SelectionText();
  std::wstring found = Shown().FoundText();
  if (!found.empty()) {
    if (selection.empty()) return found;
    return app::FillIn(global_.LoadResString(app::kShownAnd), {found, selection});
  }
  if (!selection.empty()) return selection;
  return app::FillIn(global_.LoadResString(app::kCounts),
                     {data::Decimal(Users.accountCount), data::Decimal(Groups.accountCount),
                      data::Decimal(permissionCount)});
}

void frmUserGroupPerm::Refresh() {
  if (RefreshTree() == app::Outcome::kFailed) return;
  GetCountPerm();
  ShowStatus();
}

void frmUserGroupPerm::cmdBtn_Click(int Index) {
  if (Index == kExitButton) {
    Unload();
    return;
  }
  Refresh();
  Shown().TreeView1.SetFocus();
}

void frmUserGroupPerm::cmdAbout_Click() {
  static_cast<void>(app::Reported(global_, L"cmdAbout_Click", [this] {
    global_.SessionServer->ShowAbout(kExecutableName, 0, 0);
  }));
}

void frmUserGroupPerm::Command1_Click() {
  app::MShowHelp(global_, *this, app::kTopicUserGroupPerm);
}

void frmUserGroupPerm::Form_KeyDown(int keyCode) {
  if (!isStarted) return;
  if (keyCode == controls::kKeyF5) {
    Refresh();
  } else {
    Shown().KeyDown(keyCode);
  }
}

void frmUserGroupPerm::Form_KeyUp(int keyCode) {
  if (keyCode == controls::kKeyF1) Command1_Click();
}

void frmUserGroupPerm::Form_Unload(bool& /*cancel*/) {
  KeepTab();
  global_.databaseConnection.reset();
  global_.SessionServer.reset();
}

}  // namespace browser
