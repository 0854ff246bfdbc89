#include "data/Pattern.h"

namespace data {
namespace {

constexpr std::size_t kNowhere = std::wstring_view::npos;

// A pattern is a row of elements: a list in brackets, or one character. They are read where they
// stand: a pattern may be a password, of which no copy is to be left in memory.
std::wstring_view ElementAt(std::wstring_view pattern, std::size_t at) {
  const bool isList = pattern[at] == L'[';
  return pattern.substr(at, isList ? pattern.find(L']', at) + 1 - at : 1);
}

// What stands between the brackets, without the sign that negates it.
struct List {
  explicit List(std::wstring_view element) : ranges(element.substr(1, element.size() - 2)) {
    negated = ranges.size() > 1 && ranges[0] == L'!';
    if (negated) ranges.remove_prefix(1);
  }

  std::wstring_view ranges;
  bool negated = false;
};

struct Range {
  wchar_t first;
  wchar_t last;
};

// Takes the first range, of which a single character is one too, off a list that is not empty.
Range NextRange(std::wstring_view& ranges) {
  const bool isRange = ranges.size() > 2 && ranges[1] == L'-';
  const Range range{ranges[0], isRange ? ranges[2] : ranges[0]};
  ranges.remove_prefix(isRange ? 3 : 1);
  return range;
}

bool RunsUpwards(List list) {
  while (!list.ranges.empty()) {
    const Range range = NextRange(list.ranges);
    if (range.first > range.last) return false;
  }
  return true;
}

bool IsPattern(std::wstring_view pattern) {
  for (std::size_t at = 0; at < pattern.size(); at += ElementAt(pattern, at).size()) {
    if (pattern[at] != L'[') continue;
    if (pattern.find(L']', at) == kNowhere) return false;
    if (!RunsUpwards(List(ElementAt(pattern, at)))) return false;
  }
  return true;
}

bool MatchesList(List list, wchar_t unit) {
  while (!list.ranges.empty()) {
    const Range range = NextRange(list.ranges);
    if (unit >= range.first && unit <= range.last) return !list.negated;
  }
  return list.negated;
}

// Whether an element other than a star matches one character.
bool Matches(std::wstring_view element, wchar_t unit) {
  switch (element[0]) {
    case L'?':
      return true;
    case L'#':
      return unit >= L'0' && unit <= L'9';
    case L'[':
      return MatchesList(List(element), unit);
    default:
      return unit == element[0];
  }
}

// The next element that stands for something: an empty list does not.
std::size_t SkipEmptyLists(std::wstring_view pattern, std::size_t at) {
  while (pattern.substr(at).starts_with(L"[]")) at += 2;
  return at;
}

}  // namespace

// Only the last star passed is ever tried again, one character further each time: whatever an
// earlier star could take over, the last one can take as well.
bool Like(std::wstring_view text, std::wstring_view pattern) {
  if (!IsPattern(pattern)) return false;
  std::size_t at = 0;
  std::size_t place = SkipEmptyLists(pattern, 0);
  std::size_t afterStar = kNowhere;  // what follows the last star passed
  std::size_t tried = 0;             // where in the text that was tried
  while (at < text.size()) {
    const bool isEnd = place == pattern.size();
    if (!isEnd && pattern[place] == L'*') {
      place = afterStar = SkipEmptyLists(pattern, place + 1);
      tried = at;
    } else if (!isEnd && Matches(ElementAt(pattern, place), text[at])) {
      ++at;
      place = SkipEmptyLists(pattern, place + ElementAt(pattern, place).size());
    } else if (afterStar != kNowhere) {
      place = afterStar;
      at = ++tried;
    } else {
      return false;
    }
  }
  while (place < pattern.size() && pattern[place] == L'*') {
    place = SkipEmptyLists(pattern, place + 1);
  }
  return place == pattern.size();
}

}  // namespace data
