#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "app/Reported.h"
#include "app/mGlobal.h"
#include "browser/pages/GroupsPage.h"
#include "browser/pages/NavigationHistory.h"
#include "browser/pages/PageHost.h"
#include "browser/pages/UsersPage.h"
#include "browser/rules/ProtectedAccounts.h"
#include "browser/trees/TreeContext.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/ImageList.h"
#include "controls/Label.h"
#include "controls/TabStrip.h"
#include "dialogs/Exchange.h"

namespace browser {

// The main window: a page for the users and one for the groups, each on its tab, and a status line.
// Its load attaches the program to a session; its unload lets the session server go.
class frmUserGroupPerm : public controls::Form, private PageHost {
 public:
  explicit frmUserGroupPerm(app::mGlobal& global);

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;
  void Form_KeyDown(int keyCode) override;
  void Form_KeyUp(int keyCode) override;

  // Reads both trees from the database. An error that stops it has been reported; until it succeeds
  // accounts are then neither edited nor made.
  app::Outcome RefreshTree();
  // The page of a tab.
  AccountPage& Page(int tab) const { return *pages_[static_cast<std::size_t>(tab)]; }

 private:
  // What the pages work with; made before them.
  app::mGlobal& global_;
  TreeCaptions captions_;
  TreeContext context_;

 public:
  controls::ImageList ImageList1;
  // Who may not be deleted or taken out.
  ProtectedAccounts accounts;

  // In the order of the Tab key.
  controls::TabStrip TabStrip1;
  UsersPage Users;
  GroupsPage Groups;
  controls::Label lblStatus;
  controls::Label lblSession;         // who the program works as
  controls::CommandButton cmdBtn[2];  // 0 Refresh, 1 Exit
  controls::CommandButton cmdAbout;
  controls::CommandButton Command1;  // help

  // What the dialogs and the window tell each other.
  dialogs::Exchange exchange;
  std::int32_t permissionCount = 0;
  bool isStarted = false;

 private:
  // What the pages ask for.
  void BringOthersInStep(const AccountPage& page, Change change) override;
  void ShowDone(const std::wstring& text) override;
  void ShowStatus() override;
  void TellMissing(Missing what) override;
  bool Has(const Account& account) const override;
  void GoTo(const Account& account) override;
  void ExportRights() override;
  bool GoBack() override;
  bool CanGoBack() const override { return !history_.IsEmpty(); }
  bool AllAccountsKnown() const override { return !accountsMissing_; }
  bool AllLeavesKnown() const override { return !leavesMissing_; }

  app::Outcome Start();
  void SettingControls();
  void SetAnchors();
  int KeptTab() const;
  void KeepTab() const;
  void SetEvents();
  void AskBeforeOwnAccessEnds();
  AccountPage& Shown() const { return Page(TabStrip1.SelectedTab()); }
  void ShowPage();
  app::Outcome FillPages(app::KeptError& error);
  void RefreshSelections();
  void ShowNode(int tab, controls::NodeId node);
  void Refresh();
  void GetCountPerm();
  void StartProgress(int text);
  void ShowProgress(int done, int total);
  std::wstring StatusText() const;
  // What is selected: the tab, and the node on it.
  using Here = std::pair<int, controls::NodeId>;
  Here SelectedHere() const { return {TabStrip1.SelectedTab(), Shown().TreeView1.SelectedNode()}; }

  void TabStrip1_Click();
  void cmdBtn_Click(int Index);
  void cmdAbout_Click();
  void Command1_Click();

  // In the order of the tabs.
  const std::array<AccountPage*, 2> pages_{&Users, &Groups};
  NavigationHistory history_;
  std::wstring done_;  // by the last command, as long as doneAt_ stays selected
  Here doneAt_;
  bool leavesMissing_ = false;
  bool accountsMissing_ = false;
  int progressText_ = 0;
  std::chrono::steady_clock::time_point nextProgress_;
};

}  // namespace browser
