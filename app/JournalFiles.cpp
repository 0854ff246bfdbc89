#include "app/JournalFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ios>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/ReplacedFile.h"

namespace app {
namespace {

bool IsJournalFile(const std::filesystem::path& path) {
  constexpr std::string_view kPattern = "journal-0000-00.jsonl";
  return std::ranges::equal(path.filename().native(), kPattern, [](auto letter, char wanted) {
    return letter >= '0' && letter <= '9' ? wanted == '0' : wanted == letter;
  });
}

// The files of all months, the latest first; nothing when the folder cannot be read.
std::optional<std::vector<std::filesystem::path>> FilesIn(const std::wstring& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  const std::filesystem::path path = FilePath(folder);
  if (!std::filesystem::exists(path, error)) {
    if (error) return std::nullopt;
    return files;
  }
  std::filesystem::directory_iterator entry(path, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (IsJournalFile(entry->path())) files.push_back(entry->path());
  }
  if (error) return std::nullopt;
  std::ranges::sort(files, std::ranges::greater());
  return files;
}

// The end of a file, at most so many bytes of it, and whether there is more before them.
struct Ending {
  std::string bytes;
  bool hasMore = false;
};

std::optional<Ending> EndOf(const std::filesystem::path& path, std::streamoff most) try {
  std::filebuf file;
  if (file.open(path, std::ios::in | std::ios::binary) == nullptr) return std::nullopt;
  const std::streamoff size = file.pubseekoff(0, std::ios::end, std::ios::in);
  const std::streamoff length = std::min(size, most);
  if (size < 0 || file.pubseekoff(size - length, std::ios::beg, std::ios::in) < 0) {
    return std::nullopt;
  }
  Ending ending{std::string(static_cast<std::size_t>(length), '\0'), length < size};
  const std::streamsize read = file.sgetn(ending.bytes.data(), length);
  ending.bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(read, 0)));
  return ending;
} catch (const std::ios_base::failure&) {
  return std::nullopt;
}

// Reads files from the last line to the first.
class Reader {
 public:
  explicit Reader(const JournalBounds& bounds) : most_(bounds.records), left_(bounds.bytes) {}

  void Read(const std::filesystem::path& path) {
    if (IsFull() || left_ == 0) {
      content_.hasMore = true;
      return;
    }
    const std::optional<Ending> ending = EndOf(path, left_);
    if (!ending) {
      content_.failed = true;
      return;
    }
    left_ -= static_cast<std::streamoff>(ending->bytes.size());
    content_.hasMore |= ending->hasMore;
    std::string_view rest = ending->bytes;
    if (ending->hasMore) rest.remove_prefix(std::min(rest.find('\n'), rest.size()));
    ReadLines(rest);
  }

  // Several programs write one journal, on machines whose clocks may differ.
  JournalContent Content() && {
    std::ranges::stable_sort(content_.records, std::ranges::greater(), &JournalRecord::time);
    return std::move(content_);
  }

 private:
  bool IsFull() const { return content_.records.size() >= most_; }

  void ReadLines(std::string_view lines) {
    while (!lines.empty() && !IsFull()) {
      if (lines.ends_with('\n')) lines.remove_suffix(1);
      const std::size_t begin = lines.rfind('\n') + 1;  // 0 where there is no line before it
      ReadLine(lines.substr(begin));
      lines = lines.substr(0, begin);
    }
    content_.hasMore |= !lines.empty();
  }

  // What could not be written whole is followed by a line end of its own.
  void ReadLine(std::string_view line) {
    if (line.empty()) return;
    if (auto record = ReadJournalLine(line)) {
      content_.records.push_back(std::move(*record));
    } else {
      ++content_.unreadable;
    }
  }

  const std::size_t most_;
  std::streamoff left_;  // bytes
  JournalContent content_;
};

}  // namespace

JournalContent ReadJournal(const std::wstring& folder, const JournalBounds& bounds) {
  const auto files = FilesIn(folder);
  Reader reader(bounds);
  for (const std::filesystem::path& file : files.value_or(std::vector<std::filesystem::path>())) {
    reader.Read(file);
  }
  JournalContent content = std::move(reader).Content();
  content.failed |= !files;
  return content;
}

}  // namespace app
