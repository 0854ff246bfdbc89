#include "server/core/accounts/Rights.h"

#include "server/core/sql/Query.h"

namespace server {

std::int32_t RightsOf(Engine& engine, std::int32_t userId) {
  Query query(engine,
              "SELECT QRPERM.RIGHTS FROM QRPERM, QRUPRM WHERE QRPERM.PERMID = QRUPRM.PERMID"
              " AND QRUPRM.USERID = ? UNION "
              "SELECT QRPERM.RIGHTS FROM QRPERM, QRGPRM, QRUSGPV WHERE QRPERM.PERMID ="
              " QRGPRM.PERMID AND QRGPRM.GROUPID = QRUSGPV.GROUPID AND QRUSGPV.USERID = ?");
  query.Bind(userId, userId);
  std::int64_t mask = 0;
  while (query.Next()) mask |= query.Number(0);
  return static_cast<std::int32_t>(mask);
}

}  // namespace server
