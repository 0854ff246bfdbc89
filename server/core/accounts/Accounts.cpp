#include "server/core/accounts/Accounts.h"

#include "data/Text.h"
#include "server/core/accounts/Counters.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Rights.h"
#include "server/core/sql/Query.h"

namespace server {
namespace {

std::int64_t GroupNamed(Engine& engine, std::string_view name) {
  Query find(engine, "SELECT GROUPID FROM QRGROUPV WHERE NAME = ? ORDER BY GROUPID");
  if (find.Bind(name).Next()) return find.Number(0);
  const std::int32_t id = DrawIdentifier(engine, "QRGPRN");
  Run(engine, "INSERT INTO QRGROUP (GROUPID, NAME) VALUES (?, ?)", id, name);
  return id;
}

// The first permission that carries the right to administer users.
std::int64_t AdministerPermission(Engine& engine) {
  Query permissions(engine, "SELECT PERMID, RIGHTS FROM QRPERM ORDER BY PERMID");
  std::int64_t last = 0;
  while (permissions.Next()) {
    last = permissions.Number(0);
    if ((permissions.Number(1) & kAdministerRight) != 0) return last;
  }
  Run(engine, "INSERT INTO QRPERM (PERMID, NAME, RIGHTS) VALUES (?, ?, ?)", last + 1,
      kAdministerPermission, kAdministerRight);
  return last + 1;
}

void GrantToGroup(Engine& engine, std::int64_t group, std::int64_t permission) {
  Query find(engine, "SELECT PERMID FROM QRGPRM WHERE GROUPID = ? AND PERMID = ?");
  if (find.Bind(group, permission).Next()) return;
  Run(engine, "INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (?, ?)", group, permission);
}

void InsertUser(Engine& engine, const PasswordCipher& passwords, std::int32_t id,
                const NewAdministrator& account) {
  Run(engine, "INSERT INTO QRUSER (USERID, NAME, FULLNAME, PASSWORD) VALUES (?, ?, NULL, ?)", id,
      account.name, passwords.Encrypt(account.password, id));
  if (account.fullName.empty()) return;
  Run(engine, "UPDATE QRUSER SET FULLNAME = ? WHERE USERID = ?", account.fullName, id);
}

}  // namespace

std::optional<std::int32_t> FindUser(Engine& engine, std::wstring_view name) {
  Query find(engine, "SELECT USERID FROM QRUSERV WHERE NAME = ?");
  if (!find.Bind(name).Next()) return std::nullopt;
  return static_cast<std::int32_t>(find.Number(0));
}

std::optional<std::int32_t> AddAdministrator(Engine& engine, const PasswordCipher& passwords,
                                             const NewAdministrator& account) {
  WriteTransaction transaction(engine);
  if (FindUser(engine, account.name)) return std::nullopt;
  const std::int64_t administrators = GroupNamed(engine, kAdministratorsGroup);
  const std::int64_t everyone = GroupNamed(engine, kEveryoneGroup);
  GrantToGroup(engine, administrators, AdministerPermission(engine));
  const std::int32_t id = DrawIdentifier(engine, "QRUSRN");
  InsertUser(engine, passwords, id, account);
  Query join(engine, "INSERT INTO QRUSGP (USERID, GROUPID) VALUES (?, ?)");
  join.Run(id, administrators);
  join.Run(id, everyone);
  transaction.Commit();
  return id;
}

std::optional<std::int32_t> CheckPassword(Engine& engine, const PasswordCipher& passwords,
                                          std::wstring_view name, std::wstring_view password) {
  Query find(engine, "SELECT USERID, PASSWORD FROM QRUSERV WHERE NAME = ?");
  if (!find.Bind(name).Next()) return std::nullopt;
  const auto id = static_cast<std::int32_t>(find.Number(0));
  const std::wstring stored = find.WideText(1);
  if (stored.empty()) return std::nullopt;
  const std::string plain = data::ToUtf8(passwords.Decrypt(stored, id));
  if (!SameBytes(plain, data::ToUtf8(password))) return std::nullopt;
  return id;
}

}  // namespace server
