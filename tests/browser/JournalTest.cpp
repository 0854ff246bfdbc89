#include "tests/browser/JournalTest.h"

#include <chrono>
#include <fstream>

#include "app/JournalLine.h"
#include "data/Text.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/data/Sample.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::JsonValue;
using test_support::Keys;
using test_support::Sample;

class JournalOfCommands : public JournalTest {
 protected:
  void RemoveMartinFromLaboratoire(frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
  }

  void RemoveOwnPermission(frmUserGroupPerm& window, std::int32_t permission) {
    Select(window, kUsersTree, Keys::OwnPermission(Sample::kMartin, permission));
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(window.Users.cmdUserPermission[kRemoveButton]);
  }

  void ExpectTrouble() {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"Le journal des modifications ne peut pas être écrit dans " +
                                 global.journal.Folder() +
                                 L".\r\nVos modifications sont bien enregistrées ; elles n'y sont "
                                 L"pas consignées.",
                       .style = controls::kInformation});
  }
};

TEST_F(JournalOfCommands, ACommandIsALineWithWhoDidWhatToWhomAndHow) {
  const auto before = std::chrono::system_clock::now();
  Run([&](frmUserGroupPerm& window) {
    RemoveMartinFromLaboratoire(window);
    // It is there before the window answers.
    const JsonValue line = Line();
    EXPECT_EQ(line["what"].Text(), "Martin ne fait plus partie du groupe Laboratoire");
    EXPECT_EQ(line["what"].Text(), data::ToUtf8(window.lblStatus.Caption()));
  });
  const JsonValue line = Line();
  EXPECT_EQ(line["session"].Text(), data::ToUtf8(global.sessionUserText));
  EXPECT_EQ(line["computer"].Text(), data::ToUtf8(desktop.system.ComputerName()));
  EXPECT_EQ(line["user"].Text(), data::ToUtf8(desktop.system.UserName()));
  EXPECT_FALSE(line["user"].Text().empty());
  EXPECT_TRUE(line["complete"].Truth());
  EXPECT_FALSE(line.Has("error"));
  EXPECT_EQ(line["rows"].Number(), 1);
  EXPECT_EQ(line["account"]["kind"].Text(), "user");
  EXPECT_EQ(line["account"]["id"].Number(), Sample::kMartin);
  EXPECT_EQ(line["account"]["name"].Text(), "Martin");
  const JsonValue& change = line["changes"].Items().at(0);
  EXPECT_EQ(change["change"].Text(), "removed");
  EXPECT_EQ(change["kind"].Text(), "membership");
  EXPECT_EQ(change["user"].Number(), Sample::kMartin);
  EXPECT_EQ(change["group"].Number(), Sample::kLaboratoire);
  // Its time lies between the start of the test and now, in a file of that month.
  const std::string time = line["time"].Text();
  const auto text = [](app::JournalTime at) {
    return JsonValue::Parse(app::JournalLine(at, {}, {}).substr(8, 26)).Text();
  };
  EXPECT_LE(text(before), time);
  EXPECT_LE(time, text(std::chrono::system_clock::now()));
  EXPECT_TRUE(
      std::filesystem::exists(JournalFolder() / ("journal-" + time.substr(0, 7) + ".jsonl")));
}

TEST_F(JournalOfCommands, ACommandThatChangesNothingLeavesNoLine) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.ExpectMsgBox(controls::kResultNo);
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    user.ExpectModal(
        [this](controls::Form& form) { user.PressKey(form, test_support::kKeyEscape); });
    user.Click(window.Users.cmdUser[kEditButton]);
    user.Click(window.cmdBtn[kRefreshButton]);
  });
  EXPECT_EQ(Lines().size(), 0u);
}

TEST_F(JournalOfCommands, NoPasswordIsInItNorWhatIsStoredOfOne) {
  const std::string stored = "SELECT PASSWORD FROM QRUSER WHERE NAME = 'Lambert'";
  std::string first;
  std::string second;
  Run([&](frmUserGroupPerm& window) {
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Lambert");
      user.Type(dialog.txtPassword, L"s3cretOne");
      user.Type(dialog.txtVerify, L"s3cretOne");
    });
    user.Click(window.Users.cmdUser[kNewButton]);
    first = Raw().Text(stored);
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtFullName, L"Paul Lambert");
      user.Type(dialog.txtPassword, L"s3cretTwo");
      user.Type(dialog.txtVerify, L"s3cretTwo");
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    second = Raw().Text(stored);
  });
  const std::vector<JsonValue> lines = Lines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]["what"].Text(), "Utilisateur Lambert créé");
  EXPECT_FALSE(lines[0].Has("account"));
  EXPECT_EQ(lines[0]["changes"].Items().at(0)["user"].Number(), Sample::kNextUser);
  EXPECT_EQ(lines[1]["what"].Text(), "Utilisateur Lambert modifié");
  EXPECT_EQ(lines[1]["changes"].Items().at(0)["fullName"].Text(), "Paul Lambert");
  const std::string bytes = test_support::JournalBytes(Local());
  ASSERT_FALSE(first.empty() || second.empty());
  for (const std::string& secret :
       {std::string("s3cret"), first, second, data::ToUtf8(global.sessionText)}) {
    EXPECT_EQ(bytes.find(secret), std::string::npos) << secret;
  }
}

TEST_F(JournalOfCommands, AnErrorInTheMiddleIsToldWithWhatWasDoneBeforeIt) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(Sample::kMartin));
    log.FailAt = [](const std::wstring& call) {
      return call.starts_with(L"DELETE FROM QRUPRM") ? 1234L : 0L;
    };
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtFullName, L"Jean");
      user.ExpectMsgBox(controls::kResultOk);
    });
    user.Click(window.Users.cmdUser[kEditButton]);
  });
  const JsonValue line = Line();
  EXPECT_EQ(line["what"].Text(), "Modification de l'utilisateur Martin");
  EXPECT_FALSE(line["complete"].Truth());
  EXPECT_EQ(line["error"]["number"].Number(), 1234);
  EXPECT_TRUE(line["error"]["text"].Text().starts_with("injected: DELETE FROM QRUPRM"));
  // The row, the groups that went and those that came; of the permissions nothing.
  const auto& changes = line["changes"].Items();
  ASSERT_EQ(changes.size(), 3u);
  EXPECT_EQ(changes[1]["change"].Text(), "removed");
  EXPECT_EQ(changes[1]["rows"].Number(), 3);
  EXPECT_EQ(changes[2]["groups"].Items().size(), 3u);
}

// A database may repeat the row that it refuses.
TEST_F(JournalOfCommands, TheTextOfAnErrorThatMayRepeatAPasswordIsLeftOut) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(Sample::kMartin));
    log.FailAt = [](const std::wstring& call) { return call.starts_with(L"Update ") ? 1234L : 0L; };
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtFullName, L"Jean");
      user.ExpectMsgBox(controls::kResultOk);
    });
    user.Click(window.Users.cmdUser[kEditButton]);
  });
  const JsonValue line = Line();
  EXPECT_FALSE(line["complete"].Truth());
  EXPECT_EQ(line["rows"].Number(), 0);
  EXPECT_EQ(line["error"]["number"].Number(), 1234);
  EXPECT_FALSE(line["error"].Has("text"));
  EXPECT_TRUE(line["changes"].Items().empty());
}

TEST_F(JournalOfCommands, ALinkThatSomebodyElseHasTakenIsALineWithoutRows) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 12");
    user.ExpectMsgBox(controls::kResultYes);
    ExpectChangedMeanwhile();
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
  });
  const JsonValue line = Line();
  EXPECT_EQ(line["what"].Text(), "Modification d'appartenances : Martin");
  EXPECT_EQ(line["rows"].Number(), 0);
  EXPECT_TRUE(line["complete"].Truth());
}

TEST_F(JournalOfCommands, AnErrorInShowingWhatWasDoneIsNoneOfTheCommand) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::OwnPermission(Sample::kMartin, Sample::kStock));
    user.ExpectMsgBox(controls::kResultYes);
    user.ExpectMsgBox(controls::kResultOk);
    log.FailAt = [](const std::wstring& call) {
      return call.starts_with(L"SELECT DISTINCT") ? 1234L : 0L;
    };
    user.Click(window.Users.cmdUserPermission[kRemoveButton]);
    log.FailAt = nullptr;
  });
  const JsonValue line = Line();
  EXPECT_TRUE(line["complete"].Truth());
  EXPECT_FALSE(line.Has("error"));
}

TEST_F(JournalOfCommands, APolicyPutsItElsewhere) {
  const std::filesystem::path other = Database().Home() / "elsewhere" / "deep";
  user.System().answers.Policy = [&](const std::wstring& product, const std::wstring& name) {
    EXPECT_EQ(product, L"User Administration");
    EXPECT_EQ(name, L"Journal");
    return std::optional(other.wstring());
  };
  Run([this](frmUserGroupPerm& window) { RemoveMartinFromLaboratoire(window); });
  EXPECT_EQ(Lines().size(), 0u);
  EXPECT_EQ(test_support::JournalLines(other).size(), 1u);
}

TEST_F(JournalOfCommands, APolicySwitchesItOff) {
  for (const wchar_t* off : {L"0", L""}) {
    UseSample();
    user.System().answers.Policy = [off](const std::wstring&, const std::wstring&) {
      return std::optional<std::wstring>(off);
    };
    Run([this](frmUserGroupPerm& window) { RemoveMartinFromLaboratoire(window); });
    EXPECT_FALSE(std::filesystem::exists(Local()));
  }
}

TEST_F(JournalOfCommands, OneThatCannotBeWrittenHindersNothingAndIsToldOnce) {
  std::ofstream(JournalFolder()) << "a file";
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox(controls::kResultYes);
    ExpectTrouble();
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
    RemoveOwnPermission(window, Sample::kStock);
  });
  EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID = 12"), 0);
  EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUPRM WHERE USERID = 9 AND PERMID = 14"), 0);
  EXPECT_TRUE(std::filesystem::is_regular_file(JournalFolder()));
}

TEST_F(JournalOfCommands, ItGoesOnWhereItCanBeWrittenAgain) {
  std::ofstream(JournalFolder()) << "a file";
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox(controls::kResultYes);
    ExpectTrouble();
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    std::filesystem::remove(JournalFolder());
    RemoveOwnPermission(window, Sample::kStock);
  });
  // What could not be written whole ends with its own line.
  const std::string bytes = test_support::JournalBytes(Local());
  ASSERT_TRUE(bytes.starts_with("\n{")) << bytes;
  EXPECT_EQ(JsonValue::Parse(std::string_view(bytes).substr(1, bytes.size() - 2))["rows"].Number(),
            1);
}

#ifndef _WIN32
TEST_F(JournalOfCommands, AFullDiskHindersNothingAndIsToldOnce) {
  std::filesystem::create_directories(JournalFolder());
  const std::string month = data::ToUtf8(app::JournalFileName(std::chrono::system_clock::now()));
  std::filesystem::create_symlink("/dev/full", JournalFolder() / month);
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox(controls::kResultYes);
    ExpectTrouble();
    Select(window, kUsersTree, Keys::GroupOfUser(Sample::kMartin, Sample::kLaboratoire));
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    RemoveOwnPermission(window, Sample::kStock);
  });
  EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID = 12"), 0);
}
#endif

// A dialog's own writes, outside every command of a page, would be lines of their own.
TEST_F(JournalOfCommands, AWriteOutsideEveryCommandIsALineToo) {
  Run([this](frmUserGroupPerm&) {
    global.databaseConnection->Execute(L"DELETE FROM QRUPRM WHERE QRUPRM.USERID =9");
  });
  const JsonValue line = Line();
  EXPECT_EQ(line["changes"].Items().at(0)["user"].Number(), 9);
  EXPECT_EQ(line["rows"].Number(), 2);
}

}  // namespace
}  // namespace browser
