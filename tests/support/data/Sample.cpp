#include "tests/support/data/Sample.h"

#include <algorithm>
#include <span>

#include "data/Collation.h"
#include "data/Text.h"

namespace test_support {
namespace {

template <class Row>
std::vector<Row> ByName(std::span<const Row> rows) {
  std::vector<Row> ordered(rows.begin(), rows.end());
  std::sort(ordered.begin(), ordered.end(), [](const Row& left, const Row& right) {
    return data::CollationKey(data::FromUtf8(left.name)) <
           data::CollationKey(data::FromUtf8(right.name));
  });
  return ordered;
}

}  // namespace

std::vector<server::sample::Group> Sample::GroupsByName() {
  return ByName(server::sample::Groups());
}

std::vector<server::sample::Permission> Sample::PermissionsByName() {
  return ByName(server::sample::Permissions());
}

}  // namespace test_support
