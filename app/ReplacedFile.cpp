#include "app/ReplacedFile.h"

#include <algorithm>
#include <random>
#include <system_error>
#include <type_traits>

#include "app/StringIds.h"
#include "data/RunTimeError.h"
#include "data/Text.h"

namespace app {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

// A name that no other program is writing under.
std::filesystem::path Beside(const std::filesystem::path& path) {
  std::filesystem::path temporary = path;
  temporary += "." + std::to_string(std::random_device()()) + ".tmp";
  return temporary;
}

std::wstring TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return data::FromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

}  // namespace

std::filesystem::path FilePath(const std::wstring& path) {
  if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>) {
    return path;
  } else {
    std::string name = data::ToUtf8(path);
    std::ranges::replace(name, '\\', '/');
    return name;
  }
}

ReplacedFile::ReplacedFile(const mGlobal& global, const std::wstring& path)
    : global_(global), path_(FilePath(path)), temporary_(Beside(path_)) {
  waiting_.reserve(kBlock);
  const auto mode = std::ios::out | std::ios::binary | std::ios::trunc;
  if (file_.open(temporary_, mode) == nullptr) Fail(kExportNoFolder, path_.parent_path());
}

ReplacedFile::~ReplacedFile() {
  if (finished_) return;
  file_.close();
  std::error_code ignored;
  std::filesystem::remove(temporary_, ignored);
}

void ReplacedFile::Write(std::string_view bytes) {
  waiting_ += bytes;
  if (waiting_.size() >= kBlock) WriteOut();
}

void ReplacedFile::WriteOut() {
  const auto size = static_cast<std::streamsize>(waiting_.size());
  if (file_.sputn(waiting_.data(), size) != size || file_.pubsync() != 0) {
    Fail(kExportNoRoom, path_.parent_path());
  }
  waiting_.clear();
}

// A file that is open in another program cannot be replaced, and a folder may have gone meanwhile.
void ReplacedFile::Finish() {
  WriteOut();
  if (file_.close() == nullptr) Fail(kExportNoRoom, path_.parent_path());
  std::error_code error;
  std::filesystem::rename(temporary_, path_, error);
  if (error && !std::filesystem::exists(temporary_)) Fail(kExportNoFolder, path_.parent_path());
  if (error) Fail(kExportInUse, path_);
  finished_ = true;
}

void ReplacedFile::Fail(int text, const std::filesystem::path& what) const {
  throw data::RunTimeError(data::kPathFileAccess,
                           FillIn(global_.LoadResString(text), {TextOf(what)}));
}

}  // namespace app
