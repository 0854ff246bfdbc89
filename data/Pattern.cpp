#include "data/Pattern.h"

#include <optional>
#include <vector>

namespace data {
namespace {

struct Range {
  wchar_t first;
  wchar_t last;
};

// What one place of a pattern matches: one character, or any number of them.
struct Place {
  bool any = false;
  bool negated = false;
  std::vector<Range> ranges;

  bool Matches(wchar_t unit) const {
    for (const Range& range : ranges) {
      if (unit >= range.first && unit <= range.last) return !negated;
    }
    return negated;
  }
};

// Nothing is excluded, so everything matches.
Place AnyCharacter() {
  return {false, true, {}};
}

// What stands between the brackets; nothing when a range runs downwards.
std::optional<Place> ListedCharacters(std::wstring_view list) {
  Place place;
  if (list.size() > 1 && list[0] == L'!') {
    place.negated = true;
    list.remove_prefix(1);
  }
  while (!list.empty()) {
    const bool isRange = list.size() > 2 && list[1] == L'-';
    const Range range{list[0], isRange ? list[2] : list[0]};
    if (range.first > range.last) return std::nullopt;
    place.ranges.push_back(range);
    list.remove_prefix(isRange ? 3 : 1);
  }
  return place;
}

// The places of a pattern; nothing when it is not one.
std::optional<std::vector<Place>> Places(std::wstring_view pattern) {
  std::vector<Place> places;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const wchar_t unit = pattern[i];
    if (unit == L'*') {
      if (places.empty() || !places.back().any) places.push_back({true, false, {}});
    } else if (unit == L'?') {
      places.push_back(AnyCharacter());
    } else if (unit == L'#') {
      places.push_back({false, false, {{L'0', L'9'}}});
    } else if (unit == L'[') {
      const std::size_t end = pattern.find(L']', i + 1);
      if (end == std::wstring_view::npos) return std::nullopt;
      std::optional<Place> place = ListedCharacters(pattern.substr(i + 1, end - i - 1));
      if (!place) return std::nullopt;
      if (end > i + 1) places.push_back(std::move(*place));
      i = end;
    } else {
      places.push_back({false, false, {{unit, unit}}});
    }
  }
  return places;
}

}  // namespace

// Only the last star passed is ever tried again, one character further each time: whatever an
// earlier star could take over, the last one can take as well.
bool Like(std::wstring_view text, std::wstring_view pattern) {
  const std::optional<std::vector<Place>> places = Places(pattern);
  if (!places) return false;
  const std::size_t count = places->size();
  std::size_t at = 0;
  std::size_t place = 0;
  std::size_t star = count;  // the last star passed, count for none
  std::size_t tried = 0;     // where in the text what stands behind that star was tried
  while (at < text.size()) {
    if (place < count && (*places)[place].any) {
      star = place++;
      tried = at;
    } else if (place < count && (*places)[place].Matches(text[at])) {
      ++at;
      ++place;
    } else if (star < count) {
      place = star + 1;
      at = ++tried;
    } else {
      return false;
    }
  }
  while (place < count && (*places)[place].any) ++place;
  return place == count;
}

}  // namespace data
