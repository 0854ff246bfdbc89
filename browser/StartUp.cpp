#include "browser/StartUp.h"

#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/Rights.h"
#include "data/Text.h"
#include "data/WatchedConnection.h"

namespace browser {
namespace {

// The mode in which the session server is used after the access check.
constexpr std::int32_t kAdministrationMode = 1;

}  // namespace

bool StartUp::AttachToSession() {
  if (!OpenSession()) {
    ShowRefusal();
    return false;
  }
  global_.SessionServer->SetMode(kAdministrationMode);
  global_.sessionUserText = global_.SessionServer->GetSessionUserText();
  global_.journal.Open(global_.sessionUserText);
  global_.databaseConnection =
      data::Watched(global_.SessionServer->DatabaseConnection(), global_.journal);
  return true;
}

// False when the session's user may not administer users.
bool StartUp::OpenSession() {
  global_.SessionServer = global_.CreateSessionServer();
  data::SessionServer& server = *global_.SessionServer;
  server.ReadCommandLine(global_.desktop.CommandLine(), global_.sessionText, global_.sessionId);
  server.OpenSession(global_.sessionText, global_.sessionId);
  global_.sessionRights = server.GetRights();
  return (global_.sessionRights & data::kUserAdministration) != 0;
}

void StartUp::ShowRefusal() {
  global_.desktop.MsgBox(global_.LoadResString(app::kRightRequired1) + L"\r\n" +
                             global_.LoadResString(app::kRightRequired2),
                         controls::kExclamation, global_.LoadResString(app::kTitle));
}

app::Outcome StartUp::FindAccounts(ProtectedAccounts& accounts) {
  accounts = {};
  for (const auto find : {&StartUp::GetCurrentUser, &StartUp::GetAdminUser,
                          &StartUp::GetAdministratorsAndEveryoneGroup}) {
    if ((this->*find)(accounts) == app::Outcome::kFailed) return app::Outcome::kFailed;
  }
  return app::Outcome::kDone;
}

app::Outcome StartUp::GetCurrentUser(ProtectedAccounts& accounts) {
  return app::Reported(global_, L"GetCurrentUser", [&] {
    accounts.currentUserId = data::ReadIdentifier(*global_.databaseConnection,
                                                  data::SqlSelectSessionUser(global_.sessionId));
  });
}

app::Outcome StartUp::GetAdminUser(ProtectedAccounts& accounts) {
  return app::Reported(global_, L"GetAdminUser", [&] {
    accounts.adminUserId =
        data::ReadIdentifier(*global_.databaseConnection, data::SqlSelectAdminUser());
  });
}

app::Outcome StartUp::GetAdministratorsAndEveryoneGroup(ProtectedAccounts& accounts) {
  return app::Reported(global_, L"GetAdministratorsAndEveryoneGroup", [&] {
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
  });
}

}  // namespace browser
