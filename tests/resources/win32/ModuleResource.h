#pragma once

#include <cstdint>
#include <span>

namespace resources_test {

// The bytes of a resource of this program; empty when there is none of that number and type.
std::span<const std::uint8_t> ModuleResource(int id, const wchar_t* type);

}  // namespace resources_test
