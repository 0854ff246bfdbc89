#include "server/engines/sqlite/SqliteError.h"

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {

void FailOn(sqlite3* database) {
  FailDatabase(data::FromUtf8(sqlite3_errmsg(database)));
}

}  // namespace server
