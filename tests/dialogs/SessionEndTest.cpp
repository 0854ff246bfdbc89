// The end of the user's session while a dialog is open.

#include "controls/SessionEnd.h"

#include "ListItemTest.h"
#include "app/StringIds.h"
#include "controls/MsgBox.h"

namespace dialogs {
namespace {

class SessionEnd : public ListItemTest {
 protected:
  SessionEnd() {
    user.System().answers.BlockSessionEnd = [this](const controls::Form&,
                                                   const std::wstring& reason) {
      steps_.push_back(L"block: " + reason);
    };
  }

  // Whether the session may end for the dialog, once its first item is checked or not.
  bool MayEnd(frmListItem& shown, bool changed, bool takesInput = true) {
    if (changed) user.Toggle(shown.List1, 0);
    const bool may = controls::MayEndSession(shown, takesInput);
    for (const test_support::SeenBox& box : user.SeenBoxes()) steps_.push_back(box.prompt);
    return may;
  }

  std::vector<std::wstring> steps_;
  const std::wstring reason_ =
      L"block: Des modifications ne sont pas enregistr\x00E9"
      L"es.";
  const std::wstring question_ =
      L"Vos modifications ne seront pas prises en compte dans le syst\x00E8me.\r\n"
      L"Souhaitez-vous poursuivre ?";
};

TEST_F(SessionEnd, NothingWaitsForADialogWithoutChanges) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_TRUE(MayEnd(shown, false));
    EXPECT_EQ(steps_, std::vector<std::wstring>{});
    EXPECT_TRUE(shown.IsLoaded());
    user.Close(shown);
  });
}

TEST_F(SessionEnd, WithChangesTheReasonIsToldBeforeTheUsualQuestion) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.ExpectMsgBox(controls::kResultNo);
    EXPECT_FALSE(MayEnd(shown, true));
    EXPECT_EQ(steps_, (std::vector<std::wstring>{reason_, question_}));
    EXPECT_TRUE(shown.IsLoaded());
    user.ExpectMsgBox(controls::kResultYes);
    user.Close(shown);
  });
}

TEST_F(SessionEnd, GoesOnWhenTheUserGivesUpHisChanges) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.ExpectMsgBox(controls::kResultYes);
    EXPECT_TRUE(MayEnd(shown, true));
    EXPECT_FALSE(shown.IsLoaded());
  });
}

TEST_F(SessionEnd, WaitsWithoutAQuestionWhereNobodyCouldAnswer) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_FALSE(MayEnd(shown, true, false));
    EXPECT_EQ(steps_, std::vector<std::wstring>{reason_});
    user.ExpectMsgBox(controls::kResultYes);
    user.Close(shown);
  });
}

TEST_F(SessionEnd, NeverWaitsForTheMainWindow) {
  EXPECT_EQ(window.UnsavedChanges(), L"");
}

}  // namespace
}  // namespace dialogs
