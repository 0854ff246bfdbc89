#include "data/RunTimeError.h"

#include <utility>

#include "data/Text.h"

namespace data {

RunTimeError::RunTimeError(long number, std::wstring text)
    : number_(number),
      text_(std::move(text)),
      what_("run-time error " + std::to_string(number) + ": " + ToUtf8(text_)) {}

}  // namespace data
