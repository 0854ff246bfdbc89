#include "browser/trees/AccountRows.h"

#include <limits>
#include <unordered_set>

#include "data/RunTimeError.h"

namespace browser {

std::vector<AccountRow> ReadAccountRows(data::Connection& connection, std::wstring_view statement) {
  std::vector<AccountRow> accounts;
  std::unordered_set<std::int32_t> seen;
  const auto rows = connection.OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    AccountRow row;
    row.id = rows->Column(0).Integer();
    if (!seen.insert(row.id).second) continue;
    row.name = rows->Column(1).Text();
    row.addition = rows->Column(2).Text();
    accounts.push_back(std::move(row));
  }
  rows->Close();
  return accounts;
}

void CountOneMore(std::int16_t& count) {
  if (count == std::numeric_limits<std::int16_t>::max()) {
    throw data::RunTimeError(data::kOverflow);
  }
  ++count;
}

}  // namespace browser
