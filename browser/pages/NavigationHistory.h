#pragma once

#include <deque>
#include <optional>
#include <string>

namespace browser {

// A node by its key, on the tab where it stands.
struct Place {
  int tab = 0;
  std::wstring key;
};

// Where the user came from, the latest last. Of a long way the beginning is forgotten.
class NavigationHistory {
 public:
  void Push(Place place);
  // The latest, which is taken out; nothing when there is none.
  std::optional<Place> Pop();
  bool IsEmpty() const { return places_.empty(); }
  void Clear() { places_.clear(); }

 private:
  std::deque<Place> places_;
};

}  // namespace browser
