#include "tests/program/Registration.h"

#include <array>
#include <cstdint>

#include "tests/program/Paths.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Process.h"

namespace program {
namespace {

const std::wstring kClasses = L"Software\\Classes\\";
const std::wstring kBackup = L"Software\\uadmin program test\\";

constexpr std::array<const wchar_t*, 2> kProgIds = {L"Vardex.Vardex.1", L"Vardex.Vardex"};

std::wstring DefaultOf(const std::wstring& key) {
  std::array<wchar_t, MAX_PATH> value{};
  DWORD size = sizeof value;
  RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(),
               &size);
  return value.data();
}

std::wstring ClassId() {
  return DefaultOf(kClasses + kProgIds[0] + L"\\CLSID");
}

class Key {
 public:
  explicit Key(const std::wstring& path) {
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
  }
  ~Key() { RegCloseKey(key_); }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

bool Exists(const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

void Copy(const std::wstring& from, const std::wstring& to) {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, to.c_str());
  if (Exists(from)) RegCopyTreeW(HKEY_LOCAL_MACHINE, from.c_str(), Key(to).Get());
}

// The keys of the server, below the classes.
std::array<std::wstring, 3> Keys() {
  const std::wstring id = ClassId();
  return {kProgIds[0], kProgIds[1], id.empty() ? L"CLSID\\{none}" : L"CLSID\\" + id};
}

}  // namespace

// Each object keeps its own backup, so that one may live inside another's life.
std::wstring Registration::Backup(const std::wstring& key) const {
  return kBackup + std::to_wstring(reinterpret_cast<std::uintptr_t>(this)) + L"\\" + key;
}

Registration::Registration() {
  for (const std::wstring& key : Keys()) Copy(kClasses + key, Backup(key));
}

Registration::~Registration() {
  Remove();
  for (const wchar_t* progId : kProgIds) Copy(Backup(progId), kClasses + progId);
  const std::wstring id = ClassId();
  if (!id.empty()) Copy(Backup(L"CLSID\\" + id), kClasses + L"CLSID\\" + id);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, Backup({}).c_str());
}

void Registration::Enter() {
  const driver::Process tool({BinFolder() / L"vardexctl.exe", L"register", {}, {}, {}});
  if (tool.WaitForExit() != 0u) throw driver::Failure("the session server cannot be registered");
}

void Registration::Remove() {
  for (const std::wstring& key : Keys()) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
  }
}

void Registration::PointTo(const std::filesystem::path& file) {
  const std::wstring key = kClasses + L"CLSID\\" + ClassId() + L"\\InprocServer32";
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, file.c_str(),
                  static_cast<DWORD>((file.wstring().size() + 1) * sizeof(wchar_t)));
}

}  // namespace program
