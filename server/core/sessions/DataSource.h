#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace server {

// A database that is reached through ODBC.
struct OdbcDescription {
  std::string connectionString;        // UTF-8; holds no password
  std::string user;                    // empty where the connection string or the system names him
  std::filesystem::path passwordFile;  // empty where none is needed
  // The hosts that the database is on, each NAME, NAME:PORT or [ADDRESS]:PORT, in the order in
  // which they are tried; empty for the one that the connection string names.
  std::vector<std::string> hosts = {};
  // How long a connection and a statement may take.
  std::chrono::seconds connectTime{10};
  std::chrono::seconds statementTime{30};
};

// The hosts in a text in which commas part them.
std::vector<std::string> HostsIn(std::string_view text);

// A named database: where it is and where the key of its passwords is kept.
struct DataSource {
  std::string name;
  std::filesystem::path database;  // the file of an embedded database; empty for another
  std::filesystem::path keyFile;
  std::optional<OdbcDescription> odbc = std::nullopt;
};

// The folder that the data sources of this machine are described in: sources/NAME.ini holds lines
// in UTF-8, "key = PATH" and either "database = PATH" or "odbc = CONNECTION STRING", the latter
// with "hosts = HOST, HOST", "user = NAME", "password = PATH", "connect-time = SECONDS" and
// "statement-time = SECONDS" where they are wanted. keys/NAME.key is the key itself and
// keys/NAME.password the database's password, which only those who administer the source may read
// (PrivateFile.h). A name has up to 64 ASCII letters, digits, '-' and '_'.
class DataSources {
 public:
  // administrators is the group whose members may use the keys of the sources that are created,
  // besides who creates them; it may be empty.
  explicit DataSources(std::filesystem::path home, std::string administrators = {})
      : home_(std::move(home)), administrators_(std::move(administrators)) {}

  // The folder named by VARDEX_HOME; without that, Vardex in the folder for all users' program data
  // on Windows and .vardex in the user's home elsewhere.
  static std::filesystem::path DefaultHome();

  static bool IsName(std::string_view name);

  // Raises kSourceUnknown or kSourceUnreadable.
  DataSource Find(std::string_view name) const;
  bool Exists(std::string_view name) const;
  // Describes a new source and makes a key for it. What was described under that name before is
  // replaced, its key included.
  DataSource Create(std::string_view name, const std::filesystem::path& database) const;
  // The same for a database behind ODBC; the path of the password's file is filled in.
  DataSource Create(std::string_view name, OdbcDescription odbc, std::string_view password) const;

 private:
  std::filesystem::path Description(std::string_view name) const;
  std::filesystem::path Secret(std::string_view name, std::string_view ending) const;
  void Describe(const DataSource& source) const;

  std::filesystem::path home_;
  std::string administrators_;
};

// The key of a data source. Raises kKeyFileUnreadable.
std::string ReadKey(const DataSource& source);

// The database's password; empty where none is needed. Raises kDatabasePasswordUnreadable.
std::string ReadDatabasePassword(const DataSource& source);

// Paths from and to UTF-8.
std::filesystem::path PathFromUtf8(std::string_view text);
std::string PathToUtf8(const std::filesystem::path& path);

}  // namespace server
