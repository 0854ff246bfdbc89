#include "data/StatementSubject.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/RunTimeError.h"
#include "data/Text.h"

namespace data {
namespace {

struct TableName {
  std::wstring_view name;
  Table table;
  // What * selects, in the order of the table's definition.
  std::array<std::wstring_view, 2> columns;
};

// A view has its table's name with a V after it.
constexpr TableName kTables[] = {
    {L"QRUSER", Table::kUsers, {}},
    {L"QRGROUP", Table::kGroups, {}},
    {L"QRUSGP", Table::kMemberships, {L"USERID", L"GROUPID"}},
    {L"QRUPRM", Table::kUserPermissions, {L"USERID", L"PERMID"}},
    {L"QRGPRM", Table::kGroupPermissions, {L"GROUPID", L"PERMID"}},
};

constexpr std::wstring_view kSelect = L"SELECT ";
constexpr std::wstring_view kFrom = L" FROM ";
constexpr std::wstring_view kUpdate = L"UPDATE ";
constexpr std::wstring_view kDelete = L"DELETE FROM ";
// Both of them are in use.
constexpr std::wstring_view kWhere[] = {L" WHERE ", L" Where "};

const TableName* TableAt(std::wstring_view text) {
  text = Trim(text);
  const std::wstring_view word = text.substr(0, text.find_first_of(L" ,"));
  const auto found = std::ranges::find_if(kTables, [&](const TableName& table) {
    return word == table.name || (word.starts_with(table.name) && word.ends_with(L"V") &&
                                  word.size() == table.name.size() + 1);
  });
  return found == std::end(kTables) ? nullptr : found;
}

// A column without its table's name.
std::wstring_view ColumnName(std::wstring_view text) {
  text = Trim(text);
  return text.substr(text.find(L'.') + 1);
}

std::vector<std::wstring> SelectedColumns(std::wstring_view list, const TableName* table) {
  std::vector<std::wstring> columns;
  if (Trim(list) == L"*") {
    if (table != nullptr) columns.assign(table->columns.begin(), table->columns.end());
    return columns;
  }
  for (;;) {
    const std::size_t comma = list.find(L',');
    columns.emplace_back(ColumnName(list.substr(0, comma)));
    if (comma == std::wstring_view::npos) return columns;
    list.remove_prefix(comma + 1);
  }
}

std::optional<std::int32_t> Number(std::wstring_view text) {
  try {
    return ToInteger(text);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

// The conditions of "column = number" among those that AND ties together.
std::vector<std::pair<std::wstring, std::int32_t>> Conditions(std::wstring_view text) {
  std::vector<std::pair<std::wstring, std::int32_t>> conditions;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(L" and "), text.find(L" AND "));
    const std::wstring_view condition = text.substr(0, end);
    const std::size_t equals = condition.find(L'=');
    if (equals != std::wstring_view::npos) {
      const std::wstring_view column = ColumnName(condition.substr(0, equals));
      const auto number = Number(condition.substr(equals + 1));
      if (number && !column.empty()) conditions.emplace_back(column, *number);
    }
    text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 5);
  }
  return conditions;
}

// What stands after the last WHERE: a name that an administrator has typed stands before it.
std::wstring_view Condition(std::wstring_view statement) {
  std::size_t begin = statement.size();
  std::wstring_view rest = statement;
  for (const std::wstring_view where : kWhere) {
    const std::size_t at = rest.rfind(where);
    if (at == std::wstring_view::npos) continue;
    rest.remove_prefix(at + where.size());
    begin = statement.size() - rest.size();
  }
  return statement.substr(begin);
}

}  // namespace

StatementSubject SubjectOf(std::wstring_view statement) {
  StatementSubject subject;
  const TableName* table = nullptr;
  if (statement.starts_with(kSelect)) {
    const std::size_t from = statement.find(kFrom);
    if (from == std::wstring_view::npos) return subject;
    table = TableAt(statement.substr(from + kFrom.size()));
    subject.columns =
        SelectedColumns(statement.substr(kSelect.size(), from - kSelect.size()), table);
  } else if (statement.starts_with(kUpdate)) {
    table = TableAt(statement.substr(kUpdate.size()));
  } else if (statement.starts_with(kDelete)) {
    table = TableAt(statement.substr(kDelete.size()));
  }
  if (table != nullptr) subject.table = table->table;
  subject.where = Conditions(Condition(statement));
  return subject;
}

}  // namespace data
