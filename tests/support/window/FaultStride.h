#pragma once

#include <cstddef>

namespace test_support {

// Tests in which every call fails once take each of so many calls only: natively all. Native
// controls take their time, and what a form does about a failure is the same on both back ends.
#ifdef _WIN32
constexpr std::size_t kFaultStride = 7;
#else
constexpr std::size_t kFaultStride = 1;
#endif

}  // namespace test_support
