#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "data/ResultSet.h"

namespace data {

// A connection to the product's database. Every operation raises RunTimeError when it fails.
class Connection {
 public:
  virtual ~Connection() = default;

  virtual std::unique_ptr<ResultSet> OpenResultSet(std::wstring_view statement) = 0;
  // The number of rows affected, -1 when it is not known.
  virtual std::int32_t Execute(std::wstring_view statement) = 0;
  // Between the two all reads see one state of the database, where the server offers that; where it
  // does not, both do nothing.
  virtual void BeginRead() = 0;
  virtual void EndRead() = 0;
};

}  // namespace data
