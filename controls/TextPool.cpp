#include "controls/TextPool.h"

#include <algorithm>
#include <utility>

namespace controls {

TextPool::TextPool(std::function<std::string(std::wstring_view)> sortKey)
    : sortKey_(std::move(sortKey)) {}

TextRef TextPool::Share(std::wstring_view text) {
  const auto found = index_.find(text);
  if (found != index_.end()) return found->second;
  auto ref = static_cast<TextRef>(texts_.size());
  if (free_.empty()) {
    texts_.emplace_back();
  } else {
    ref = free_.back();
    free_.pop_back();
  }
  Entry& entry = At(ref);
  entry.text = text;
  entry.used = true;
  index_.emplace(entry.text, ref);
  if (ref < ranks_.size()) ranks_[ref] = kUnranked;
  ++unranked_;
  MarkIdle(ref);
  return ref;
}

void TextPool::MarkIdle(TextRef text) {
  if (At(text).idle) return;
  At(text).idle = true;
  idle_.push_back(text);
}

void TextPool::Release(TextRef text) {
  if (--At(text).holders == 0) MarkIdle(text);
}

void TextPool::Sweep() {
  for (const TextRef text : idle_) {
    Entry& entry = At(text);
    entry.idle = false;
    if (entry.holders > 0) continue;
    if (!IsRanked(text)) --unranked_;
    index_.erase(entry.text);
    entry = Entry{};
    free_.push_back(text);
  }
  idle_.clear();
}

void TextPool::ReleaseAll() {
  for (TextRef ref = 0; ref < texts_.size(); ++ref) {
    if (!At(ref).used) continue;
    At(ref).holders = 0;
    MarkIdle(ref);
  }
}

const std::string& TextPool::SortKey(TextRef text) const {
  const Entry& entry = At(text);
  if (entry.sortKey.empty() && !entry.text.empty()) entry.sortKey = sortKey_(entry.text);
  return entry.sortKey;
}

// Texts keep their order among themselves whatever is added, so that old ranks still tell it.
bool TextPool::Before(TextRef a, TextRef b) const {
  if (IsRanked(a) && IsRanked(b)) return ranks_[a] < ranks_[b];
  const int order = SortKey(a).compare(SortKey(b));
  return order != 0 ? order < 0 : At(a).text < At(b).text;
}

void TextPool::RankAll() {
  if (Ranked()) return;
  std::vector<TextRef> order;
  order.reserve(texts_.size());
  for (TextRef ref = 0; ref < texts_.size(); ++ref) {
    if (At(ref).used) order.push_back(ref);
  }
  std::sort(order.begin(), order.end(), [this](TextRef a, TextRef b) { return Before(a, b); });
  ranks_.assign(texts_.size(), kUnranked);
  std::uint32_t rank = 0;
  for (const TextRef ref : order) ranks_[ref] = rank++;
  unranked_ = 0;
}

std::size_t TextPool::Bytes() const {
  std::size_t bytes =
      ranks_.capacity() * sizeof(std::uint32_t) + index_.bucket_count() * sizeof(void*);
  for (const Entry& entry : texts_) {
    bytes += sizeof(Entry) + entry.text.capacity() * sizeof(wchar_t) + entry.sortKey.capacity();
    bytes += sizeof(std::pair<std::wstring_view, TextRef>) + 2 * sizeof(void*);
  }
  return bytes;
}

}  // namespace controls
