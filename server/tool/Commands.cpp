#include "server/tool/Commands.h"

#include "server/tool/DatabaseCommands.h"
#include "server/tool/Registration.h"
#include "server/tool/SourceCommands.h"

namespace tool {
namespace {

constexpr Option kSource{"--source", false, true};
constexpr Option kUser{"--user", false, true};
constexpr Option kPassword{"--password"};
constexpr Option kPasswordInput{"--password-stdin", true};

constexpr Option kCreateOptions[] = {
    kSource,        {"--file"},        {"--odbc"},           {"--user"},
    kPasswordInput, {"--force", true}, {"--administrators"}, {"--hosts"}};
constexpr Option kSourceOnly[] = {kSource};
constexpr Option kGeneratedOptions[] = {
    kSource, {"--users", false, true}, {"--groups"}, {"--permissions"}};
constexpr Option kAdminOptions[] = {kSource, kUser, kPassword, kPasswordInput, {"--full-name"}};
constexpr Option kOpenOptions[] = {kSource, kUser, kPassword, kPasswordInput};
constexpr Option kCloseOptions[] = {kSource, {"--session"}, {"--user"}};
constexpr Option kCopyOptions[] = {{"--from", false, true}, {"--to", false, true}};
constexpr Option kGrantOptions[] = {{"--to", false, true}};
constexpr Option kRegisterOptions[] = {{"--user", true}};

constexpr Command kCommands[] = {
    {"create-database", kCreateOptions, CreateDatabase},
    {"fill-sample", kSourceOnly, FillSample},
    {"fill-generated", kGeneratedOptions, FillGenerated},
    {"add-admin", kAdminOptions, AddAdmin},
    {"open-session", kOpenOptions, OpenSession},
    {"list-sessions", kSourceOnly, ListSessions},
    {"close-session", kCloseOptions, CloseSession},
    {"check", kSourceOnly, Check},
    {"copy", kCopyOptions, Copy},
    {"grants", kGrantOptions, PrintGrants},
    {"register", kRegisterOptions, Register},
    {"unregister", kRegisterOptions, Unregister},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

}  // namespace tool
