#include "com/ResultSetKinds.h"

namespace com {
namespace {

// A server that numbers the members of every object in its own way would fill the list without end.
constexpr std::size_t kMostKinds = 8;

constexpr Member kQuestion = Member::kEndOfRows;

}  // namespace

void ResultSetKinds::Recognize(RemoteObject& resultSet) {
  DISPID id = DISPID_UNKNOWN;
  resultSet.FindId(kQuestion, id);  // a set that has no such member is a class of its own
  const void* const code = resultSet.DispatchCode();
  for (const Kind& kind : kinds_) {
    if (kind.code == code && kind.ids->Find(kQuestion) == id) return resultSet.ShareIds(kind.ids);
  }
  if (kinds_.size() == kMostKinds) kinds_.erase(kinds_.begin());
  kinds_.push_back({code, resultSet.Ids()});
}

}  // namespace com
