// The values of late-bound calls: what a session server gives back, and what a script passes to
// ours. Whatever type and content they have, they are read as what they are or refused with an
// error of their own, and nothing is freed twice or never.

#include <cstring>
#include <string>
#include <vector>

#include "automation/Variant.h"
#include "com/Conversion.h"
#include "data/RunTimeError.h"
#include "fuzz/Input.h"
#include "fuzz/windows/Automation.h"
#include "server/com/Answer.h"
#include "server/com/Arguments.h"
#include "server/com/CallError.h"

namespace {

using automation::Bstr;
using automation::Variant;

// Cuts values off the front of the input.
class Source {
 public:
  explicit Source(std::string_view bytes) : bytes_(bytes) {}

  bool IsEmpty() const { return bytes_.empty(); }
  template <class Plain>
  Plain Take() {
    Plain plain{};
    const std::size_t size = std::min(sizeof plain, bytes_.size());
    std::memcpy(&plain, bytes_.data(), size);
    bytes_.remove_prefix(size);
    return plain;
  }
  std::wstring TakeText() {
    const std::size_t size = std::min<std::size_t>(Take<std::uint8_t>(), bytes_.size());
    const std::wstring text = fuzz::Wide(bytes_.substr(0, size));
    bytes_.remove_prefix(size);
    return text;
  }

 private:
  std::string_view bytes_;
};

// A value without references, owned by whoever is given it.
void Fill(VARIANT& value, Source& source) {
  constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL, VT_I2,   VT_I4,   VT_R4,    VT_R8,
                                VT_CY,    VT_DATE, VT_BSTR, VT_BSTR, VT_ERROR, VT_BOOL,
                                VT_I1,    VT_UI1,  VT_UI2,  VT_UI4,  VT_I8,    VT_UI8,
                                VT_INT,   VT_UINT, VT_I8,   VT_R8,   VT_BSTR};
  value.vt = kTypes[source.Take<std::uint8_t>() % std::size(kTypes)];
  value.llVal = 0;
  if (value.vt != VT_BSTR) {
    value.llVal = source.Take<std::int64_t>();
    return;
  }
  // A text may be none at all.
  value.bstrVal = nullptr;
  const std::wstring text = source.TakeText();
  if (!text.empty()) value.bstrVal = Bstr(text).Detach();
}

bool IsWhole(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_I8:
    case VT_INT:
    case VT_UINT:
    case VT_BOOL:
      return true;
    default:
      return false;
  }
}

// What a conversion raises where it does not give a value.
template <class Reading>
bool Reads(Reading&& reading) {
  try {
    reading();
    return true;
  } catch (const data::RunTimeError& error) {
    fuzz::Require(error.Number() == data::kOverflow || error.Number() == data::kTypeMismatch,
                  "an overflow or another type");
    return false;
  }
}

bool AreSame(const data::ColumnValue& left, const data::ColumnValue& right) {
  return left.IsNull() == right.IsNull() && left.IsNumber() == right.IsNumber() &&
         left.Number() == right.Number() && left.BorrowedText() == right.BorrowedText();
}

// What a server answers with a column, the program reads as the same.
void CheckAnswer(const data::ColumnValue& column) {
  Variant answer;
  server::com::Put(answer, column);
  fuzz::Require(AreSame(com::ToColumnValue(answer), column), "an answer is read as it was given");
}

void CheckGiven(Source& source, bool sound) {
  Variant value;
  Fill(value, source);
  const VARTYPE type = value.vt;
  const bool nothing = com::IsNothing(value);
  std::int32_t number = 0;
  const bool isNumber = Reads([&] { number = com::ToInteger(value); });
  fuzz::Require(!(nothing && isNumber), "nothing is no number");
  fuzz::Require(!(nothing && Reads([&] { com::ToBoolean(value); })), "nothing is no truth");
  std::wstring text;
  const bool isText = Reads([&] { text = com::ToText(value); });
  if (nothing) fuzz::Require(isText && text.empty(), "nothing is an empty text");
  fuzz::Require(value.vt == type, "a value is left as it is");
  Reads([&] {
    const data::ColumnValue column = com::ToColumnValue(value);
    fuzz::Require(column.IsNull() == nothing, "a null is one");
    if (IsWhole(type)) fuzz::Require(column.IsNumber(), "a whole number is one");
    if (sound && isNumber && IsWhole(type)) {
      fuzz::Require(column.Number() == number, "a number stays the same");
    }
    if (type == VT_BSTR) fuzz::Require(column.BorrowedText() == text, "a text stays the same");
    CheckAnswer(column);
  });
}

// The arguments of one call, with what they refer to.
struct Passed {
  Variant value;
  Variant target;
  Bstr text;
  LONG number = 0;
  SHORT small = 0;
};

VARIANT ArgumentOf(Passed& passed, Source& source) {
  Fill(passed.target, source);
  switch (source.Take<std::uint8_t>() % 6) {
    case 0:
      return automation::Reference(passed.text.Out());
    case 1:
      return automation::Reference(&passed.number);
    case 2: {
      VARIANT argument{};
      argument.vt = VT_BYREF | VT_I2;
      argument.piVal = &passed.small;
      return argument;
    }
    case 3:
      return automation::Reference(&passed.target);
    default:
      Fill(passed.value, source);
      return passed.value;
  }
}

template <class Call>
bool Passes(unsigned count, Call&& call) {
  try {
    call();
    return true;
  } catch (const server::com::CallError& error) {
    fuzz::Require(FAILED(error.result) && error.argument < count, "an error of an argument");
    return false;
  }
}

void CheckPassed(Source& source, bool sound) {
  constexpr unsigned kCount = 3;
  Passed passed[kCount];
  VARIANT arguments[kCount];
  for (unsigned at = 0; at < kCount; ++at) {
    arguments[kCount - 1 - at] = ArgumentOf(passed[at], source);
  }
  DISPPARAMS call{arguments, nullptr, kCount, 0};
  server::com::Arguments read(call);
  for (int step = 0; step < 16 && !source.IsEmpty(); ++step) {
    const std::uint8_t choice = source.Take<std::uint8_t>();
    const unsigned at = choice % kCount;
    Passes(kCount, [&] {
      switch (choice / kCount % 4) {
        case 0:
          read.Integer(at);
          break;
        case 1: {
          const bool isText = read.IsText(at);
          const std::wstring text(read.Text(at));
          if (isText) fuzz::Require(read.Text(at) == text, "a text is read twice alike");
          break;
        }
        case 2:
          read.Field(at);
          break;
        default: {
          const std::wstring text = source.TakeText();
          if (Passes(kCount, [&] { read.PutText(at, text); })) {
            fuzz::Require(read.IsText(at) && read.Text(at) == text, "a text arrives");
          }
          const auto number = source.Take<std::int32_t>();
          if (Passes(kCount, [&] { read.PutInteger(at, number); }) && sound) {
            fuzz::Require(read.Integer(at) == number, "a number arrives");
          }
        }
      }
    });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  Source source(fuzz::Bytes(start, size));
  constexpr HRESULT kResults[] = {
      S_OK, S_OK, S_OK, DISP_E_OVERFLOW, E_OUTOFMEMORY, DISP_E_TYPEMISMATCH};
  const HRESULT failure = kResults[source.Take<std::uint8_t>() % std::size(kResults)];
  fuzz::FailConversions(source.Take<std::uint8_t>() % 8, failure);
  CheckGiven(source, failure == S_OK);
  CheckPassed(source, failure == S_OK);
  return 0;
}
