#pragma once

#include <cstddef>
#include <string>

namespace data {

// Overwrites memory with zeros in a way that no optimiser drops, also where nothing reads it again.
void Wipe(void* memory, std::size_t bytes) noexcept;

// Overwrites all that a text's storage holds, spare room included, and leaves the text empty. The
// storage itself is kept, so that a text which is filled again does not leave copies behind. What
// an earlier, smaller storage held cannot be reached any more: fill a secret in one go.
void Wipe(std::string& text) noexcept;
void Wipe(std::wstring& text) noexcept;

}  // namespace data
