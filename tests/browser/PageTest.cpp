#include <gtest/gtest.h>

#include "browser/pages/GroupsPage.h"
#include "browser/pages/UsersPage.h"
#include "browser/trees/TreeImages.h"
#include "controls/Form.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using test_support::Keys;
// What a page asks of its window, noted.
class NotedHost final : public PageHost {
 public:
  void BringOthersInStep(const AccountPage&, Change change) override { changes.push_back(change); }
  void ShowDone(const std::wstring& text) override { done.push_back(text); }
  void ShowStatus() override {}
  void TellMissing(Missing what) override { missing.push_back(what); }
  bool Has(const Account&) const override { return true; }
  void GoTo(const Account& account) override { destinations.push_back(account.id); }
  void ExportRights() override {}
  bool GoBack() override { return false; }
  bool CanGoBack() const override { return false; }
  bool AllAccountsKnown() const override { return known; }
  bool AllLeavesKnown() const override { return known; }

  std::vector<Change> changes;
  std::vector<Missing> missing;
  std::vector<std::int32_t> destinations;
  std::vector<std::wstring> done;
  bool known = true;
};

// A form with one page and nothing else of the main window. The tree that the other page would have
// is there for the dialogs, and stays empty.
template <typename Page>
class PageForm : public controls::Form {
 public:
  PageForm(app::mGlobal& global, int otherTree)
      : Form(global.desktop, IDD_USER_GROUP_PERM),
        global_(global),
        images_(global.desktop, TreeImageResources()),
        page(*this, {trees_, images_, exchange, host}),
        other(*this, otherTree),
        exchange{global, page.TreeView1, other} {}

  void Form_Load() override {
    captions_ = TreeCaptions::Load(global_);
    page.Load();
    EXPECT_EQ(app::ReportedLater(global_, L"PageForm",
                                 [this](app::KeptError& error) { return page.Fill(error); }),
              app::Outcome::kDone);
    page.RefreshSelection();
  }

 private:
  app::mGlobal& global_;
  TreeCaptions captions_;
  ProtectedAccounts accounts_{1, 1, 1, 2};
  TreeContext trees_{global_, captions_, accounts_, [](int, int) {}};
  controls::ImageList images_;

 public:
  NotedHost host;
  Page page;
  controls::TreeView other;
  dialogs::Exchange exchange;
};

// A page in a form of its own, on the database of the sample.
class SinglePage : public test_support::MainWindowFixture {
 protected:
  void Attach() {
    global.SessionServer = global.CreateSessionServer();
    data::SessionServer& server = *global.SessionServer;
    server.ReadCommandLine(Database().CommandLine(L"Admin"), global.sessionText, global.sessionId);
    server.OpenSession(global.sessionText, global.sessionId);
    global.databaseConnection = server.DatabaseConnection();
  }
  template <typename Page>
  void RunPage(int otherTree, const std::function<void(PageForm<Page>&)>& script) {
    Attach();
    PageForm<Page> form(global, otherTree);
    form.Show();
    script(form);
    form.Unload();
    global.databaseConnection.reset();
    global.SessionServer.reset();
  }
};

TEST_F(SinglePage, OfUsersRemovesAMembershipAndLeavesTheGroupsAsTheyAre) {
  RunPage<UsersPage>(IDC_TREE_GROUPS, [this](PageForm<UsersPage>& form) {
    controls::TreeView& tree = form.page.TreeView1;
    user.Select(tree, tree.Nodes().Find(Keys::GroupOfUser(9, 12)));
    EXPECT_TRUE(form.page.cmdMemberOf[kRemoveButton].Enabled());
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(form.page.cmdMemberOf[kRemoveButton]);
    EXPECT_EQ(tree.Nodes().Find(Keys::GroupOfUser(9, 12)), controls::kNoNode);
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID = 12"), 0);
    EXPECT_TRUE(form.host.changes.empty());
  });
}

TEST_F(SinglePage, OfGroupsTellsThatOthersAreToFollow) {
  RunPage<GroupsPage>(IDC_TREE_USERS, [this](PageForm<GroupsPage>& form) {
    controls::TreeView& tree = form.page.TreeView1;
    user.Select(tree, tree.Nodes().Find(Keys::GroupPermission(6, 21)));
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(form.page.cmdGroupPermission[kRemoveButton]);
    user.Select(tree, tree.Nodes().Find(Keys::MemberOfGroup(6, 15)));
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(form.page.cmdMember[kRemoveButton]);
    EXPECT_EQ(form.host.changes,
              (std::vector<Change>{Change::kGroupPermissions, Change::kAccounts}));
  });
}

TEST_F(SinglePage, FollowsAChangeMadeElsewhere) {
  RunPage<UsersPage>(IDC_TREE_GROUPS, [this](PageForm<UsersPage>& form) {
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    form.page.BringInStep(Change::kGroupPermissions);
    const controls::TreeNodes& nodes = form.page.TreeView1.Nodes();
    EXPECT_EQ(nodes.Find(Keys::GroupOfUser(9, 6)), controls::kNoNode);
    EXPECT_NE(nodes.Find(Keys::AnyPermission(9, 23)), controls::kNoNode);
    form.page.BringInStep(Change::kAccounts);
    EXPECT_NE(nodes.Find(Keys::GroupOfUser(9, 6)), controls::kNoNode);
  });
}

TEST_F(SinglePage, TellsWhatItCouldNotRead) {
  RunPage<GroupsPage>(IDC_TREE_USERS, [this](PageForm<GroupsPage>& form) {
    log.FailAt = [](const std::wstring& call) { return call == L"BeginRead" ? 5L : 0L; };
    user.ExpectMsgBox(controls::kResultOk);
    form.page.BringInStep(Change::kAccounts);
    log.FailAt = {};
    EXPECT_EQ(form.host.missing, std::vector<Missing>{Missing::kLeaves});
  });
}

TEST_F(SinglePage, NeitherEditsNorMakesAccountsWhileNamesAreUnknown) {
  RunPage<UsersPage>(IDC_TREE_GROUPS, [this](PageForm<UsersPage>& form) {
    form.host.known = false;
    controls::TreeView& tree = form.page.TreeView1;
    user.Select(tree, tree.Nodes().Find(Keys::User(9)));
    EXPECT_FALSE(form.page.cmdUser[kEditButton].Enabled());
    EXPECT_TRUE(form.page.cmdUser[kDeleteButton].Enabled());
    EXPECT_FALSE(form.page.cmdUser[kNewButton].Enabled());
  });
}

}  // namespace
}  // namespace browser
