#include "server/core/sql/SchemaTables.h"

#include <algorithm>

namespace server {
namespace {

constexpr ColumnKind kNumber = ColumnKind::kNumber;
constexpr ColumnKind kText = ColumnKind::kText;

constexpr SchemaColumn kUserColumns[] = {
    {"USERID", kNumber, true},  {"NAME", kText, false}, {"FULLNAME", kText, false},
    {"PASSWORD", kText, false}, {"VFLG", kText, false},
};
constexpr SchemaColumn kGroupColumns[] = {
    {"GROUPID", kNumber, true},
    {"NAME", kText, false},
    {"DESCR", kText, false},
    {"VFLG", kText, false},
};
// The views show a table's columns without the flag. Each has its columns for itself, so that a
// column tells which of them is meant.
constexpr SchemaColumn kUserViewColumns[] = {
    {"USERID", kNumber, true},
    {"NAME", kText, false},
    {"FULLNAME", kText, false},
    {"PASSWORD", kText, false},
};
constexpr SchemaColumn kGroupViewColumns[] = {
    {"GROUPID", kNumber, true},
    {"NAME", kText, false},
    {"DESCR", kText, false},
};
constexpr SchemaColumn kMembershipViewColumns[] = {{"USERID", kNumber, true},
                                                   {"GROUPID", kNumber, true}};
constexpr SchemaColumn kMembershipColumns[] = {{"USERID", kNumber, true},
                                               {"GROUPID", kNumber, true}};
constexpr SchemaColumn kUserPermissionColumns[] = {{"USERID", kNumber, true},
                                                   {"PERMID", kNumber, true}};
constexpr SchemaColumn kGroupPermissionColumns[] = {{"GROUPID", kNumber, true},
                                                    {"PERMID", kNumber, true}};
constexpr SchemaColumn kPermissionColumns[] = {
    {"PERMID", kNumber, true}, {"NAME", kText, false}, {"RIGHTS", kNumber, false}};
constexpr SchemaColumn kSessionColumns[] = {{"USERID", kNumber, false}, {"SESID", kNumber, true}};

constexpr std::string_view kLiving = "COALESCE(VFLG, '') <> 'D'";

constexpr SchemaTable kTables[] = {
    {"QRUSER", "", "", false, true, kUserColumns},
    {"QRUSERV", "QRUSER", kLiving, false, true, kUserViewColumns},
    {"QRGROUP", "", "", false, true, kGroupColumns},
    {"QRGROUPV", "QRGROUP", kLiving, false, true, kGroupViewColumns},
    {"QRUSGP", "QRUSGP", "", true, true, kMembershipColumns},
    {"QRUSGPV", "", "", false, true, kMembershipViewColumns},
    {"QRUPRM", "QRUPRM", "", true, true, kUserPermissionColumns},
    {"QRGPRM", "QRGPRM", "", true, true, kGroupPermissionColumns},
    {"QRPERM", "", "", false, true, kPermissionColumns},
    {"QRAUSR", "", "", false, false, kSessionColumns},
};

char Upper(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Upper(a) == Upper(b); });
}

const SchemaTable* FindTable(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kTables), std::end(kTables),
                   [name](const SchemaTable& table) { return SameName(table.name, name); });
  return found == std::end(kTables) ? nullptr : found;
}

const SchemaColumn* FindColumn(const SchemaTable& table, std::string_view name) {
  const auto found =
      std::find_if(table.columns.begin(), table.columns.end(),
                   [name](const SchemaColumn& column) { return SameName(column.name, name); });
  return found == table.columns.end() ? nullptr : &*found;
}

}  // namespace server
