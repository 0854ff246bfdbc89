#include <gtest/gtest.h>

#include <set>

#include "browser/lists/frmList.h"
#include "browser/rules/EffectivePermissions.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/controls/ShownContent.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;
using test_support::ShownRow;
using test_support::ShownRows;

// The commands that answer with a list, held against the tables of the database.
class ListCommand : public CommandTest {
 protected:
  using Script = std::function<void(frmList& list)>;

  void Expect(const Script& script) {
    user.ExpectModal([this, script](controls::Form& form) {
      script(dynamic_cast<frmList&>(form));
      if (form.IsLoaded()) user.PressKey(form, test_support::kKeyEscape);
    });
  }

  // Gives the command at the node, and sees its list.
  void Give(frmUserGroupPerm& window, int tree, const std::wstring& key, int letter,
            const Script& script) {
    Select(window, tree, key);
    Expect(script);
    user.PressCtrl(window, letter);
  }

  std::set<std::wstring> Names(const std::string& query) {
    std::set<std::wstring> names;
    auto raw = Raw();
    for (const auto& row : raw.Rows(query)) names.insert(data::FromUtf8(row[0]));
    return names;
  }
  static std::set<std::wstring> FirstTexts(const frmList& list) {
    std::set<std::wstring> texts;
    for (const ShownRow& row : ShownRows(list.List1)) texts.insert(row.texts[0]);
    return texts;
  }
  // Who has a permission, by the tables.
  static std::string Holders(int permission) {
    const std::string id = std::to_string(permission);
    return "SELECT NAME FROM QRUSERV WHERE USERID IN (SELECT USERID FROM QRUPRM WHERE PERMID = " +
           id +
           ") OR USERID IN (SELECT L.USERID FROM QRUSGP L, QRGPRM P, QRGROUPV G WHERE "
           "L.GROUPID = P.GROUPID AND G.GROUPID = L.GROUPID AND P.PERMID = " +
           id + ")";
  }
  static std::string PermissionsOf(int userId) {
    const std::string id = std::to_string(userId);
    return "SELECT PERMID FROM QRUPRM WHERE USERID = " + id +
           " UNION SELECT P.PERMID FROM QRUSGP L, QRGPRM P, QRGROUPV G WHERE L.GROUPID = "
           "P.GROUPID AND G.GROUPID = L.GROUPID AND L.USERID = " +
           id;
  }
};

TEST_F(ListCommand, ListsWhoHasAPermissionFromEachKindOfLeaf) {
  Run([this](frmUserGroupPerm& window) {
    const auto wanted = Names(Holders(14));
    ASSERT_GT(wanted.size(), 1U);
    const auto seesThem = [&](frmList& list) {
      EXPECT_EQ(list.Caption(), Text(app::kHoldersTitle));
      EXPECT_TRUE(list.lblList.Caption().starts_with(L"Permission : "));
      EXPECT_EQ(FirstTexts(list), wanted);
      EXPECT_EQ(list.List1.RowCount(), static_cast<int>(wanted.size()));
      EXPECT_EQ(list.lblNotice.Caption(), L"");
    };
    log.calls.clear();
    Give(window, kUsersTree, Keys::OwnPermission(9, 14), 'Q', seesThem);
    Give(window, kUsersTree, Keys::AnyPermission(9, 14), 'Q', seesThem);
    auto raw = Raw();
    const int group =
        static_cast<int>(raw.Number("SELECT MIN(GROUPID) FROM QRGPRM WHERE PERMID = 14"));
    Give(window, kGroupsTree, Keys::GroupPermission(group, 14), 'Q', seesThem);
    EXPECT_TRUE(log.calls.empty());
  });
}

TEST_F(ListCommand, SaysWhereEachHolderHasItFrom) {
  Run([this](frmUserGroupPerm& window) {
    Give(window, kUsersTree, Keys::OwnPermission(9, 14), 'Q', [&](frmList& list) {
      list.txtFilter.SetText(L"martin");
      const auto rows = ShownRows(list.List1);
      const auto martin =
          std::ranges::find_if(rows, [](const ShownRow& row) { return row.texts[0] == L"Martin"; });
      ASSERT_NE(martin, rows.end());
      EXPECT_TRUE(martin->texts[2].starts_with(L"Accordée directement")) << "direct";
    });
  });
}

TEST_F(ListCommand, GoesToTheUserWhoIsChosenAndBack) {
  Run([this](frmUserGroupPerm& window) {
    auto raw = Raw();
    const int group =
        static_cast<int>(raw.Number("SELECT MIN(GROUPID) FROM QRGPRM WHERE PERMID = 14"));
    const std::wstring leaf = Keys::GroupPermission(group, 14);
    std::int32_t chosen = 0;
    Give(window, kGroupsTree, leaf, 'Q', [&](frmList& list) {
      const std::wstring name = ShownRows(list.List1)[1].texts[0];
      chosen = static_cast<std::int32_t>(
          Raw().Number("SELECT USERID FROM QRUSERV WHERE NAME = '" + data::ToUtf8(name) + "'"));
      user.DoubleClick(list.List1, 1);
    });
    EXPECT_EQ(window.TabStrip1.SelectedTab(), kUsersTree);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(chosen));
    user.PressKey(window, controls::kKeyBack);
    EXPECT_EQ(window.TabStrip1.SelectedTab(), kGroupsTree);
    EXPECT_EQ(Selected(window, kGroupsTree), leaf);
  });
}

TEST_F(ListCommand, ListsTheMembersOfAGroupWithWhatTheyHaveBeyondIt) {
  Run([this](frmUserGroupPerm& window) {
    const auto wanted = Names(
        "SELECT NAME FROM QRUSERV WHERE USERID IN (SELECT USERID FROM QRUSGP WHERE GROUPID = 7)");
    ASSERT_GT(wanted.size(), 1U);
    const auto seesThem = [&](frmList& list) {
      EXPECT_EQ(list.Caption(), Text(app::kMembersTitle));
      EXPECT_EQ(FirstTexts(list), wanted);
      for (const ShownRow& row : ShownRows(list.List1)) {
        auto raw = Raw();
        const int id = static_cast<int>(raw.Number("SELECT USERID FROM QRUSERV WHERE NAME = '" +
                                                   data::ToUtf8(row.texts[0]) + "'"));
        const auto beyond = raw.Number("SELECT COUNT(*) FROM (" + PermissionsOf(id) +
                                       " EXCEPT SELECT PERMID FROM QRGPRM WHERE GROUPID = 7)");
        EXPECT_EQ(row.texts[2], std::to_wstring(beyond)) << id;
        EXPECT_EQ(row.texts[3].empty(), beyond == 0) << id;
        EXPECT_EQ(row.texts[3].ends_with(L" autres"), beyond > 4) << id;
      }
    };
    Give(window, kGroupsTree, Keys::Group(7), 'M', seesThem);
    Give(window, kGroupsTree, Keys::MembersOfGroup(7), 'M', seesThem);
    Give(window, kUsersTree, Keys::GroupOfUser(9, 7), 'M', seesThem);
  });
}

TEST_F(ListCommand, ComparesTwoUsersDifferencesFirst) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    const auto first = Names(PermissionsOf(9));
    const auto second = Names(PermissionsOf(10));
    const std::wstring other =
        data::FromUtf8(Raw().Rows("SELECT NAME FROM QRUSERV WHERE USERID = 10").front().front());
    Expect([&](frmList& list) {
      EXPECT_EQ(list.cmdOK.Caption(), Text(app::kCompareRow));
      EXPECT_EQ(FirstTexts(list), Names("SELECT NAME FROM QRUSERV WHERE USERID <> 9"));
      user.Type(list.txtFilter, other);
      user.PressKey(list, test_support::kKeyEnter);
    });
    Expect([&](frmList& list) {
      std::size_t common = 0;
      bool same = false;
      for (const ShownRow& row : ShownRows(list.List1)) {
        const bool both = row.texts[1] == Text(app::kBoth);
        common += both ? 1 : 0;
        EXPECT_TRUE(both || !same) << "a difference after what is alike";
        same |= both;
        EXPECT_EQ(row.texts[2].empty() || row.texts[3].empty(), !both);
      }
      std::set<std::wstring> all = first;
      all.insert(second.begin(), second.end());
      EXPECT_EQ(static_cast<std::size_t>(list.List1.RowCount()), all.size());
      EXPECT_EQ(common, first.size() + second.size() - all.size());
      EXPECT_FALSE(list.cmdOK.Visible());
    });
    user.PressCtrl(window, 'K');
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(9));
  });
}

TEST_F(ListCommand, ComparesAMemberOfAGroupToo) {
  Run([this](frmUserGroupPerm& window) {
    Give(window, kGroupsTree, Keys::MemberOfGroup(7, 9), 'K', [this](frmList& list) {
      EXPECT_FALSE(FirstTexts(list).contains(L"Martin"));
      EXPECT_EQ(list.lblList.Caption(), app::FillIn(Text(app::kCompareHeading), {L"Martin"}));
    });
  });
}

TEST_F(ListCommand, DoesNothingWhereItMeansNothing) {
  Run([this](frmUserGroupPerm& window) {
    const auto nothing = [&](int tree, const std::wstring& key, const std::string& letters) {
      Select(window, tree, key);
      for (const char letter : letters) user.PressCtrl(window, letter);
    };
    nothing(kUsersTree, Keys::Root(), "QMK");
    nothing(kUsersTree, Keys::User(9), "QM");
    nothing(kUsersTree, Keys::OwnPermission(9, 14), "M");
    nothing(kUsersTree, Keys::GroupOfUser(9, 7), "Q");
    nothing(kGroupsTree, Keys::Root(), "QMK");
    nothing(kGroupsTree, Keys::Group(7), "QK");
  });
}

TEST_F(ListCommand, SaysThatItShowsOnlyWhatWasReadUntilARefreshSucceeds) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) {
      return call == data::SqlSelectGroupUsers(6) ? 1234L : 0L;
    };
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.cmdBtn[kRefreshButton]);
    log.FailAt = {};
    const auto notice = [&](const std::wstring& wanted) {
      Give(window, kUsersTree, Keys::OwnPermission(9, 14), 'Q',
           [&](frmList& list) { EXPECT_EQ(list.lblNotice.Caption(), wanted); });
      Give(window, kUsersTree, Keys::User(9), 'K',
           [&](frmList& list) { EXPECT_EQ(list.lblNotice.Caption(), wanted); });
    };
    notice(Text(app::kListIncomplete));
    user.Click(window.cmdBtn[kRefreshButton]);
    notice(L"");
  });
}

TEST_F(ListCommand, SaysWhereAGroupHasNoMembers) {
  Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 7");
  Run([this](frmUserGroupPerm& window) {
    Give(window, kGroupsTree, Keys::Group(7), 'M',
         [this](frmList& list) { EXPECT_EQ(list.lblCount.Caption(), Text(app::kNoMember)); });
  });
}

TEST_F(ListCommand, HostileNamesStayInTheirCells) {
  Raw().Execute(
      "UPDATE QRUSER SET FULLNAME = 'Jean' || char(13) || char(10) || char(9) || 'M' "
      "WHERE USERID = 9");
  Run([this](frmUserGroupPerm& window) {
    Give(window, kUsersTree, Keys::OwnPermission(9, 14), 'Q', [this](frmList& list) {
      list.txtFilter.SetText(L"martin");
      user.Focus(list.List1);
      user.PressCtrl(list, test_support::kKeyC);
      EXPECT_TRUE(user.Clipboard().starts_with(L"Martin\tJean   M\t"));
      EXPECT_EQ(std::ranges::count(user.Clipboard(), L'\n'), list.List1.ShownCount());
    });
  });
}

}  // namespace
}  // namespace browser
