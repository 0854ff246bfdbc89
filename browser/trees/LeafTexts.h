#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "controls/TextPool.h"

namespace browser {

// What the leaves of one kind (groups, users or permissions) show, by identifier, so that a text is
// composed once however many folders list it. It also remembers which folder an identifier was last
// put into: a row that would give a folder the same key twice is recognised at once.
class LeafTexts {
 public:
  struct Leaf {
    controls::TextRef text = 0;
    std::uint32_t folder = 0;   // the number of the folder that lists it
    std::uint32_t present = 0;  // the number of the folder that has a node for it already
    std::uint32_t owner = 0;    // the number of the folder whose user holds it directly
    std::uint8_t image = 0;     // in the folder that lists it
    bool known = false;         // text is set
  };

  Leaf& At(std::int32_t id);
  // A number for the next folder to be filled.
  std::uint32_t NextFolder() { return ++folder_; }

 private:
  // Identifiers come from counters and are small as a rule; those lie in a plain vector.
  static constexpr std::int32_t kSmall = 1 << 16;

  std::vector<Leaf> small_;
  std::unordered_map<std::int32_t, Leaf> large_;
  std::uint32_t folder_ = 0;
};

}  // namespace browser
