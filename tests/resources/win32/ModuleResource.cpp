#include "ModuleResource.h"

#include <windows.h>

namespace resources_test {

std::span<const std::uint8_t> ModuleResource(int id, const wchar_t* type) {
  const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), type);
  if (found == nullptr) return {};
  const void* bytes = LockResource(LoadResource(nullptr, found));
  return {static_cast<const std::uint8_t*>(bytes), SizeofResource(nullptr, found)};
}

}  // namespace resources_test
