#include "server/core/sessions/DataSource.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

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

bool IsNameLetter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') || letter == '-' || letter == '_';
}

}  // namespace

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
  DataSource source;
  source.name = name;
  for (std::string line; std::getline(file, line);) {
    const std::size_t sign = line.find('=');
    if (sign == std::string::npos) continue;
    const std::string_view text(line);
    const std::string_view value = Trimmed(text.substr(sign + 1));
    if (Trimmed(text.substr(0, sign)) == "database") source.database = PathFromUtf8(value);
    if (Trimmed(text.substr(0, sign)) == "key") source.keyFile = PathFromUtf8(value);
  }
  if (source.database.empty() || source.keyFile.empty()) Fail(kSourceUnreadable, wide);
  return source;
}

DataSource DataSources::Create(std::string_view name, const std::filesystem::path& database) const {
  const std::wstring wide = data::FromUtf8(name);
  if (!IsName(name)) Fail(kSourceUnknown, wide);
  DataSource source{std::string(name), std::filesystem::absolute(database),
                    std::filesystem::absolute(home_ / "keys" / (std::string(name) + ".key"))};
  std::error_code ignored;
  std::filesystem::create_directories(source.keyFile.parent_path(), ignored);
  std::filesystem::create_directories(Description(name).parent_path(), ignored);
  std::filesystem::remove(source.keyFile, ignored);
  if (!WritePrivateFile(source.keyFile, RandomBytes(kKeySize))) {
    Fail(kKeyFileUnreadable, data::FromUtf8(PathToUtf8(source.keyFile)));
  }
  std::ofstream file(Description(name), std::ios::binary);
  file << "database = " << PathToUtf8(source.database) << "\n"
       << "key = " << PathToUtf8(source.keyFile) << "\n";
  if (!file.flush()) Fail(kSourceUnreadable, wide);
  return source;
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
