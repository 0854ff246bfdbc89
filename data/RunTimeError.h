#pragma once

#include <exception>
#include <string>

namespace data {

// Numbers of the standard run-time errors that the program raises itself. Their texts stand in the
// string table at 10000 + number.
enum StandardError : long {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kPathFileAccess = 75,
  kObjectNotSet = 91,
  kObjectRequired = 424,
  kCannotCreateObject = 429,
  kNoAutomation = 430,
  kNoSuchMember = 438,
  kAutomationError = 440,
  kEntryPointNotFound = 453,
  kKeyAlreadyUsed = 457,
  kElementNotFound = 35601,
  kKeyNotUnique = 35602,
};

// The one failure type of the program: a number and, when the source of the error gave one, a text.
// An empty text means that the standard text of the number is to be shown.
class RunTimeError : public std::exception {
 public:
  explicit RunTimeError(long number, std::wstring text = {});

  long Number() const { return number_; }
  const std::wstring& Text() const { return text_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  long number_;
  std::wstring text_;
  std::string what_;  // number and text in UTF-8, for test output and debuggers
};

}  // namespace data
