#include "tests/support/journal/JournalReader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace test_support {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char letter : text) quoted += letter == '\'' ? "''" : std::string(1, letter);
  return quoted + "'";
}

std::string Id(const JsonValue& change, const char* name) {
  return std::to_string(change[name].Number());
}

// A text column as SQL has it; null where the change does not name it.
std::string Text(const JsonValue& change, const char* name) {
  return change.Has(name) && !change[name].IsNull() ? Quoted(change[name].Text()) : "NULL";
}

struct AccountTable {
  const char* table;
  const char* id;        // column
  const char* member;    // of the change
  const char* addition;  // column
  const char* text;      // of the change
};

constexpr AccountTable kUsers{"QRUSER", "USERID", "user", "FULLNAME", "fullName"};
constexpr AccountTable kGroups{"QRGROUP", "GROUPID", "group", "DESCR", "description"};

std::string AccountStatement(const AccountTable& of, const JsonValue& change) {
  const std::string id = Id(change, of.member);
  const std::string table = of.table;
  const std::string& word = change["change"].Text();
  if (word == "added") {
    return "INSERT INTO " + table + " (" + of.id + ", NAME, " + of.addition + ") VALUES (" + id +
           ", " + Text(change, "name") + ", " + Text(change, of.text) + ")";
  }
  const std::string where = std::string(" WHERE ") + of.id + " = " + id;
  if (word == "changed") {
    return "UPDATE " + table + " SET NAME = " + Text(change, "name") + ", " + of.addition + " = " +
           Text(change, of.text) + where;
  }
  return "UPDATE " + table + " SET VFLG = 'D', NAME = NAME || '(" + id + ")'" + where;
}

struct LinkTable {
  const char* kind;
  const char* table;
};

constexpr LinkTable kLinks[] = {
    {"membership", "QRUSGP"}, {"userPermission", "QRUPRM"}, {"groupPermission", "QRGPRM"}};

struct LinkColumn {
  const char* column;
  const char* one;
  const char* several;
};

constexpr LinkColumn kColumns[] = {{"USERID", "user", "users"},
                                   {"GROUPID", "group", "groups"},
                                   {"PERMID", "permission", "permissions"}};

std::string LinkRemoval(const std::string& table, const JsonValue& change) {
  std::string where;
  for (const LinkColumn& column : kColumns) {
    if (!change.Has(column.one)) continue;
    where += (where.empty() ? "" : " AND ") + std::string(column.column) + " = " +
             Id(change, column.one);
  }
  if (where.empty()) throw std::runtime_error("a removal of all links");
  return "DELETE FROM " + table + " WHERE " + where;
}

void AddLinks(const std::string& table, const JsonValue& change, RawDatabase& database) {
  const auto has = [&](const char* LinkColumn::*name) {
    return *std::ranges::find_if(
        kColumns, [&](const LinkColumn& column) { return change.Has(column.*name); });
  };
  const LinkColumn owner = has(&LinkColumn::one);
  const LinkColumn others = has(&LinkColumn::several);
  for (const JsonValue& id : change[others.several].Items()) {
    database.Execute("INSERT INTO " + table + " (" + owner.column + ", " + others.column +
                     ") VALUES (" + Id(change, owner.one) + ", " + std::to_string(id.Number()) +
                     ")");
  }
}

void ReplayChange(const JsonValue& change, RawDatabase& database) {
  const std::string& kind = change["kind"].Text();
  if (kind == "user") return database.Execute(AccountStatement(kUsers, change));
  if (kind == "group") return database.Execute(AccountStatement(kGroups, change));
  for (const LinkTable& link : kLinks) {
    if (kind != link.kind) continue;
    if (change["change"].Text() == "added") return AddLinks(link.table, change, database);
    return database.Execute(LinkRemoval(link.table, change));
  }
  throw std::runtime_error("a change of kind " + kind);
}

}  // namespace

std::string JournalBytes(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".jsonl") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  std::string bytes;
  for (const std::filesystem::path& path : files) {
    std::ifstream file(path, std::ios::binary);
    bytes.append(std::istreambuf_iterator<char>(file), {});
  }
  return bytes;
}

std::vector<JsonValue> JournalLines(const std::filesystem::path& folder) {
  const std::string bytes = JournalBytes(folder);
  std::vector<JsonValue> lines;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = bytes.find('\n', at);
    if (end == std::string::npos) throw std::runtime_error("a line without its end");
    lines.push_back(JsonValue::Parse(std::string_view(bytes).substr(at, end - at)));
    at = end + 1;
  }
  return lines;
}

void Replay(const JsonValue& line, RawDatabase& database) {
  for (const JsonValue& change : line["changes"].Items()) ReplayChange(change, database);
}

}  // namespace test_support
