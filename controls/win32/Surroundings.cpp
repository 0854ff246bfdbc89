// What the program asks of the machine and of the user that it runs as.

#include <shlobj.h>

#include <array>
#include <vector>

#include "controls/win32/Handles.h"
#include "controls/win32/NativeSystem.h"

namespace controls {
namespace {

constexpr const wchar_t* kPolicies = L"Software\\Policies\\";

// The longest path that there is.
constexpr DWORD kLongestPolicy = 32 * 1024;

// A number or a text; the variables in one that is meant so are filled in.
std::optional<std::wstring> PolicyOf(HKEY root, const std::wstring& key, const std::wstring& name) {
  DWORD number = 0;
  DWORD size = sizeof number;
  if (RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &number, &size) ==
      ERROR_SUCCESS) {
    return std::to_wstring(number);
  }
  std::vector<wchar_t> text(kLongestPolicy);
  size = kLongestPolicy * sizeof(wchar_t);
  if (RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return std::wstring(text.data());
}

}  // namespace

std::wstring NativeSystem::LocalDataFolder() const {
  PWSTR path = nullptr;
  std::wstring folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &path))) {
    folder = path;
  }
  CoTaskMemFree(path);
  return folder;
}

std::optional<std::wstring> NativeSystem::Policy(const std::wstring& product,
                                                 const std::wstring& name) const {
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    if (auto value = PolicyOf(root, kPolicies + product, name)) return value;
  }
  return std::nullopt;
}

std::wstring NativeSystem::ComputerName() const {
  std::array<wchar_t, 256> name = {};
  auto size = static_cast<DWORD>(name.size());
  const bool known = GetComputerNameExW(ComputerNameDnsHostname, name.data(), &size) != 0;
  return known ? std::wstring(name.data(), size) : std::wstring();
}

// From the token that the program runs under, not from variables that anybody may set.
std::wstring NativeSystem::UserName() const {
  alignas(TOKEN_USER) std::array<std::byte, 256> user = {};
  DWORD size = 0;
  HANDLE token = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return {};
  const bool known = GetTokenInformation(token, TokenUser, user.data(),
                                         static_cast<DWORD>(user.size()), &size) != 0;
  CloseHandle(token);
  if (!known) return {};
  std::array<wchar_t, 257> name = {};
  std::array<wchar_t, 257> domain = {};
  auto nameSize = static_cast<DWORD>(name.size());
  auto domainSize = static_cast<DWORD>(domain.size());
  SID_NAME_USE use = SidTypeUnknown;
  if (!LookupAccountSidW(nullptr, reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid,
                         name.data(), &nameSize, domain.data(), &domainSize, &use)) {
    return {};
  }
  return std::wstring(domain.data()) + L"\\" + name.data();
}

}  // namespace controls
