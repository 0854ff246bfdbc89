#include "tests/browser/FaultCase.h"

#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/data/Sample.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/lists/Lists.h"

namespace browser {
namespace {

using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;
using test_support::Sample;
using test_support::User;
using enum test_support::AccountButton;
using enum test_support::LinkButton;
using enum test_support::ChooserButton;
using enum test_support::MoveButton;
using enum test_support::DialogList;
using Phases = std::vector<FaultPhase>;

constexpr auto kWrite = FaultPhase::kWrite;
constexpr auto kRebuild = FaultPhase::kRebuild;

Phases operator+(Phases first, const Phases& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// Opening a statement that begins so, and every write to what it has opened.
std::vector<std::wstring> Writing(const std::wstring& statement) {
  return {statement, L"MoveFirst " + statement, L"Edit " + statement, L"AddNew " + statement,
          L"Update " + statement};
}

FaultPhase Links(const wchar_t* procedure, const std::wstring& statement,
                 const wchar_t* deletion = nullptr) {
  FaultPhase phase{procedure, kWrite, Writing(statement)};
  if (deletion != nullptr) phase.beginnings.push_back(deletion);
  return phase;
}

constexpr const wchar_t* kMembershipsOfUser = L"SELECT  USERID ,GROUPID FROM QRUSGP";
constexpr const wchar_t* kMembershipsOfGroup = L"SELECT  QRUSGP.GROUPID, QRUSGP.USERID FROM QRUSGP";
constexpr const wchar_t* kMembership = L"SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP WHERE GR";
constexpr const wchar_t* kOwnRows = L"SELECT * FROM QRUPRM";
constexpr const wchar_t* kGroupRows = L"SELECT QRGPRM.GROUPID, QRGPRM.PERMID FROM QRGPRM";
constexpr const wchar_t* kGroupRow = L"SELECT * FROM QRGPRM";
constexpr const wchar_t* kUserRow = L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME, QRUS";
constexpr const wchar_t* kGroupRecord =
    L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV WHERE";
constexpr const wchar_t* kAllUsers = L"SELECT QRUSERV.USERID,QRUSERV.NAME,QRUSERV.FULLNAME FROM Q";
constexpr const wchar_t* kAllGroups = L"SELECT QRGROUPV.GROUPID,QRGROUPV.NAME ,QRGROUPV.DESCR  F";
constexpr const wchar_t* kAllPermissions = L"SELECT QRPERM.PERMID,QRPERM.NAME FROM QRPERM";
constexpr const wchar_t* kGroupUsers =
    L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME FROM QRUSERV,QRUSGP";
constexpr const wchar_t* kUserGroups =
    L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV , QRUSGP";
constexpr const wchar_t* kOwnNames = L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRUPRM";
constexpr const wchar_t* kGroupNames = L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRPERM,QRGPRM";
constexpr const wchar_t* kInherited = L"SELECT DISTINCT QRPERM.PERMID";

// Reading folders of one account again.
const FaultPhase kUserFolders{
    L"UserNode", kRebuild, {kUserRow, kUserGroups, kOwnNames, kInherited, L"GetDisplayName 10"}};
const FaultPhase kGroupFolders{
    L"GroupNode", kRebuild, {kGroupRecord, kGroupUsers, kGroupNames, L"GetDisplayName 10"}};

// Reading a folder of every account again.
Phases All(const wchar_t* procedure, const FaultPhase& folders) {
  return {{procedure, kRebuild, {L"BeginRead"}}, folders, {procedure, kRebuild, {L"EndRead"}}};
}
const Phases kAllMembers = All(L"EditGroupNode", kGroupFolders);
const Phases kAllUsersLinks = All(L"EditUserNode", kUserFolders);
const Phases kAllUsersPermissions = All(L"EditAllPermissionsUserNode", kUserFolders);

const Phases kUserLists{{L"List1AddItem", kWrite, {kAllGroups, L"GetDisplayName 104"}},
                        {L"SelectListItem", kWrite, {kMembership}},
                        {L"List1AddItem", kWrite, {kAllPermissions, L"GetDisplayName 101"}},
                        {L"SelectListItem", kWrite, {kOwnRows}}};

Phases EditUserPhases() {
  std::vector<std::wstring> row = Writing(kUserRow);
  row.emplace_back(L"EncryptPassword");
  return Phases{{L"Form Load", kWrite, {kUserRow, L"DecryptPassword"}}} + kUserLists +
         Phases{{L"EditUser", kWrite, row},
                Links(L"EditUserGroups", kMembershipsOfUser, L"DELETE FROM QRUSGP"),
                Links(L"EditUserPermissions", kOwnRows, L"DELETE FROM QRUPRM"),
                kUserFolders} +
         kAllMembers;
}

Phases NewUserPhases() {
  std::vector<std::wstring> row = Writing(kUserRow);
  row.insert(row.end(), {L"NewIdentifier QRUSRN", L"EncryptPassword"});
  return Phases{{L"List1AddItem", kWrite, {kAllGroups, L"GetDisplayName 104"}},
                {L"GetEveryOneGroup", kWrite, {L"SELECT QRGROUPV.GROUPID FROM QRGROUPV WHERE"}},
                {L"List1AddItem", kWrite, {kAllPermissions, L"GetDisplayName 101"}},
                {L"NewUser", kWrite, row},
                Links(L"NewUserGroups", kMembershipsOfUser),
                Links(L"NewUserPermissions", kOwnRows),
                kUserFolders} +
         kAllMembers;
}

Phases EditGroupPhases() {
  std::vector<std::wstring> row = Writing(kGroupRecord);
  row.insert(row.end(), {L"GetDisplayName 104 ", L"GetDisplayName 0 "});
  return Phases{{L"Form Load", kWrite, {kGroupRecord, L"GetDisplayName 10"}},
                {L"List1AddItem", kWrite, {kGroupUsers, kAllPermissions}},
                {L"SelectListItem", kWrite, {kGroupRow}},
                {L"Form Load", kWrite, {L"GetDisplayName 114"}},
                {L"EditGroup", kWrite, row},
                Links(L"EditGroupUser", kMembershipsOfGroup, L"DELETE FROM QRUSGP"),
                Links(L"EditGroupPermissions", kGroupRows, L"DELETE FROM QRGPRM"),
                kGroupFolders} +
         kAllUsersLinks;
}

Phases NewGroupPhases() {
  std::vector<std::wstring> row = Writing(kGroupRecord);
  row.insert(row.end(), {L"GetDisplayName 104 ", L"NewIdentifier QRGPRN"});
  return Phases{{L"List1AddItem", kWrite, {kAllPermissions}},
                {L"cmdOK_Click", kWrite, {L"GetDisplayName 114"}},
                {L"NewGroup", kWrite, row},
                Links(L"NewUserGroups", kMembershipsOfGroup),
                Links(L"NewGroupPermissions", kGroupRows),
                kGroupFolders} +
         kAllUsersLinks;
}

Phases ChooserPhases(const wchar_t* candidates, const wchar_t* owned, const wchar_t* row) {
  return {{L"Form Load", kWrite, {candidates, L"GetDisplayName 10"}},
          {L"SelectedListItem", kWrite, {owned}},
          {L"UpdateData", kWrite, Writing(row)}};
}

Phases AddUsersPhases() {
  return Phases{{L"List1AddItem", kWrite, {kAllUsers}},
                {L"UpdateAddItem", kWrite, {kGroupUsers}},
                {L"NewUserGroups", kWrite, Writing(kMembership)},
                kGroupFolders} +
         kAllUsersLinks;
}

Phases Deletion(const wchar_t* statement) {
  return {{L"DeleteRecord", kWrite, {statement}}};
}

// Changes the checks of what has this item data.
void Toggle(User& user, controls::ListBox& list, const test_support::Ids& ids) {
  for (const std::int32_t id : ids) user.Toggle(list, test_support::ItemOf(list, id));
}

void FillUser(User& user, controls::Form& form) {
  auto& dialog = dynamic_cast<dialogs::UserDialog&>(form);
  user.Type(dialog.txtUserName, L"Zola");
  user.Type(dialog.txtFullName, L"Emile Zola");
  user.Type(dialog.txtPassword, L"secret1");
  user.Type(dialog.txtVerify, L"secret1");
  // One group and two permissions change their checks.
  Toggle(user, dialog.List1[kGroupsList], {Sample::kQualite});
  Toggle(user, dialog.List1[kPermissionsList], {Sample::kReadings, Sample::kAudit});
  user.Click(dialog.cmdOK);
}

void FillGroup(User& user, controls::Form& form) {
  auto& dialog = dynamic_cast<dialogs::GroupDialog&>(form);
  user.Type(dialog.txtGroupName, L"Labo");
  user.Type(dialog.txtDesc, L"Mesures");
  Toggle(user, dialog.List1[kPermissionsList], {Sample::kReadings, Sample::kAudit});
  user.Click(dialog.cmdOK);
}

void FillChooser(User& user, controls::Form& form) {
  auto& dialog = dynamic_cast<dialogs::frmListItem&>(form);
  user.Click(dialog.cmdBtn[kCheckAllButton]);
  user.Click(dialog.cmdOK);
}

void FillMembers(User& user, controls::Form& form) {
  auto& dialog = dynamic_cast<dialogs::frmAddUserInGroup&>(form);
  user.Click(dialog.cmdBtn[kAddAllButton]);
  user.Click(dialog.cmdOK);
}

// What a call inside a result set is called on: the set's statement.
std::wstring StatementOf(const std::wstring& call) {
  const std::size_t statement = call.find(L"SELECT");
  return statement == std::wstring::npos ? call : call.substr(statement);
}

bool Matches(const FaultPhase& phase, const std::wstring& call, bool inside) {
  for (const std::wstring& beginning : phase.beginnings) {
    if (call.starts_with(beginning)) return true;
    if (inside && StatementOf(call).starts_with(beginning)) return true;
  }
  return false;
}

using Window = frmUserGroupPerm;

std::vector<FaultCase> AccountCases() {
  return {
      {"edit user", kUsersTree, Keys::User(9),
       [](Window& w) { return &w.Users.cmdUser[kEditButton]; }, FillUser, EditUserPhases()},
      {"delete user",
       kUsersTree,
       Keys::User(9),
       [](Window& w) { return &w.Users.cmdUser[kDeleteButton]; },
       {},
       Deletion(L"UPDATE QRUSER") + kAllMembers},
      {"new user", kUsersTree, Keys::Root(), [](Window& w) { return &w.Users.cmdUser[kNewButton]; },
       FillUser, NewUserPhases()},
      {"new user like another", kUsersTree, Keys::User(9), nullptr, FillUser, NewUserPhases(),
       L'D'},
      {"edit group", kGroupsTree, Keys::Group(6),
       [](Window& w) { return &w.Groups.cmdGroup[kEditButton]; }, FillGroup, EditGroupPhases()},
      {"delete group",
       kGroupsTree,
       Keys::Group(6),
       [](Window& w) { return &w.Groups.cmdGroup[kDeleteButton]; },
       {},
       Deletion(L"UPDATE QRGROUP") + kAllUsersLinks},
      {"new group", kGroupsTree, Keys::Root(),
       [](Window& w) { return &w.Groups.cmdGroup[kNewButton]; }, FillGroup, NewGroupPhases()},
  };
}

std::vector<FaultCase> LinkCases() {
  return {
      {"assign groups", kUsersTree, Keys::GroupsOfUser(9),
       [](Window& w) { return &w.Users.cmdMemberOf[kAssignButton]; }, FillChooser,
       ChooserPhases(kAllGroups, L"SELECT QRUSGP.GROUPID FROM", kMembership) +
           Phases{kUserFolders} + kAllMembers},
      {"remove membership",
       kUsersTree,
       Keys::GroupOfUser(9, 12),
       [](Window& w) { return &w.Users.cmdMemberOf[kRemoveButton]; },
       {},
       Deletion(L"DELETE FROM QRUSGP") + Phases{kUserFolders}},
      {"assign user permissions", kUsersTree, Keys::OwnPermissions(9),
       [](Window& w) { return &w.Users.cmdUserPermission[kAssignButton]; }, FillChooser,
       ChooserPhases(kAllPermissions, L"SELECT QRUPRM.PERMID FROM", kOwnRows) +
           Phases{kUserFolders}},
      {"remove user permission",
       kUsersTree,
       Keys::OwnPermission(9, 14),
       [](Window& w) { return &w.Users.cmdUserPermission[kRemoveButton]; },
       {},
       Deletion(L"DELETE FROM QRUPRM") + Phases{kUserFolders}},
      {"assign members", kGroupsTree, Keys::MembersOfGroup(6),
       [](Window& w) { return &w.Groups.cmdMember[kAssignButton]; }, FillMembers, AddUsersPhases()},
      {"remove member",
       kGroupsTree,
       Keys::MemberOfGroup(6, 15),
       [](Window& w) { return &w.Groups.cmdMember[kRemoveButton]; },
       {},
       Deletion(L"DELETE FROM QRUSGP") + kAllUsersLinks},
      {"assign group permissions", kGroupsTree, Keys::GroupPermissions(6),
       [](Window& w) { return &w.Groups.cmdGroupPermission[kAssignButton]; }, FillChooser,
       ChooserPhases(kAllPermissions, L"SELECT QRGPRM.PERMID FROM", kGroupRow) +
           Phases{kGroupFolders} + kAllUsersPermissions},
      {"remove group permission",
       kGroupsTree,
       Keys::GroupPermission(6, 21),
       [](Window& w) { return &w.Groups.cmdGroupPermission[kRemoveButton]; },
       {},
       Deletion(L"DELETE FROM QRGPRM") + kAllUsersPermissions},
  };
}

}  // namespace

const FaultPhase* PhaseWalk::Next(const std::wstring& call, bool inside) {
  while (at_ < phases_.size() && !Matches(phases_[at_], call, inside)) ++at_;
  return at_ < phases_.size() ? &phases_[at_] : nullptr;
}

std::vector<FaultCase> FaultCases() {
  std::vector<FaultCase> cases = AccountCases();
  for (FaultCase& link : LinkCases()) cases.push_back(std::move(link));
  return cases;
}

}  // namespace browser
