#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "app/mGlobal.h"

namespace app {

// A file that takes its place when it is whole. Until then it is written beside it under another
// name; what is not finished goes without a trace, and what was there before stays as it was.
// Every failure is a RunTimeError with a text that says what to do.
class ReplacedFile {
 public:
  // path may have blanks, backslashes and letters of every kind.
  ReplacedFile(const mGlobal& global, const std::wstring& path);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  // What is written is kept until there is enough of it.
  void Write(std::string_view bytes);
  // Puts the file in its place.
  void Finish();

 private:
  void WriteOut();
  [[noreturn]] void Fail(int text, const std::filesystem::path& what) const;

  const mGlobal& global_;
  std::filesystem::path path_;
  std::filesystem::path temporary_;
  std::filebuf file_;
  std::string waiting_;
  bool finished_ = false;
};

// The program's name of a file, whose folders are joined by backslashes, as the system has it.
std::filesystem::path FilePath(const std::wstring& path);

}  // namespace app
