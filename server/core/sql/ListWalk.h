#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "server/core/sql/IdentifierList.h"

namespace server {

// How a statement that is asked for one identifier after another goes through a list, and which it
// will be asked for next. A walk may leave some out, come back for them a little later, and go
// astray for a single step. Nothing is foreseen before a walk has gone on for a while, and never
// more than it has gone already: one that ends early, or jumps, has then cost little for nothing.
class ListWalk {
 public:
  // Notes that the statement is asked for an identifier. lists are those that it may go through,
  // the latest first. False when the walk has jumped: what was foreseen is of no use any more.
  bool Ask(std::span<const std::shared_ptr<const IdentifierList>> lists, std::int64_t identifier);
  // The identifiers worth asking for at once, the one last asked for being the first; empty when
  // that one is to be asked for alone. Those that are at hand are left out.
  std::vector<std::int64_t> Foreseen(const std::function<bool(std::int64_t)>& atHand) const;

  // Whether a walk that goes on will not come back to an identifier.
  bool IsPassed(std::int64_t identifier) const;

  // What the caller learned: as many identifiers were read at once, or rows read were never asked
  // for. limit is how many may be read at once the next time.
  void WasRead(std::size_t count, std::size_t limit);
  void WasWasted();

  // As many are asked for at once at most.
  static constexpr std::size_t kMostAtOnce = 256;

 private:
  using List = std::shared_ptr<const IdentifierList>;

  bool Follow(std::int64_t identifier);
  List Choose(std::span<const List> lists, std::int64_t identifier) const;
  void StartAt(std::size_t position);
  void Mark(std::size_t position);
  // The first position that the walk may still come back to.
  std::size_t Behind() const;
  bool IsDense() const;

  List list_;                  // null as long as none is known to hold what is asked for
  std::vector<bool> asked_;    // by position
  std::size_t start_ = 0;      // where the walk began
  std::size_t end_ = 0;        // one beyond the furthest position asked for
  std::size_t run_ = 0;        // how many were asked for
  std::size_t astray_ = 0;     // how many in a row were elsewhere
  std::int64_t last_ = 0;      // the identifier last asked for
  bool onList_ = false;        // whether that one was a step of the walk
  std::size_t patience_ = 16;  // how long a walk must be before anything is foreseen
  std::size_t atOnce_ = 4;
};

}  // namespace server
