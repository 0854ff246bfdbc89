#include "server/core/accounts/CopyDatabase.h"

#include <string>
#include <vector>

#include "data/RunTimeError.h"
#include "data/Text.h"
#include "server/core/accounts/Counters.h"
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

void BindField(Statement& statement, int parameter, const Field& field) {
  switch (field.kind) {
    case FieldKind::kNull:
      return statement.BindNull(parameter);
    case FieldKind::kNumber:
      return statement.Bind(parameter, field.number);
    case FieldKind::kText:
      return statement.Bind(parameter, field.text);
  }
}

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
  std::string marks = "?";
  for (std::size_t i = 1; i < table.columns.size(); ++i) marks += ", ?";
  const std::string name(table.name);
  const auto select = from.Prepare("SELECT " + names + " FROM " + name);
  const auto insert = to.Prepare("INSERT INTO " + name + " (" + names + ") VALUES (" + marks + ")");
  while (select->Step()) {
    insert->Reset();
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const int column = static_cast<int>(i);
      const Field field = select->Read(column);
      if (table.columns[i] == kPassword && field.kind == FieldKind::kText) {
        const std::string stored(field.text);
        const auto userId = static_cast<std::int32_t>(select->Read(0).number);
        insert->Bind(column + 1, passwords.Change(stored, userId));
      } else {
        BindField(*insert, column + 1, field);
      }
    }
    insert->Step();
  }
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
