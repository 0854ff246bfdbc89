// What the program asks of the machine and of the user that it runs as.

#include <shlobj.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <ratio>
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

// What the system makes of a moment in the user's own form; ask is told where to, and how much has
// room there, and answers how much there is with the end of the text.
template <typename Ask>
std::wstring TextOf(Ask ask) {
  std::array<wchar_t, 128> text = {};
  const int size = ask(text.data(), static_cast<int>(text.size()));
  return size > 0 ? std::wstring(text.data()) : std::wstring();
}

SYSTEMTIME LocalMoment(std::chrono::system_clock::time_point time) {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  // From the first day of 1601, by which Windows counts, to that of 1970.
  constexpr Ticks kBetween = std::chrono::seconds(11'644'473'600);
  ULARGE_INTEGER ticks = {};
  ticks.QuadPart = static_cast<ULONGLONG>(
      (std::chrono::duration_cast<Ticks>(time.time_since_epoch()) + kBetween).count());
  const FILETIME moment = {ticks.LowPart, ticks.HighPart};
  SYSTEMTIME utc = {};
  SYSTEMTIME local = {};
  FileTimeToSystemTime(&moment, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  return local;
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

std::wstring NativeSystem::LocalTime(std::chrono::system_clock::time_point time) const {
  const SYSTEMTIME moment = LocalMoment(time);
  return TextOf([&](wchar_t* text, int room) {
           return GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &moment, nullptr, text,
                                  room, nullptr);
         }) +
         L" " + TextOf([&](wchar_t* text, int room) {
           return GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &moment, nullptr, text, room);
         });
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
