#include "server/tool/Tool.h"

#include <algorithm>
#include <exception>
#include <ostream>

#include "server/tool/Commands.h"
#include "server/tool/Messages.h"

namespace tool {
namespace {

constexpr std::string_view kHelp =
    R"(vardexctl: looks after the data sources and sessions of the reference session server

  create-database --source NAME --file PATH [--force]
      Create an empty database and the data source that names it. --force replaces both.
  create-database --source NAME --odbc "CONNECTION STRING" [--hosts HOST,HOST] [--user NAME]
                  [--password-stdin] [--force]
      Create the schema in an empty database that an ODBC driver reaches, and the data source that
      names it, with the database's user and password. --force replaces the data source only.
      Both take --administrators GROUP: its members may use the source too, besides who creates it
      and (on Windows) the administrators of the machine.
  fill-sample --source NAME
      Fill an empty database with the sample company. Its password is Vardex-2026.
  fill-generated --source NAME --users N [--groups 200] [--permissions 200]
      Fill an empty database with made-up accounts, "Admin" among them (password Vardex-2026).
  add-admin --source NAME --user NAME PASSWORD [--full-name TEXT]
      Add a user who may administer users.
  open-session --source NAME --user NAME PASSWORD
      Check the password, open a session and print the command line for uadmin.
  list-sessions --source NAME
      Print the open sessions: number, user, time opened (UTC).
  close-session --source NAME --session NUMBER or --user NAME
      Close a session, or all sessions of a user. A program that works in it is refused its next write.
  check --source NAME
      Say what is wrong with a data source: its server, user, schema or rights.
  copy --from NAME --to NAME
      Copy all accounts, passwords included, into the empty database of another data source.
  grants --to ACCOUNT
      Print the statements that give a database user what the session server needs, and no more.
      ACCOUNT is written as the database server has it.
  register [--user], unregister [--user]
      Register vardex.dll, which lies beside this program, for the machine or for the user. Windows.

PASSWORD is --password-stdin, which reads one line, or --password TEXT, which others may see.
Data sources are described in the folder that VARDEX_HOME names.
Exit code: 0 done, 1 failed, 2 not called as above.
)";

ExitCode RunCommand(std::span<const std::string> words, const Surroundings& surroundings) {
  if (words.empty()) throw UsageError("no command given; see vardexctl --help");
  if (words[0] == "--help" || words[0] == "help") {
    surroundings.out << kHelp;
    return kDone;
  }
  const auto commands = Commands();
  const auto found =
      std::find_if(commands.begin(), commands.end(),
                   [&words](const Command& command) { return command.name == words[0]; });
  if (found == commands.end()) throw UsageError("unknown command " + words[0]);
  found->run(Arguments(words.subspan(1), found->options), surroundings);
  return kDone;
}

}  // namespace

ExitCode RunTool(std::span<const std::string> words, const Surroundings& surroundings) {
  ExitCode code = kFailed;
  std::string message;
  try {
    return RunCommand(words, surroundings);
  } catch (const UsageError& error) {
    code = kMisused;
    message = error.what();
  } catch (const CommandError& error) {
    message = error.what();
  } catch (const data::RunTimeError& error) {
    message = MessageOf(error);
  } catch (const std::exception& error) {
    message = error.what();
  }
  surroundings.errors << "vardexctl: " << message << "\n";
  return code;
}

}  // namespace tool
