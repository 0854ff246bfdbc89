#pragma once

namespace com_test {

// Faults by writing to address 0, in code that belongs to no part of this program, as a server's
// does not.
void FaultInForeignCode();

}  // namespace com_test
