#include "controls/SortKey.h"

#include "data/Collation.h"

namespace controls {

// Where the native controls ask the system for its order, this back end has the portable one.
std::string SortKey(std::wstring_view text) {
  return data::CollationKey(text);
}

}  // namespace controls
