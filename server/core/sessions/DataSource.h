#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace server {

// A named database: where its file is and where the key of its passwords is kept.
struct DataSource {
  std::string name;
  std::filesystem::path database;
  std::filesystem::path keyFile;
};

// The folder that the data sources of this machine are described in: sources/NAME.ini holds two
// lines, "database = PATH" and "key = PATH" in UTF-8, keys/NAME.key the key itself, which its owner
// alone may read. A name has up to 64 ASCII letters, digits, '-' and '_'.
class DataSources {
 public:
  explicit DataSources(std::filesystem::path home) : home_(std::move(home)) {}

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

 private:
  std::filesystem::path Description(std::string_view name) const;

  std::filesystem::path home_;
};

// The key of a data source. Raises kKeyFileUnreadable.
std::string ReadKey(const DataSource& source);

// Paths from and to UTF-8.
std::filesystem::path PathFromUtf8(std::string_view text);
std::string PathToUtf8(const std::filesystem::path& path);

}  // namespace server
