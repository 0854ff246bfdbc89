#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace server {

// Puts rows in the order of names as data/Collation.h has it, blanks around a name not counted.
// Names that are equal in that stand in the order of their characters, equal names in the order of
// their identifiers: whatever order an engine gave the rows in, they come out in one and the same.
class NameOrder {
 public:
  // The name and the identifier of the next row.
  void Add(std::wstring_view name, std::int64_t identifier);
  // The numbers of the rows, from 0, in the order of their names.
  std::vector<std::size_t> Sorted() const;

 private:
  struct Row {
    std::uint64_t start;  // the first bytes of the key: most comparisons need no more
    std::size_t key;      // where the key begins in keys_
    std::size_t keySize;
    std::wstring_view name;
    std::int64_t identifier;
  };

  bool Before(const Row& left, const Row& right) const;

  std::string keys_;
  std::vector<Row> rows_;
};

}  // namespace server
