#include "controls/win32/NativeSystem.h"
#include "tests/support/system/ScriptedSystem.h"

namespace test_support {

std::unique_ptr<controls::System> MakeSystemBelow() {
  return std::make_unique<controls::NativeSystem>();
}

}  // namespace test_support
