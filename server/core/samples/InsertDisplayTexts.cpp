#include "server/core/samples/InsertDisplayTexts.h"

#include "server/core/samples/SampleData.h"
#include "server/core/sql/BulkInsert.h"

namespace server {

void InsertDisplayTexts(Engine& engine) {
  BulkInsert insert(engine, "QRDISPLAY", {"CODE", "GIVEN", "MAPPED"});
  for (const sample::DisplayText& text : sample::DisplayTexts()) {
    insert.Add(text.code, text.given, text.mapped);
  }
  insert.Finish();
}

}  // namespace server
