#include "server/tool/DatabaseCommands.h"

#include <chrono>
#include <ctime>
#include <istream>
#include <ostream>

#include "data/Text.h"
#include "server/core/accounts/Accounts.h"
#include "server/core/samples/Filling.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sessions/DataSource.h"
#include "server/core/sessions/PrivateFile.h"
#include "server/core/sessions/Sessions.h"
#include "server/engines/Engines.h"
#include "server/tool/Commands.h"
#include "server/tool/OpenSource.h"

namespace tool {
namespace {

constexpr int kMostUsers = 1'000'000;
constexpr int kMostOthers = 100'000;

std::string ReadLine(const Surroundings& surroundings) {
  std::string line;
  std::getline(surroundings.in, line);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::wstring Password(const Arguments& arguments, const Surroundings& surroundings) {
  if (arguments.Has("--password") == arguments.Has("--password-stdin")) {
    throw UsageError("give either --password or --password-stdin");
  }
  if (arguments.Has("--password")) return data::FromUtf8(arguments.Value("--password"));
  return data::FromUtf8(ReadLine(surroundings));
}

void RequireEmpty(server::Engine& engine) {
  if (!server::IsEmptyDatabase(engine)) throw CommandError("the database holds accounts already");
}

// Makes room for a database and its data source; without leave to replace, refuses where either is.
void MakeRoom(const server::DataSources& sources, const std::string& name,
              const std::filesystem::path& file, bool replace) {
  if (!replace && sources.Exists(name)) {
    throw CommandError("data source " + name + " exists already; --force replaces it");
  }
  if (!replace && std::filesystem::exists(file)) {
    throw CommandError("the file exists already; --force replaces it");
  }
  std::filesystem::path journal = file;
  journal += "-journal";
  std::filesystem::remove(file);
  std::filesystem::remove(journal);
}

// The folder of data sources, with the group that the sources made now are for.
server::DataSources Sources(const Arguments& arguments, const Surroundings& surroundings) {
  if (!arguments.Has("--administrators")) return server::DataSources(surroundings.home);
  const std::string& group = arguments.Value("--administrators");
  if (!server::IsGroup(group)) throw CommandError("nobody knows a group " + group);
  return server::DataSources(surroundings.home, group);
}

void CreateFileDatabase(const Arguments& arguments, const Surroundings& surroundings,
                        const std::string& name) {
  if (arguments.Has("--user") || arguments.Has("--password-stdin") || arguments.Has("--hosts")) {
    throw UsageError("--user, --hosts and --password-stdin go with --odbc");
  }
  const std::filesystem::path file = server::PathFromUtf8(arguments.Value("--file"));
  if (file.empty()) throw UsageError("--file is empty");
  const server::DataSources sources = Sources(arguments, surroundings);
  MakeRoom(sources, name, file, arguments.Has("--force"));
  server::CreateDatabase(sources, name, file);
}

// What is in a database server is never replaced, only the data source that names it.
void CreateOdbcDatabase(const Arguments& arguments, const Surroundings& surroundings,
                        const std::string& name) {
  server::OdbcDescription odbc;
  odbc.connectionString = arguments.Value("--odbc");
  if (odbc.connectionString.empty()) throw UsageError("--odbc is empty");
  if (odbc.connectionString.find_first_of("\r\n") != std::string::npos) {
    throw UsageError("--odbc must be one line");
  }
  if (server::NamesPassword(odbc.connectionString)) {
    throw UsageError("the password must not stand in --odbc; give it with --password-stdin");
  }
  if (arguments.Has("--user")) odbc.user = arguments.Value("--user");
  if (arguments.Has("--hosts")) odbc.hosts = server::HostsIn(arguments.Value("--hosts"));
  const std::string password =
      arguments.Has("--password-stdin") ? ReadLine(surroundings) : std::string();
  const server::DataSources sources = Sources(arguments, surroundings);
  if (!arguments.Has("--force") && sources.Exists(name)) {
    throw CommandError("data source " + name + " exists already; --force replaces it");
  }
  server::CreateDatabase(sources, name, odbc, password);
}

std::string UtcTime(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
#ifdef _WIN32
  gmtime_s(&parts, &time);
#else
  gmtime_r(&time, &parts);
#endif
  char text[32];
  const std::size_t size = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
  return {text, size};
}

}  // namespace

void CreateDatabase(const Arguments& arguments, const Surroundings& surroundings) {
  const std::string& name = arguments.Value("--source");
  if (!server::DataSources::IsName(name)) {
    throw UsageError("--source takes up to 64 letters, digits, '-' and '_'");
  }
  if (arguments.Has("--file") == arguments.Has("--odbc")) {
    throw UsageError("give either --file or --odbc");
  }
  if (arguments.Has("--odbc")) {
    CreateOdbcDatabase(arguments, surroundings, name);
  } else {
    CreateFileDatabase(arguments, surroundings, name);
  }
}

void FillSample(const Arguments& arguments, const Surroundings& surroundings) {
  OpenSource open(arguments, surroundings);
  RequireEmpty(*open.engine);
  server::FillSample(*open.engine, open.passwords);
}

void FillGenerated(const Arguments& arguments, const Surroundings& surroundings) {
  server::GeneratedSize size;
  size.users = arguments.Number("--users", 1, kMostUsers);
  size.groups = arguments.Number("--groups", 2, kMostOthers, size.groups);
  size.permissions = arguments.Number("--permissions", 1, kMostOthers, size.permissions);
  OpenSource open(arguments, surroundings);
  RequireEmpty(*open.engine);
  server::FillGenerated(*open.engine, open.passwords, size);
}

void AddAdmin(const Arguments& arguments, const Surroundings& surroundings) {
  const std::wstring name = data::FromUtf8(arguments.Value("--user"));
  const std::wstring password = Password(arguments, surroundings);
  if (data::Trim(name) != name || name.empty()) {
    throw UsageError("--user must be a name without blanks around it");
  }
  if (password.empty()) throw UsageError("the password is empty");
  const std::wstring fullName = arguments.Has("--full-name")
                                    ? data::FromUtf8(arguments.Value("--full-name"))
                                    : std::wstring();
  OpenSource open(arguments, surroundings);
  if (!server::AddAdministrator(*open.engine, open.passwords, {name, fullName, password})) {
    throw CommandError("there is a user of that name already");
  }
}

void OpenSession(const Arguments& arguments, const Surroundings& surroundings) {
  const std::wstring password = Password(arguments, surroundings);
  OpenSource open(arguments, surroundings);
  const auto user = server::CheckPassword(*open.engine, open.passwords,
                                          data::FromUtf8(arguments.Value("--user")), password);
  if (!user) throw CommandError("wrong user or password");
  const server::OpenedSession session = server::OpenUserSession(*open.engine, *user);
  surroundings.out << server::FormatCommandLine(
                          {open.source.name, session.token, session.sessionId})
                   << "\n";
}

void ListSessions(const Arguments& arguments, const Surroundings& surroundings) {
  OpenSource open(arguments, surroundings);
  for (const server::SessionEntry& session : server::ListSessions(*open.engine)) {
    surroundings.out << session.sessionId << "\t" << data::ToUtf8(session.userName) << "\t"
                     << UtcTime(session.opened) << "\n";
  }
}

void CloseSession(const Arguments& arguments, const Surroundings& surroundings) {
  if (arguments.Has("--session") == arguments.Has("--user")) {
    throw UsageError("give either --session or --user");
  }
  const int session = arguments.Number("--session", 1, INT32_MAX);
  OpenSource open(arguments, surroundings);
  if (arguments.Has("--session")) {
    server::CloseUserSession(*open.engine, session);
  } else if (server::CloseSessionsOf(*open.engine, data::FromUtf8(arguments.Value("--user"))) ==
             0) {
    throw CommandError("that user has no open session");
  }
}

}  // namespace tool
