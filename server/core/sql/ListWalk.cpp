#include "server/core/sql/ListWalk.h"

#include <algorithm>

namespace server {
namespace {

constexpr std::size_t kFirstAtOnce = 4;
constexpr std::size_t kMostPatience = 4096;
// How far ahead of its furthest position a step of a walk may go, and how far back. Two orders of
// names that differ a little keep well within it.
constexpr std::size_t kReach = 32;

}  // namespace

bool ListWalk::Ask(std::span<const List> lists, std::int64_t identifier) {
  const bool follows = list_ != nullptr && Follow(identifier);
  const List chosen = follows ? nullptr : Choose(lists, identifier);
  last_ = identifier;
  if (follows) {
    astray_ = 0;
    return true;
  }
  onList_ = false;
  // One that no list knows is somebody new, and says nothing about the walk.
  if (chosen == nullptr || (list_ != nullptr && ++astray_ == 1)) return true;
  list_ = chosen;
  StartAt(*chosen->Find(identifier));
  return false;
}

bool ListWalk::Follow(std::int64_t identifier) {
  const auto position = list_->Find(identifier);
  if (!position || *position < Behind()) return false;
  if (*position >= std::min(asked_.size(), end_ + kReach)) return false;
  onList_ = !asked_[*position];
  if (onList_) Mark(*position);
  return true;
}

std::size_t ListWalk::Behind() const {
  return std::max(start_, end_ - std::min(end_, kReach));
}

bool ListWalk::IsPassed(std::int64_t identifier) const {
  const auto position = list_ == nullptr ? std::nullopt : list_->Find(identifier);
  return !position || *position < Behind();
}

// The list in which the identifier comes right after the one before it, else the latest that has
// it.
ListWalk::List ListWalk::Choose(std::span<const List> lists, std::int64_t identifier) const {
  List latest;
  for (const List& list : lists) {
    const auto position = list->Find(identifier);
    if (!position) continue;
    if (*position > 0 && list->At(*position - 1) == last_) return list;
    if (latest == nullptr) latest = list;
  }
  return latest;
}

void ListWalk::StartAt(std::size_t position) {
  asked_.assign(list_->Size(), false);
  start_ = position;
  end_ = position;
  run_ = 0;
  astray_ = 0;
  atOnce_ = kFirstAtOnce;
  onList_ = true;
  Mark(position);
}

void ListWalk::Mark(std::size_t position) {
  asked_[position] = true;
  end_ = std::max(end_, position + 1);
  ++run_;
}

// Whether most of what the walk has come by was asked for.
bool ListWalk::IsDense() const {
  return 4 * run_ >= 3 * (end_ - start_);
}

std::vector<std::int64_t> ListWalk::Foreseen(
    const std::function<bool(std::int64_t)>& atHand) const {
  if (!onList_ || run_ <= patience_ || !IsDense()) return {};
  const std::size_t most = std::min(atOnce_, kMostAtOnce);
  std::vector<std::int64_t> identifiers{last_};
  for (std::size_t i = Behind(); i < asked_.size() && identifiers.size() < most; ++i) {
    const std::int64_t identifier = list_->At(i);
    if (!asked_[i] && !atHand(identifier)) identifiers.push_back(identifier);
  }
  if (identifiers.size() == 1) identifiers.clear();
  return identifiers;
}

void ListWalk::WasRead(std::size_t count, std::size_t limit) {
  atOnce_ = std::max<std::size_t>(std::min({2 * count, limit, kMostAtOnce}), 1);
}

void ListWalk::WasWasted() {
  patience_ = std::min(2 * patience_, kMostPatience);
}

}  // namespace server
