// Every step within a result set fails once: the end test, reading a column, moving on, filling a
// column, closing.

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

#include "app/StringIds.h"
#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/dialogs/DialogFixture.h"
#include "tests/support/window/FaultStride.h"

namespace dialogs {
namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

class ResultSetFault : public test_support::DialogFixture {
 protected:
  template <class Dialog>
  using Make = std::function<std::unique_ptr<Dialog>()>;

  // The load of a dialog fails at every step: each time it is reported, and the dialog closes
  // without having appeared and without a result.
  template <class Dialog>
  void FailEveryLoad(const Make<Dialog>& make) {
    FailAtRowStep(kNever);
    Show<Dialog>(*make(), [](Dialog& dialog) { dialog.Unload(); });
    const std::size_t steps = RowStepsTaken();
    ASSERT_GT(steps, 0U);
    for (std::size_t step = 0; step < steps; step += test_support::kFaultStride) {
      exchange.AddNode = true;
      const std::unique_ptr<Dialog> dialog = make();
      FailAtRowStep(step);
      ExpectReport({});
      dialog->ShowModal(window);
      EXPECT_FALSE(dialog->IsLoaded()) << data::ToUtf8(FailedCall());
      ExpectFailed();
    }
  }

  // A save fails at every step: each time it is reported, and the dialog closes without a result.
  template <class Dialog>
  void FailEverySave(const Make<Dialog>& make, const std::function<void(Dialog&)>& fillIn) {
    std::size_t steps = 0;
    Show<Dialog>(*make(), [&](Dialog& dialog) {
      fillIn(dialog);
      FailAtRowStep(kNever);
      user.Click(dialog.cmdOK);
      steps = RowStepsTaken();
    });
    ASSERT_TRUE(exchange.AddNode);
    ASSERT_GT(steps, 0U);
    for (std::size_t step = 0; step < steps; step += test_support::kFaultStride) {
      FailNothing();
      Restore();
      exchange.AddNode = true;
      const std::unique_ptr<Dialog> dialog = make();
      Show<Dialog>(*dialog, [&](Dialog& shown) {
        fillIn(shown);
        FailAtRowStep(step);
        ExpectReport({});
        user.Click(shown.cmdOK);
        EXPECT_FALSE(shown.IsLoaded()) << data::ToUtf8(FailedCall());
      });
      ExpectFailed();
    }
  }

  Make<frmEditUser> EditMartin() {
    return [this] {
      auto dialog = std::make_unique<frmEditUser>(exchange);
      dialog->UserID = 9;
      return dialog;
    };
  }
  Make<frmEditGroup> EditLaboratory() {
    return [this] {
      auto dialog = std::make_unique<frmEditGroup>(exchange);
      dialog->GroupID = 12;
      return dialog;
    };
  }
  Make<frmNewGroup> NewGroup() {
    return [this] { return std::make_unique<frmNewGroup>(exchange); };
  }
  Make<frmAddUserInGroup> AddUsersToLaboratory() {
    return [this] {
      auto dialog = std::make_unique<frmAddUserInGroup>(exchange);
      dialog->GroupID = 12;
      return dialog;
    };
  }
  Make<frmListItem> ListGroupsOfMartin() {
    return [this] {
      auto dialog = std::make_unique<frmListItem>(exchange);
      dialog->ListKind = Text(app::kGroups);
      dialog->RelationName = Text(app::kMemberOf);
      dialog->OwnerID = 9;
      return dialog;
    };
  }

 private:
  // The links of user 9 and of group 12 as they are in the sample.
  void Restore() {
    auto raw = Raw();
    raw.Execute("DELETE FROM QRUSGP WHERE USERID = 9 OR GROUPID = 12");
    raw.Execute(
        "INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 2), (9, 7), (9, 12), (34, 12), (38, 12)");
    raw.Execute("DELETE FROM QRUPRM WHERE USERID = 9");
    raw.Execute("INSERT INTO QRUPRM (USERID, PERMID) VALUES (9, 14), (9, 20)");
    raw.Execute("DELETE FROM QRGPRM WHERE GROUPID = 12");
    raw.Execute("INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (12, 20)");
  }
  void ExpectFailed() {
    EXPECT_TRUE(HasFailed());
    EXPECT_FALSE(exchange.AddNode) << data::ToUtf8(FailedCall());
    ASSERT_FALSE(user.SeenBoxes().empty());
    const std::wstring& prompt = user.SeenBoxes().back().prompt;
    EXPECT_TRUE(prompt.ends_with(L" Error [1234]\r\ninjected: " + FailedCall()))
        << data::ToUtf8(prompt);
  }
};

TEST_F(ResultSetFault, AtAnyStepOfALoadIsReportedAndTheDialogDoesNotAppear) {
  FailEveryLoad(EditMartin());
  FailEveryLoad(EditLaboratory());
  FailEveryLoad(NewGroup());
  FailEveryLoad(AddUsersToLaboratory());
  FailEveryLoad(ListGroupsOfMartin());
}

// Without its groups a user can be created, without the permissions not.
TEST_F(ResultSetFault, InTheGroupsOfANewUserLeavesTheDialogOpen) {
  FailAtRowStep(0);
  ExpectReport({});
  frmNewUser dialog(exchange);
  Show<frmNewUser>(dialog, [this](frmNewUser& shown) {
    EXPECT_TRUE(HasFailed());
    EXPECT_EQ(shown.List1[shown.kGroups].ListCount(), 0);
    EXPECT_EQ(shown.List1[shown.kPermissions].ListCount(), 30);
    shown.Unload();
  });
}

TEST_F(ResultSetFault, AtAnyStepOfAUsersSaveIsReportedAndHandsNothingBack) {
  FailEverySave<frmEditUser>(
      EditMartin(), [this](frmEditUser& dialog) { user.Type(dialog.txtUserName, L"Martineau"); });
}

TEST_F(ResultSetFault, AtAnyStepOfAGroupsSaveIsReportedAndHandsNothingBack) {
  FailEverySave<frmEditGroup>(EditLaboratory(), [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
  });
  FailEverySave<frmNewGroup>(NewGroup(), [this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Nouveau");
    Toggle(dialog.List1[dialog.kPermissions], L"Consulter les commandes");
  });
}

TEST_F(ResultSetFault, AtAnyStepOfAssigningIsReportedAndHandsNothingBack) {
  FailEverySave<frmAddUserInGroup>(AddUsersToLaboratory(), [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kOthers], L"Bernard");
    user.Click(dialog.cmdBtn[dialog.kAdd]);
  });
  FailEverySave<frmListItem>(ListGroupsOfMartin(),
                             [this](frmListItem& dialog) { Toggle(dialog.List1, L"Direction"); });
}

}  // namespace
}  // namespace dialogs
