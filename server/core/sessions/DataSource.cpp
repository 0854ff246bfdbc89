#include "server/core/sessions/DataSource.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <map>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/sessions/PrivateFile.h"

namespace server {
namespace {

constexpr std::size_t kLongestName = 64;

std::filesystem::path Environment(const char* name) {
#ifdef _WIN32
  const wchar_t* const value = _wgetenv(std::filesystem::path(name).c_str());
#else
  const char* const value = std::getenv(name);
#endif
  return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The lines of a description: NAME = VALUE.
using Lines = std::map<std::string, std::string, std::less<>>;

Lines ReadLines(std::istream& file) {
  Lines lines;
  for (std::string line; std::getline(file, line);) {
    const std::size_t sign = line.find('=');
    if (sign == std::string::npos) continue;
    const std::string_view text(line);
    lines[std::string(Trimmed(text.substr(0, sign)))] = Trimmed(text.substr(sign + 1));
  }
  return lines;
}

std::string_view ValueOf(const Lines& lines, std::string_view name) {
  const auto found = lines.find(name);
  return found == lines.end() ? std::string_view() : std::string_view(found->second);
}

// A time of at least a second; the given one where there is none.
void ReadTime(const Lines& lines, std::string_view name, std::chrono::seconds& time) {
  const std::string_view text = ValueOf(lines, name);
  int seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error == std::errc() && end == text.data() + text.size() && seconds > 0) {
    time = std::chrono::seconds(seconds);
  }
}

std::string Joined(const std::vector<std::string>& hosts) {
  std::string text;
  for (const std::string& host : hosts) text.append(text.empty() ? "" : ", ").append(host);
  return text;
}

OdbcDescription ReadOdbc(const Lines& lines) {
  OdbcDescription odbc;
  odbc.connectionString = ValueOf(lines, "odbc");
  odbc.hosts = HostsIn(ValueOf(lines, "hosts"));
  odbc.user = ValueOf(lines, "user");
  odbc.passwordFile = PathFromUtf8(ValueOf(lines, "password"));
  ReadTime(lines, "connect-time", odbc.connectTime);
  ReadTime(lines, "statement-time", odbc.statementTime);
  return odbc;
}

void WriteOdbc(std::ostream& file, const OdbcDescription& odbc) {
  file << "odbc = " << odbc.connectionString << "\n";
  if (!odbc.hosts.empty()) file << "hosts = " << Joined(odbc.hosts) << "\n";
  if (!odbc.user.empty()) file << "user = " << odbc.user << "\n";
  if (!odbc.passwordFile.empty()) file << "password = " << PathToUtf8(odbc.passwordFile) << "\n";
  file << "connect-time = " << odbc.connectTime.count() << "\n"
       << "statement-time = " << odbc.statementTime.count() << "\n";
}

bool IsNameLetter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') || letter == '-' || letter == '_';
}

}  // namespace

std::vector<std::string> HostsIn(std::string_view text) {
  std::vector<std::string> hosts;
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    std::string_view host = text.substr(0, comma);
    text.remove_prefix(std::min(comma + 1, text.size()));
    while (host.starts_with(' ')) host.remove_prefix(1);
    while (host.ends_with(' ')) host.remove_suffix(1);
    if (!host.empty()) hosts.emplace_back(host);
  }
  return hosts;
}

std::filesystem::path DataSources::DefaultHome() {
  std::filesystem::path own = Environment("VARDEX_HOME");
  if (!own.empty()) return own;
#ifdef _WIN32
  return Environment("ProgramData") / "Vardex";
#else
  return Environment("HOME") / ".vardex";
#endif
}

bool DataSources::IsName(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName &&
         std::all_of(name.begin(), name.end(), IsNameLetter);
}

std::filesystem::path DataSources::Description(std::string_view name) const {
  return home_ / "sources" / (std::string(name) + ".ini");
}

bool DataSources::Exists(std::string_view name) const {
  return IsName(name) && std::filesystem::exists(Description(name));
}

DataSource DataSources::Find(std::string_view name) const {
  const std::wstring wide = data::FromUtf8(name);
  if (!IsName(name)) Fail(kSourceUnknown, wide);
  std::ifstream file(Description(name), std::ios::binary);
  if (!file) Fail(kSourceUnknown, wide);
  const Lines lines = ReadLines(file);
  DataSource source;
  source.name = name;
  source.database = PathFromUtf8(ValueOf(lines, "database"));
  source.keyFile = PathFromUtf8(ValueOf(lines, "key"));
  if (!ValueOf(lines, "odbc").empty()) source.odbc = ReadOdbc(lines);
  const bool both = source.odbc && !source.database.empty();
  const bool neither = !source.odbc && source.database.empty();
  if (both || neither || source.keyFile.empty()) Fail(kSourceUnreadable, wide);
  return source;
}

std::filesystem::path DataSources::Secret(std::string_view name, std::string_view ending) const {
  return std::filesystem::absolute(home_ / "keys" / (std::string(name) + std::string(ending)));
}

// Writes the key and the description, which names it.
void DataSources::Describe(const DataSource& source) const {
  std::error_code ignored;
  std::filesystem::create_directories(source.keyFile.parent_path(), ignored);
  std::filesystem::create_directories(Description(source.name).parent_path(), ignored);
  std::filesystem::remove(source.keyFile, ignored);
  if (!WritePrivateFile(source.keyFile, RandomBytes(kKeySize), administrators_)) {
    Fail(kKeyFileUnreadable, data::FromUtf8(PathToUtf8(source.keyFile)));
  }
  std::ofstream file(Description(source.name), std::ios::binary);
  if (source.odbc) {
    WriteOdbc(file, *source.odbc);
  } else {
    file << "database = " << PathToUtf8(source.database) << "\n";
  }
  file << "key = " << PathToUtf8(source.keyFile) << "\n";
  if (!file.flush()) Fail(kSourceUnreadable, data::FromUtf8(source.name));
}

DataSource DataSources::Create(std::string_view name, const std::filesystem::path& database) const {
  if (!IsName(name)) Fail(kSourceUnknown, data::FromUtf8(name));
  DataSource source{std::string(name), std::filesystem::absolute(database), Secret(name, ".key")};
  Describe(source);
  return source;
}

DataSource DataSources::Create(std::string_view name, OdbcDescription odbc,
                               std::string_view password) const {
  if (!IsName(name)) Fail(kSourceUnknown, data::FromUtf8(name));
  const std::filesystem::path passwordFile = Secret(name, ".password");
  std::error_code ignored;
  std::filesystem::create_directories(passwordFile.parent_path(), ignored);
  std::filesystem::remove(passwordFile, ignored);
  if (!password.empty()) {
    if (!WriteSecret(passwordFile, password, administrators_)) {
      Fail(kDatabasePasswordUnreadable, data::FromUtf8(PathToUtf8(passwordFile)));
    }
    odbc.passwordFile = passwordFile;
  }
  DataSource source{std::string(name), {}, Secret(name, ".key"), std::move(odbc)};
  Describe(source);
  return source;
}

std::string ReadDatabasePassword(const DataSource& source) {
  if (!source.odbc || source.odbc->passwordFile.empty()) return {};
  std::optional<std::string> password = ReadSecret(source.odbc->passwordFile);
  if (!password) {
    Fail(kDatabasePasswordUnreadable, data::FromUtf8(PathToUtf8(source.odbc->passwordFile)));
  }
  return *std::move(password);
}

std::string ReadKey(const DataSource& source) {
  std::ifstream file(source.keyFile, std::ios::binary);
  std::string key(kKeySize + 1, '\0');
  file.read(key.data(), static_cast<std::streamsize>(key.size()));
  if (file.gcount() != static_cast<std::streamsize>(kKeySize)) {
    Fail(kKeyFileUnreadable, data::FromUtf8(PathToUtf8(source.keyFile)));
  }
  key.resize(kKeySize);
  return key;
}

std::filesystem::path PathFromUtf8(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

std::string PathToUtf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace server
