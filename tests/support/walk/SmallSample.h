#pragma once

#include "tests/support/data/RawDatabase.h"

namespace test_support {

// Cuts the sample down to what many runs in a row can afford: the users 1 (Admin), 2 (Moreau), 9
// (Martin), 11 (D'Angelo), 15 (L'Hermitte) and 34 (Clément), the groups 1 (Administrators), 2
// (Everyone), 6 (Qualité), 7 (Production) and 12 (Laboratoire), the permissions 1, 2, 14, 20, 21,
// 29 and 30, and the links between these.
void CutDownSample(test_support::RawDatabase& raw);

}  // namespace test_support
