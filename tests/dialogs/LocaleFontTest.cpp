#include <gtest/gtest.h>

#include "app/StringIds.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {
namespace {

class FontOfDialogs : public test_support::DialogFixture {
 protected:
  template <class Dialog>
  void ExpectJapaneseFont(Dialog&& dialog) {
    Show<Dialog>(dialog, [this](Dialog& shown) {
      EXPECT_EQ(user.FontOf(shown).charset, 128) << shown.TemplateId();
      EXPECT_EQ(user.FontOf(shown.cmdOK).charset, 128) << shown.TemplateId();
      EXPECT_EQ(user.FontOf(shown.cmdOK).size, 9) << shown.TemplateId();
      shown.Unload();
    });
  }
};

TEST_F(FontOfDialogs, IsThatOfTheLocaleInEachOfTheSix) {
  user.SetLcid(1041);
  ExpectJapaneseFont(frmNewUser(exchange));
  frmEditUser editUser(exchange);
  editUser.UserID = 9;
  ExpectJapaneseFont(std::move(editUser));
  ExpectJapaneseFont(frmNewGroup(exchange));
  frmEditGroup editGroup(exchange);
  editGroup.GroupID = 12;
  ExpectJapaneseFont(std::move(editGroup));
  frmAddUserInGroup addUsers(exchange);
  addUsers.GroupID = 12;
  ExpectJapaneseFont(std::move(addUsers));
  frmListItem list(exchange);
  list.ListKind = Text(app::kGroups);
  list.RelationName = Text(app::kMemberOf);
  list.OwnerID = 9;
  ExpectJapaneseFont(std::move(list));
}

}  // namespace
}  // namespace dialogs
