#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/RunTimeError.h"
#include "data/StatementSubject.h"
#include "data/Value.h"

namespace data {

// A write to the database: a row added or changed, or rows removed. An account whose row is marked
// as deleted counts as removed.
struct Write {
  enum class Kind { kAdded, kChanged, kRemoved };
  struct Field {
    std::wstring column;
    FieldValue value;
  };

  Kind kind = Kind::kAdded;
  Table table = Table::kOther;
  std::vector<Field> where;   // which rows; of an added row nothing
  std::vector<Field> values;  // what was written, in that order; never a password
  std::int32_t rows = 0;      // how many, -1 when it is not known
};

// Is told of what goes through a watched connection, when it has happened.
class WriteObserver {
 public:
  virtual void Written(Write write) = 0;
  // A call has failed: a write, or a read that as a rule a write depends on. mayTellSecrets: the
  // error's text may repeat what was to be written, a stored password included.
  virtual void Failed(const Write* write, const RunTimeError& error, bool mayTellSecrets) = 0;

 protected:
  ~WriteObserver() = default;
};

}  // namespace data
