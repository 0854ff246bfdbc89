#include "com/ResultSetKinds.h"

#include "com/CallGuard.h"
#include "com/ResultSetMembers.h"

namespace com {
namespace {

// A server that numbers the members of every object anew would fill the list without end.
constexpr std::size_t kMostKinds = 8;

const void* CodeOf(IDispatch* object) {
  return *reinterpret_cast<const void* const*>(object);
}

}  // namespace

std::shared_ptr<MemberIds> ResultSetKinds::For(IDispatch* resultSet, ServerFate& fate) {
  MemberIds asked(kResultSetNames);
  DISPID id = DISPID_UNKNOWN;
  fate.exception = Guarded([&]() noexcept { asked.Ask(resultSet, kEndOfRows, id); });
  if (fate.exception != 0) return std::make_shared<MemberIds>(asked);
  for (const Kind& kind : kinds_) {
    DISPID known = DISPID_UNKNOWN;
    if (kind.code == CodeOf(resultSet) && kind.ids->Knows(kEndOfRows, known) && known == id) {
      return kind.ids;
    }
  }
  if (kinds_.size() == kMostKinds) kinds_.erase(kinds_.begin());
  kinds_.push_back({CodeOf(resultSet), std::make_shared<MemberIds>(asked)});
  return kinds_.back().ids;
}

}  // namespace com
