#include "server/tool/SourceCommands.h"

#include <ostream>

#include "server/core/accounts/CopyDatabase.h"
#include "server/core/samples/Filling.h"
#include "server/tool/Commands.h"
#include "server/tool/DatabaseTrouble.h"
#include "server/tool/OpenSource.h"

namespace tool {
namespace {

// What the session server does with a table or view. Every statement names the columns that it
// needs and meets no row, so that it changes nothing and still needs the right.
struct Use {
  std::string_view table;
  std::string_view rights;
  std::string_view columns;
};

constexpr Use kUses[] = {
    {"QRUSER", "SELECT, INSERT, UPDATE", "USERID, NAME, FULLNAME, PASSWORD, VFLG"},
    {"QRGROUP", "SELECT, INSERT, UPDATE", "GROUPID, NAME, DESCR, VFLG"},
    {"QRPERM", "SELECT", "PERMID, NAME, RIGHTS"},
    {"QRUSGP", "SELECT, INSERT, UPDATE, DELETE", "USERID, GROUPID"},
    {"QRUPRM", "SELECT, INSERT, UPDATE, DELETE", "USERID, PERMID"},
    {"QRGPRM", "SELECT, INSERT, UPDATE, DELETE", "GROUPID, PERMID"},
    {"QRUSERV", "SELECT", "USERID, NAME, FULLNAME, PASSWORD"},
    {"QRGROUPV", "SELECT", "GROUPID, NAME, DESCR"},
    {"QRUSGPV", "SELECT", "USERID, GROUPID"},
    {"QRAUSR", "SELECT, INSERT, DELETE", "USERID, SESID, TOKENHASH, OPENED"},
    {"QRAUSRX", "SELECT, INSERT, DELETE", "SESID, CLOSED"},
    {"QRCOUNTER", "SELECT, UPDATE", "NAME, LASTVALUE"},
    {"QRDISPLAY", "SELECT", "CODE, GIVEN, MAPPED"},
};

// One statement for each right on the table.
std::vector<std::string> Probes(const Use& use) {
  const std::string table(use.table);
  const std::string columns(use.columns);
  const std::string first = columns.substr(0, columns.find(','));
  std::vector<std::string> probes{"SELECT " + columns + " FROM " + table + " WHERE 1 = 0"};
  const auto may = [&](std::string_view right) {
    return use.rights.find(right) != std::string_view::npos;
  };
  if (may("INSERT")) {
    probes.push_back("INSERT INTO " + table + " (" + columns + ") SELECT " + columns + " FROM " +
                     table + " WHERE 1 = 0");
  }
  if (may("UPDATE")) {
    probes.push_back("UPDATE " + table + " SET " + first + " = " + first + " WHERE 1 = 0");
  }
  if (may("DELETE")) probes.push_back("DELETE FROM " + table + " WHERE 1 = 0");
  return probes;
}

void Probe(server::Engine& engine, const std::string& sql) {
  server::WriteTransaction transaction(engine);
  server::Run(engine, sql);
  transaction.Commit();
}

}  // namespace

void Check(const Arguments& arguments, const Surroundings& surroundings) {
  const server::DataSource source = FindSource(arguments, surroundings, "--source");
  server::ReadKey(source);
  server::ReadDatabasePassword(source);
  try {
    const auto engine = server::OpenEngine(source, std::chrono::seconds(5));
    for (const Use& use : kUses) {
      for (const std::string& sql : Probes(use)) Probe(*engine, sql);
    }
  } catch (const data::RunTimeError& error) {
    throw CommandError(TroubleInWords(error));
  }
  surroundings.out << "data source " << source.name << " is in order\n";
}

void Copy(const Arguments& arguments, const Surroundings& surroundings) {
  OpenSource from(arguments, surroundings, "--from");
  OpenSource to(arguments, surroundings, "--to");
  if (!server::IsEmptyDatabase(*to.engine)) {
    throw CommandError("the database of " + to.source.name + " holds accounts already");
  }
  server::CopyDatabase(*from.engine, from.passwords, *to.engine, to.passwords);
}

void PrintGrants(const Arguments& arguments, const Surroundings& surroundings) {
  for (const Use& use : kUses) {
    surroundings.out << "GRANT " << use.rights << " ON " << use.table << " TO "
                     << arguments.Value("--to") << ";\n";
  }
}

}  // namespace tool
