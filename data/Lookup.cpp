#include "data/Lookup.h"

namespace data {

std::int32_t ReadIdentifier(Connection& connection, std::wstring_view statement,
                            std::int32_t initial) {
  std::int32_t identifier = initial;
  const std::unique_ptr<ResultSet> rows = connection.OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) identifier = rows->Column(0).Integer();
  rows->Close();
  return identifier;
}

std::int32_t CountRows(Connection& connection, std::wstring_view statement) {
  std::int32_t count = 0;
  const std::unique_ptr<ResultSet> rows = connection.OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) ++count;
  rows->Close();
  return count;
}

}  // namespace data
