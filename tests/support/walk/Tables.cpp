#include "tests/support/walk/Tables.h"

#include "data/Text.h"

namespace test_support {
namespace {

std::int32_t Id(const std::string& column) {
  return static_cast<std::int32_t>(std::stol(column));
}

Tables::Accounts ReadAccounts(test_support::RawDatabase& raw, const std::string& columns,
                              const std::string& table) {
  Tables::Accounts accounts;
  for (const auto& row : raw.Rows("SELECT " + columns + " FROM " + table)) {
    accounts[Id(row[0])] = {data::FromUtf8(row[1]), data::FromUtf8(row[2]), data::FromUtf8(row[3]),
                            row[4] == "D"};
  }
  return accounts;
}

Tables::Links ReadLinks(test_support::RawDatabase& raw, const std::string& statement) {
  Tables::Links links;
  for (const auto& row : raw.Rows(statement)) links.emplace(Id(row[0]), Id(row[1]));
  return links;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const AccountRecord& record) {
  return out << '"' << data::ToUtf8(record.name) << "\" (" << data::ToUtf8(record.addition) << ')'
             << (record.password.empty() ? "" : " *") << (record.deleted ? " D" : "");
}

std::wstring Tables::Display(int code, const std::wstring& text) const {
  const auto found = displayTexts.find({code, text});
  return found == displayTexts.end() ? text : found->second;
}

bool Tables::IsLiving(const Accounts& accounts, std::int32_t id) {
  const auto found = accounts.find(id);
  return found != accounts.end() && !found->second.deleted;
}

Tables ReadTables(test_support::RawDatabase& raw) {
  Tables tables;
  tables.users = ReadAccounts(
      raw, "USERID, NAME, COALESCE(FULLNAME, ''), COALESCE(PASSWORD, ''), COALESCE(VFLG, '')",
      "QRUSER");
  tables.groups =
      ReadAccounts(raw, "GROUPID, NAME, COALESCE(DESCR, ''), '', COALESCE(VFLG, '')", "QRGROUP");
  for (const auto& row : raw.Rows("SELECT PERMID, NAME FROM QRPERM")) {
    tables.permissions[Id(row[0])] = data::FromUtf8(row[1]);
  }
  tables.memberships = ReadLinks(raw, "SELECT USERID, GROUPID FROM QRUSGP");
  tables.userPermissions = ReadLinks(raw, "SELECT USERID, PERMID FROM QRUPRM");
  tables.groupPermissions = ReadLinks(raw, "SELECT GROUPID, PERMID FROM QRGPRM");
  for (const auto& row : raw.Rows("SELECT CODE, GIVEN, MAPPED FROM QRDISPLAY")) {
    tables.displayTexts[{Id(row[0]), data::FromUtf8(row[1])}] = data::FromUtf8(row[2]);
  }
  return tables;
}

}  // namespace test_support
