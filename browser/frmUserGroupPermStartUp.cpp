// The start-up of the program, which is the load of its main window.

#include "app/ErrorReport.h"
#include "app/LocaleFont.h"
#include "app/MShowHelp.h"
#include "app/StringIds.h"
#include "browser/frmUserGroupPerm.h"
#include "controls/Desktop.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace browser {
namespace {

// The right to administer users in a session's rights mask.
constexpr std::int32_t kUserAdministration = 4;

// The mode in which the session server is used after the access check.
constexpr std::int32_t kAdministrationMode = 1;

}  // namespace

void frmUserGroupPerm::Form_Load() {
  try {
    isStarted = false;
    app::SetLocaleFont(*this);
    SettingControls();
    SetPages();
    SetAnchors();
    SetEvents();
    global_.helpFile = app::HelpFile(global_);
    if (!AttachToSession()) {
      ShowRefusal();
      Unload();
      return;
    }
    TakeConnection();
    // From here on there may be much to read, which the window shows.
    Show();
    if (!FindAccounts() || RefreshTree() == data::kFailed) {
      global_.startUpFailed = true;
      Unload();
      return;
    }
    GetCountPerm();
    ShowStatus();
    TreeView1[0].SetFocus();
    isStarted = true;
  } catch (...) {
    app::ReportError(global_, L"Form Load");
    global_.startUpFailed = true;
    Unload();
  }
}

// Opens the session of the command line. False when its user may not administer users.
bool frmUserGroupPerm::AttachToSession() {
  global_.SessionServer = global_.CreateSessionServer();
  data::SessionServer& server = *global_.SessionServer;
  server.ReadCommandLine(global_.desktop.CommandLine(), global_.sessionText, global_.sessionId);
  server.OpenSession(global_.sessionText, global_.sessionId);
  global_.sessionRights = server.GetRights();
  return (global_.sessionRights & kUserAdministration) != 0;
}

void frmUserGroupPerm::ShowRefusal() {
  global_.desktop.MsgBox(global_.LoadResString(app::kRightRequired1) + L"\r\n" +
                             global_.LoadResString(app::kRightRequired2),
                         controls::kExclamation, global_.LoadResString(app::kTitle));
}

void frmUserGroupPerm::TakeConnection() {
  global_.SessionServer->SetMode(kAdministrationMode);
  global_.sessionUserText = global_.SessionServer->GetSessionUserText();
  global_.databaseConnection = global_.SessionServer->DatabaseConnection();
}

// An account that is missing keeps the identifier 0 and is not protected. One that could not be
// looked up for an error is another matter: the program does not go on without its protection.
bool frmUserGroupPerm::FindAccounts() {
  accounts = {};
  if (!GetCurrentUser() || !GetAdminUser() || !GetAdministratorsAndEveryoneGroup()) return false;
  exchange.adminUserId = accounts.adminUserId;
  return true;
}

bool frmUserGroupPerm::GetCurrentUser() {
  try {
    accounts.currentUserId = data::ReadIdentifier(*global_.databaseConnection,
                                                  data::SqlSelectSessionUser(global_.sessionId));
    return true;
  } catch (...) {
    app::ReportError(global_, L"GetCurrentUser");
    return false;
  }
}

bool frmUserGroupPerm::GetAdminUser() {
  try {
    accounts.adminUserId =
        data::ReadIdentifier(*global_.databaseConnection, data::SqlSelectAdminUser());
    return true;
  } catch (...) {
    app::ReportError(global_, L"GetAdminUser");
    return false;
  }
}

bool frmUserGroupPerm::GetAdministratorsAndEveryoneGroup() {
  try {
    const auto rows = global_.databaseConnection->OpenResultSet(data::SqlSelectProtectedGroups());
    for (; !rows->EndOfRows(); rows->MoveNext()) {
      const std::wstring stored = rows->Column(1).Text();
      const std::wstring_view name = data::Trim(stored);
      if (name == L"Everyone") {
        accounts.everyoneGroupId = rows->Column(0).Integer();
      } else if (name == L"Administrators") {
        accounts.administratorsGroupId = rows->Column(0).Integer();
      }
    }
    rows->Close();
    return true;
  } catch (...) {
    app::ReportError(global_, L"GetAdministratorsAndEveryoneGroup");
    return false;
  }
}

void frmUserGroupPerm::GetCountPerm() {
  try {
    permissionCount = data::CountRows(*global_.databaseConnection, data::SqlSelectAllPermissions());
  } catch (...) {
    app::ReportError(global_, L"GetCountPerm");
  }
}

}  // namespace browser
