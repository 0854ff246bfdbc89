#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace automation {

// The registry refused; thrown by everything below that writes.
struct RegistryError {
  LSTATUS status;
};

// An open key of the registry.
class RegistryKey {
 public:
  static RegistryKey Create(HKEY parent, const std::wstring& path);
  ~RegistryKey();
  RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  RegistryKey& operator=(RegistryKey&&) = delete;

  HKEY Get() const { return key_; }

  // An empty name stands for the key's default value.
  void Write(const wchar_t* name, const std::wstring& text) const;
  // Removes a key below with all that is in it. One that is not there is no failure.
  void Remove(const std::wstring& path) const;

 private:
  explicit RegistryKey(HKEY key) : key_(key) {}

  HKEY key_;
};

// The default value of a key below parent; empty when there is none.
std::wstring ReadText(HKEY parent, const std::wstring& path);

}  // namespace automation
