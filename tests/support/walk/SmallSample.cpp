#include "tests/support/walk/SmallSample.h"

namespace test_support {
namespace {

constexpr const char* kStatements[] = {
    "DELETE FROM QRUSGP WHERE USERID NOT IN (1, 2, 9, 11, 15, 34)",
    "DELETE FROM QRUSGP WHERE GROUPID NOT IN (1, 2, 6, 7, 12)",
    "DELETE FROM QRUPRM WHERE USERID NOT IN (1, 2, 9, 11, 15, 34)",
    "DELETE FROM QRUPRM WHERE PERMID NOT IN (1, 2, 14, 20, 21, 29, 30)",
    "DELETE FROM QRGPRM WHERE GROUPID NOT IN (1, 2, 6, 7, 12)",
    "DELETE FROM QRGPRM WHERE PERMID NOT IN (1, 2, 14, 20, 21, 29, 30)",
    "DELETE FROM QRUSER WHERE USERID NOT IN (1, 2, 9, 11, 15, 34)",
    "DELETE FROM QRGROUP WHERE GROUPID NOT IN (1, 2, 6, 7, 12)",
    "DELETE FROM QRPERM WHERE PERMID NOT IN (1, 2, 14, 20, 21, 29, 30)",
};

}  // namespace

void CutDownSample(test_support::RawDatabase& raw) {
  for (const char* statement : kStatements) raw.Execute(statement);
}

}  // namespace test_support
