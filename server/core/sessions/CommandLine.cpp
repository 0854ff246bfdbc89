#include "server/core/sessions/CommandLine.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/sessions/DataSource.h"
#include "server/core/sessions/Sessions.h"
#include "server/core/sql/SchemaTables.h"

namespace server {
namespace {

bool IsBlank(wchar_t unit) {
  return unit == L' ' || unit == L'\t' || unit == L'\r' || unit == L'\n';
}

// The arguments between blanks; quotes keep blanks together and are left out themselves.
std::vector<std::wstring> Split(std::wstring_view commandLine) {
  std::vector<std::wstring> arguments;
  bool inside = false;
  bool quoted = false;
  for (const wchar_t unit : commandLine) {
    if (!quoted && IsBlank(unit)) {
      inside = false;
      continue;
    }
    if (!inside) arguments.emplace_back();
    inside = true;
    if (unit == L'"') {
      quoted = !quoted;
    } else {
      arguments.back() += unit;
    }
  }
  return arguments;
}

// The value of an argument of this name; nothing when it is another argument.
std::optional<std::string> ValueOf(std::wstring_view argument, std::string_view name) {
  if (argument.size() < name.size() + 2 || argument[0] != L'/') return std::nullopt;
  if (argument[name.size() + 1] != L':') return std::nullopt;
  if (!SameName(data::ToUtf8(argument.substr(1, name.size())), name)) return std::nullopt;
  return data::ToUtf8(data::Trim(argument.substr(name.size() + 2)));
}

std::optional<std::string> FindValue(const std::vector<std::wstring>& arguments,
                                     std::string_view name) {
  std::optional<std::string> found;
  for (const std::wstring& argument : arguments) {
    auto value = ValueOf(argument, name);
    if (!value) continue;
    if (found) Fail(kCommandLineUnreadable, L"/" + data::FromUtf8(name) + L" répété");
    found = std::move(value);
  }
  return found;
}

std::string Require(const std::optional<std::string>& value, std::wstring_view name) {
  if (!value || value->empty()) {
    Fail(kCommandLineUnreadable, L"/" + std::wstring(name) + L" manquant");
  }
  return *value;
}

std::int32_t SessionNumber(const std::string& text) {
  const bool digits =
      std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  std::int64_t number = 0;
  for (const char digit : text.substr(0, 10)) number = number * 10 + (digit - '0');
  if (!digits || text.size() > 10 || number > INT32_MAX) {
    Fail(kCommandLineUnreadable, L"/session n'est pas un numéro");
  }
  return static_cast<std::int32_t>(number);
}

void CheckForm(const SessionArguments& arguments) {
  if (!DataSources::IsName(arguments.source)) {
    Fail(kCommandLineUnreadable, L"/source n'est pas un nom");
  }
  if (!IsToken(arguments.token)) Fail(kCommandLineUnreadable, L"/token n'est pas un jeton");
}

}  // namespace

SessionArguments ParseCommandLine(std::wstring_view commandLine) {
  const std::vector<std::wstring> arguments = Split(commandLine);
  const auto source = FindValue(arguments, "source");
  const auto token = FindValue(arguments, "token");
  const auto session = FindValue(arguments, "session");
  if (!source && !token && !session) Fail(kCommandLineEmpty);
  SessionArguments found;
  found.source = Require(source, L"source");
  found.token = Require(token, L"token");
  found.sessionId = SessionNumber(Require(session, L"session"));
  CheckForm(found);
  return found;
}

std::string FormatCommandLine(const SessionArguments& arguments) {
  return "/source:" + arguments.source + " /token:" + arguments.token +
         " /session:" + std::to_string(arguments.sessionId);
}

std::wstring FormatSessionText(const SessionArguments& arguments) {
  return data::FromUtf8(arguments.source + "/" + arguments.token);
}

SessionArguments ParseSessionText(std::wstring_view sessionText, std::int32_t sessionId) {
  const std::string text = data::ToUtf8(sessionText);
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) Fail(kCommandLineUnreadable, L"texte de session inconnu");
  SessionArguments arguments{text.substr(0, slash), text.substr(slash + 1), sessionId};
  CheckForm(arguments);
  return arguments;
}

}  // namespace server
