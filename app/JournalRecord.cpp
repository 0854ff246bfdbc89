#include "app/JournalRecord.h"

#include "app/JsonReader.h"

namespace app {
namespace {

// A time as JournalLine writes it, every digit a 0.
constexpr std::wstring_view kTimePattern = L"0000-00-00T00:00:00.000Z";

bool IsDigit(wchar_t letter) {
  return letter >= L'0' && letter <= L'9';
}

bool HasPattern(std::wstring_view text) {
  if (text.size() != kTimePattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsDigit(text[i]) ? kTimePattern[i] != L'0' : kTimePattern[i] != text[i]) return false;
  }
  return true;
}

std::optional<JournalTime> TimeIn(std::wstring_view text) {
  using namespace std::chrono;
  if (!HasPattern(text)) return std::nullopt;
  const auto number = [text](std::size_t at, std::size_t digits) {
    int value = 0;
    for (const wchar_t digit : text.substr(at, digits)) value = 10 * value + (digit - L'0');
    return value;
  };
  const year_month_day date(year(number(0, 4)), month(static_cast<unsigned>(number(5, 2))),
                            day(static_cast<unsigned>(number(8, 2))));
  // Others have no place in a JournalTime, and nobody has written them.
  const bool isNear = date.year() >= year(1970) && date.year() < year(2200);
  if (!date.ok() || !isNear || number(11, 2) > 23 || number(14, 2) > 59 || number(17, 2) > 60) {
    return std::nullopt;
  }
  return sys_days(date) + hours(number(11, 2)) + minutes(number(14, 2)) + seconds(number(17, 2)) +
         milliseconds(number(20, 3));
}

// Reads the members of one line.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : json_(line) {}

  std::optional<JournalRecord> Read() {
    json_.Object([this](std::string_view name) { ReadMember(name); });
    if (!json_.IsWhole() || !time_ || !hasWords_ || !hasChanges_) return std::nullopt;
    record_.time = *time_;
    if (record_.account.empty()) record_.account = nameWritten_;
    return record_;
  }

 private:
  void ReadMember(std::string_view name) {
    if (name == "time") {
      time_ = TimeIn(json_.Text());
    } else if (name == "computer") {
      record_.author.computer = json_.Text();
    } else if (name == "user") {
      record_.author.user = json_.Text();
    } else if (name == "session") {
      record_.author.session = json_.Text();
    } else if (name == "what") {
      record_.what = json_.Text();
      hasWords_ = true;
    } else if (name == "account") {
      record_.account = NameInObject();
    } else if (name == "rows") {
      if (!json_.TakeNull()) record_.rows = json_.Number();
    } else if (name == "error") {
      ReadError();
    } else if (name == "changes") {
      json_.Array([this] { ReadChange(); });
      hasChanges_ = true;
    } else {
      json_.Skip();
    }
  }

  std::wstring NameInObject() {
    std::wstring found;
    json_.Object([&](std::string_view name) {
      if (name == "name") {
        if (!json_.TakeNull()) found = json_.Text();
      } else {
        json_.Skip();
      }
    });
    return found;
  }

  // A new account has its name in what was written alone.
  void ReadChange() {
    const std::wstring name = NameInObject();
    if (nameWritten_.empty()) nameWritten_ = name;
  }

  void ReadError() {
    JournalEntry::Error error;
    json_.Object([&](std::string_view name) {
      if (name == "number") {
        error.number = static_cast<long>(json_.Number());
      } else if (name == "text") {
        error.text = json_.Text();
      } else {
        json_.Skip();
      }
    });
    record_.error = error;
  }

  JsonReader json_;
  JournalRecord record_;
  std::optional<JournalTime> time_;
  std::wstring nameWritten_;
  bool hasWords_ = false;
  bool hasChanges_ = false;
};

}  // namespace

std::optional<JournalRecord> ReadJournalLine(std::string_view line) {
  return LineReader(line).Read();
}

}  // namespace app
