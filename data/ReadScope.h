#pragma once

#include "data/Connection.h"

namespace data {

// Stands around reads that are to see one state of the database. Finish reports a failure to end
// the read; the destructor ends it silently when an error is already on its way.
class ReadScope {
 public:
  explicit ReadScope(Connection& connection);
  ~ReadScope();
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

  void Finish();

 private:
  Connection* connection_;  // null once finished
};

}  // namespace data
