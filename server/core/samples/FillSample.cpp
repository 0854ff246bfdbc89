#include "data/Text.h"
#include "server/core/accounts/Counters.h"
#include "server/core/samples/Filling.h"
#include "server/core/samples/InsertDisplayTexts.h"
#include "server/core/samples/SampleData.h"
#include "server/core/sql/Query.h"

namespace server {
namespace {

void InsertUsers(Engine& engine, const PasswordCipher& passwords) {
  Query insert(engine, "INSERT INTO QRUSER (USERID, NAME, VFLG) VALUES (?, ?, ?)");
  Query fullName(engine, "UPDATE QRUSER SET FULLNAME = ? WHERE USERID = ?");
  Query password(engine, "UPDATE QRUSER SET PASSWORD = ? WHERE USERID = ?");
  const std::wstring plain = data::FromUtf8(sample::kPassword);
  for (const sample::User& user : sample::Users()) {
    insert.Run(user.id, user.name, std::string_view(user.deleted ? "D" : ""));
    if (user.fullName != nullptr) fullName.Run(std::string_view(user.fullName), user.id);
    if (user.id != sample::kUserWithoutPassword) {
      password.Run(passwords.Encrypt(plain, user.id), user.id);
    }
    RaiseCounter(engine, "QRUSRN", user.id);
  }
}

void InsertGroups(Engine& engine) {
  Query insert(engine, "INSERT INTO QRGROUP (GROUPID, NAME) VALUES (?, ?)");
  Query description(engine, "UPDATE QRGROUP SET DESCR = ? WHERE GROUPID = ?");
  for (const sample::Group& group : sample::Groups()) {
    insert.Run(group.id, group.name);
    if (group.description != nullptr) {
      description.Run(std::string_view(group.description), group.id);
    }
    RaiseCounter(engine, "QRGPRN", group.id);
  }
}

void InsertPermissions(Engine& engine) {
  Query insert(engine, "INSERT INTO QRPERM (PERMID, NAME, RIGHTS) VALUES (?, ?, ?)");
  for (const sample::Permission& permission : sample::Permissions()) {
    insert.Run(permission.id, permission.name, permission.rights);
  }
}

void InsertLinks(Engine& engine, std::string_view sql, std::span<const sample::Link> links) {
  Query insert(engine, sql);
  for (const sample::Link& link : links) insert.Run(link.owner, link.item);
}

void InsertMemberships(Engine& engine) {
  constexpr std::string_view kInsert = "INSERT INTO QRUSGP (USERID, GROUPID) VALUES (?, ?)";
  InsertLinks(engine, kInsert, sample::Memberships());
  Query everyone(engine, kInsert);
  for (const sample::User& user : sample::Users()) {
    if (!user.deleted) everyone.Run(user.id, sample::kEveryone);
  }
}

}  // namespace

bool IsEmptyDatabase(Engine& engine) {
  Query accounts(engine, "SELECT USERID FROM QRUSER UNION SELECT GROUPID FROM QRGROUP");
  return !accounts.Next();
}

void FillSample(Engine& engine, const PasswordCipher& passwords) {
  WriteTransaction transaction(engine);
  InsertUsers(engine, passwords);
  InsertGroups(engine);
  InsertPermissions(engine);
  InsertMemberships(engine);
  InsertLinks(engine, "INSERT INTO QRUPRM (USERID, PERMID) VALUES (?, ?)",
              sample::UserPermissions());
  InsertLinks(engine, "INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (?, ?)",
              sample::GroupPermissions());
  InsertDisplayTexts(engine);
  transaction.Commit();
}

}  // namespace server
