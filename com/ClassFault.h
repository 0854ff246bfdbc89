#pragma once

#include <string_view>

namespace com {

// Why an object of a registered name cannot be made, as far as the registry and the file it names
// can tell.
enum class ClassFault {
  kNone,
  kNotRegistered,
  kForUserOnly,  // registered for the user, in a process that does not see that: an elevated one
  kFileMissing,
  kWrongBitness
};

ClassFault FindClassFault(std::wstring_view progId);

}  // namespace com
