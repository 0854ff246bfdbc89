#include "app/JournalLine.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

#include "app/Json.h"
#include "data/Text.h"

namespace app {
namespace {

using data::Table;
using data::Write;

struct TableWords {
  Table table;
  std::string_view kind;
};

constexpr TableWords kTables[] = {
    {Table::kUsers, "user"},
    {Table::kGroups, "group"},
    {Table::kMemberships, "membership"},
    {Table::kUserPermissions, "userPermission"},
    {Table::kGroupPermissions, "groupPermission"},
    {Table::kOther, "other"},
};

// The columns that identify: one account or permission, and several.
struct ColumnWords {
  std::wstring_view column;
  std::string_view one;
  std::string_view several;
};

constexpr ColumnWords kIdentifiers[] = {
    {L"USERID", "user", "users"},
    {L"GROUPID", "group", "groups"},
    {L"PERMID", "permission", "permissions"},
};

constexpr std::pair<std::wstring_view, std::string_view> kTexts[] = {
    {L"NAME", "name"},
    {L"FULLNAME", "fullName"},
    {L"DESCR", "description"},
};

std::string_view KindOf(Table table) {
  return std::ranges::find(kTables, table, &TableWords::table)->kind;
}

std::string_view WordOf(Write::Kind kind) {
  if (kind == Write::Kind::kAdded) return "added";
  return kind == Write::Kind::kChanged ? "changed" : "removed";
}

const ColumnWords* Identifier(const std::wstring& column) {
  const auto found = std::ranges::find(kIdentifiers, column, &ColumnWords::column);
  return found == std::end(kIdentifiers) ? nullptr : found;
}

bool IsLink(Table table) {
  return table == Table::kMemberships || table == Table::kUserPermissions ||
         table == Table::kGroupPermissions;
}

std::int32_t IdIn(const Write::Field& field) {
  const auto* id = std::get_if<std::int32_t>(&field.value);
  return id == nullptr ? 0 : *id;
}

// A column that is none of the program's own is left out, whatever it may hold.
void AddField(JsonObject& json, const Write::Field& field) {
  if (const ColumnWords* identifier = Identifier(field.column)) {
    return json.Add(identifier->one, std::int64_t{IdIn(field)});
  }
  const auto text = std::ranges::find(kTexts, field.column,
                                      [](const auto& row) { return std::wstring(row.first); });
  if (text == std::end(kTexts)) return;
  if (const auto* value = std::get_if<std::wstring>(&field.value)) {
    json.Add(text->second, *value);
  } else {
    json.AddNull(text->second);
  }
}

bool IsAddedLink(const Write& write) {
  return write.kind == Write::Kind::kAdded && IsLink(write.table) && write.values.size() == 2 &&
         Identifier(write.values[1].column) != nullptr;
}

// Whether both add a link to one and the same account.
bool GoTogether(const Write& first, const Write& second) {
  return IsAddedLink(first) && IsAddedLink(second) && first.table == second.table &&
         first.values[0].column == second.values[0].column &&
         first.values[0].value == second.values[0].value;
}

JsonObject Begin(const Write& write) {
  JsonObject json;
  json.AddWord("change", WordOf(write.kind));
  json.AddWord("kind", KindOf(write.table));
  return json;
}

std::string OneChange(const Write& write) {
  JsonObject json = Begin(write);
  for (const auto& field : write.where) AddField(json, field);
  for (const auto& field : write.values) AddField(json, field);
  if (write.rows >= 0) json.Add("rows", std::int64_t{write.rows});
  return json.Text();
}

// Links that were added one after the other to one account: it is named once.
std::string LinkChanges(const Write* first, const Write* last) {
  JsonObject json = Begin(*first);
  AddField(json, first->values[0]);
  JsonArray ids;
  for (const Write* write = first; write != last; ++write) {
    ids.Add(std::to_string(IdIn(write->values[1])));
  }
  json.AddValue(Identifier(first->values[1].column)->several, ids.Text());
  json.Add("rows", std::int64_t{last - first});
  return json.Text();
}

std::string Changes(const std::vector<Write>& writes) {
  JsonArray changes;
  const Write* const end = writes.data() + writes.size();
  for (const Write* first = writes.data(); first != end;) {
    const Write* last = first + 1;
    while (last != end && GoTogether(*first, *last)) ++last;
    changes.Add(IsAddedLink(*first) ? LinkChanges(first, last) : OneChange(*first));
    first = last;
  }
  return changes.Text();
}

// -1 when that of one of the writes is not known.
std::int64_t Rows(const std::vector<Write>& writes) {
  std::int64_t rows = 0;
  for (const Write& write : writes) {
    if (write.rows < 0) return -1;
    rows += write.rows;
  }
  return rows;
}

template <typename... Numbers>
std::wstring Formatted(const char* format, Numbers... numbers) {
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), format, numbers...);
  return data::FromUtf8(text.data());
}

std::wstring UtcText(JournalTime time) {
  using namespace std::chrono;
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(floor<milliseconds>(time - day));
  return Formatted(
      "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
      static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
}

std::string AccountText(const JournalEntry::Account& account) {
  JsonObject json;
  json.AddWord("kind", KindOf(account.table));
  json.Add("id", std::int64_t{account.id});
  json.Add("name", account.name);
  return json.Text();
}

std::string ErrorText(const JournalEntry::Error& error) {
  JsonObject json;
  json.Add("number", std::int64_t{error.number});
  if (!error.text.empty()) json.Add("text", error.text);
  return json.Text();
}

}  // namespace

std::string JournalLine(JournalTime time, const JournalAuthor& author, const JournalEntry& entry) {
  JsonObject json;
  json.Add("time", UtcText(time));
  json.Add("computer", author.computer);
  json.Add("user", author.user);
  json.Add("session", author.session);
  json.Add("what", entry.what);
  json.Add("complete", entry.complete);
  if (entry.account) json.AddValue("account", AccountText(*entry.account));
  const std::int64_t rows = Rows(entry.writes);
  if (rows < 0) {
    json.AddNull("rows");
  } else {
    json.Add("rows", rows);
  }
  if (entry.error) json.AddValue("error", ErrorText(*entry.error));
  json.AddValue("changes", Changes(entry.writes));
  return json.Text() + "\n";
}

std::wstring JournalFileName(JournalTime time) {
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
  return Formatted("journal-%04d-%02u.jsonl", static_cast<int>(date.year()),
                   static_cast<unsigned>(date.month()));
}

}  // namespace app
