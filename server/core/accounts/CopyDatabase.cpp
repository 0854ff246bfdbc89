#include "server/core/accounts/CopyDatabase.h"

#include <string>
#include <vector>

#include "data/RunTimeError.h"
#include "data/Text.h"
#include "server/core/accounts/Counters.h"
#include "server/core/sql/BulkInsert.h"
#include "server/core/sql/Query.h"

namespace server {
namespace {

struct CopiedTable {
  std::string_view name;
  std::vector<std::string_view> columns;
};

// Those that others refer to come first.
std::vector<CopiedTable> CopiedTables() {
  return {
      {"QRUSER", {"USERID", "NAME", "FULLNAME", "PASSWORD", "VFLG"}},
      {"QRGROUP", {"GROUPID", "NAME", "DESCR", "VFLG"}},
      {"QRPERM", {"PERMID", "NAME", "RIGHTS"}},
      {"QRUSGP", {"USERID", "GROUPID"}},
      {"QRUPRM", {"USERID", "PERMID"}},
      {"QRGPRM", {"GROUPID", "PERMID"}},
      {"QRDISPLAY", {"CODE", "GIVEN", "MAPPED"}},
  };
}

constexpr std::string_view kPassword = "PASSWORD";

// A stored password under another key.
class PasswordChanger {
 public:
  PasswordChanger(const PasswordCipher& from, const PasswordCipher& to) : from_(from), to_(to) {}

  std::string Change(std::string_view stored, std::int32_t userId) const {
    try {
      const std::wstring plain = from_.Decrypt(data::FromUtf8(stored), userId);
      return data::ToUtf8(to_.Encrypt(plain, userId));
    } catch (const data::RunTimeError&) {
      return std::string(stored);
    }
  }

 private:
  const PasswordCipher& from_;
  const PasswordCipher& to_;
};

std::string Joined(const CopiedTable& table) {
  std::string names;
  for (const std::string_view column : table.columns) {
    names.append(names.empty() ? "" : ", ").append(column);
  }
  return names;
}

void CopyTable(Engine& from, Engine& to, const CopiedTable& table,
               const PasswordChanger& passwords) {
  const std::string names = Joined(table);
  const std::string name(table.name);
  const auto select = from.Prepare("SELECT " + names + " FROM " + name);
  BulkInsert insert(to, name, table.columns);
  while (select->Step()) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Field field = select->Read(static_cast<int>(i));
      if (table.columns[i] == kPassword && field.kind == FieldKind::kText) {
        const std::string stored(field.text);
        const auto userId = static_cast<std::int32_t>(select->Read(0).number);
        const std::string changed = passwords.Change(stored, userId);
        insert.AddField({FieldKind::kText, 0, changed});
      } else {
        insert.AddField(field);
      }
    }
  }
  insert.Finish();
}

void CopyCounter(Engine& from, Engine& to, std::string_view name) {
  Query last(from, "SELECT LASTVALUE FROM QRCOUNTER WHERE NAME = ?");
  if (last.Bind(name).Next()) RaiseCounter(to, name, static_cast<std::int32_t>(last.Number(0)));
}

// A reading transaction that ends with its scope.
class Reading {
 public:
  explicit Reading(Engine& engine) : engine_(engine) { engine.BeginReading(); }
  ~Reading() { engine_.Rollback(); }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  Engine& engine_;
};

}  // namespace

void CopyDatabase(Engine& from, const PasswordCipher& fromPasswords, Engine& to,
                  const PasswordCipher& toPasswords) {
  const PasswordChanger passwords(fromPasswords, toPasswords);
  const Reading reading(from);
  WriteTransaction transaction(to);
  for (const CopiedTable& table : CopiedTables()) CopyTable(from, to, table, passwords);
  for (const char* const counter : {"QRUSRN", "QRGPRN"}) CopyCounter(from, to, counter);
  transaction.Commit();
}

}  // namespace server
