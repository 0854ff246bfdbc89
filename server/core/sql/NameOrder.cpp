#include "server/core/sql/NameOrder.h"

#include <algorithm>
#include <numeric>

#include "data/Collation.h"
#include "data/Text.h"

namespace server {
namespace {

std::uint64_t StartOf(std::string_view key) {
  std::uint64_t start = 0;
  for (std::size_t i = 0; i < sizeof(start); ++i) {
    start = start << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return start;
}

}  // namespace

void NameOrder::Add(std::wstring_view name, std::int64_t identifier) {
  const std::size_t begin = keys_.size();
  data::AppendCollationKey(keys_, data::Trim(name));
  const std::size_t size = keys_.size() - begin;
  rows_.push_back({StartOf(std::string_view(keys_).substr(begin)), begin, size, name, identifier});
}

bool NameOrder::Before(const Row& left, const Row& right) const {
  if (left.start != right.start) return left.start < right.start;
  const std::string_view keys(keys_);
  const int order =
      keys.substr(left.key, left.keySize).compare(keys.substr(right.key, right.keySize));
  if (order != 0) return order < 0;
  if (left.name != right.name) return left.name < right.name;
  return left.identifier < right.identifier;
}

std::vector<std::size_t> NameOrder::Sorted() const {
  std::vector<std::size_t> order(rows_.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
    return Before(rows_[left], rows_[right]);
  });
  return order;
}

}  // namespace server
