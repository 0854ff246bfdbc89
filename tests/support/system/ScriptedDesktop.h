#pragma once

#include "controls/Desktop.h"
#include "tests/support/system/ScriptedSystem.h"

namespace test_support {

// A base, so that the system is there before the desktop and ends after it.
struct OwnedSystem {
  ScriptedSystem system;
};

// The desktop of a test, with the system that the test answers for.
class ScriptedDesktop : public OwnedSystem, public controls::Desktop {
 public:
  ScriptedDesktop() : controls::Desktop(system) {}
};

}  // namespace test_support
