#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "app/StringIds.h"

namespace dialogs {
namespace {

class AccessibleNames : public GroupDialogs {};

TEST_F(AccessibleNames, TheArrowsOfTheAddUsersDialogSayWhatTheyDo) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(dialog.cmdBtn[dialog.kAdd].AccessibleName(), Text(app::kMoveRightName));
    EXPECT_EQ(dialog.cmdBtn[dialog.kAddAll].AccessibleName(), Text(app::kMoveRightName + 1));
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemove].AccessibleName(), Text(app::kMoveRightName + 2));
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemoveAll].AccessibleName(),
              L"Retirer tous les utilisateurs du groupe");
    user.Close(dialog);
  });
}

}  // namespace
}  // namespace dialogs
