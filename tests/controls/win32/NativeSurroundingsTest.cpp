#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <string>

#include "automation/RegistryKey.h"
#include "controls/win32/NativeSystem.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using automation::RegistryKey;

constexpr const wchar_t* kPolicies = L"Software\\Policies\\A product";

std::wstring TestKey() {
  return L"Software\\UadminTestPolicies" + std::to_wstring(GetCurrentProcessId());
}

// What the system says of the machine and its user, with policies of the test's own.
class NativeSurroundings : public ::testing::Test {
 protected:
  NativeSurroundings()
      : all_(RegistryKey::Create(HKEY_CURRENT_USER, TestKey())),
        machine(RegistryKey::Create(all_.Get(), L"machine")),
        person(RegistryKey::Create(all_.Get(), L"user")) {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine.Get());
    RegOverridePredefKey(HKEY_CURRENT_USER, person.Get());
  }
  ~NativeSurroundings() override {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, TestKey().c_str());
  }

  static void Write(const RegistryKey& root, const std::wstring& text, DWORD kind = REG_SZ) {
    const RegistryKey key = RegistryKey::Create(root.Get(), kPolicies);
    RegSetValueExW(key.Get(), L"Journal", 0, kind, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }
  static void Write(const RegistryKey& root, DWORD number) {
    const RegistryKey key = RegistryKey::Create(root.Get(), kPolicies);
    RegSetValueExW(key.Get(), L"Journal", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                   sizeof number);
  }
  std::optional<std::wstring> Policy() const { return system.Policy(L"A product", L"Journal"); }

 private:
  RegistryKey all_;

 protected:
  RegistryKey machine;
  RegistryKey person;
  controls::NativeSystem system;
};

TEST_F(NativeSurroundings, WithoutAPolicyNothingIsLaidDown) {
  EXPECT_EQ(Policy(), std::nullopt);
}

// The C library's own calendar says what hour it is here.
TEST_F(NativeSurroundings, AMomentIsToldAsItIsHereAndAsItsUserWritesIt) {
  const std::time_t moment = 1'793'336'767;
  const std::tm here = *std::localtime(&moment);
  const SYSTEMTIME local = {.wYear = static_cast<WORD>(here.tm_year + 1900),
                            .wMonth = static_cast<WORD>(here.tm_mon + 1),
                            .wDayOfWeek = 0,
                            .wDay = static_cast<WORD>(here.tm_mday),
                            .wHour = static_cast<WORD>(here.tm_hour),
                            .wMinute = static_cast<WORD>(here.tm_min),
                            .wSecond = static_cast<WORD>(here.tm_sec),
                            .wMilliseconds = 0};
  std::array<wchar_t, 80> date = {};
  std::array<wchar_t, 80> clock = {};
  GetDateFormatW(LOCALE_USER_DEFAULT, 0, &local, nullptr, date.data(), date.size());
  GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &local, nullptr, clock.data(), clock.size());
  EXPECT_EQ(system.LocalTime(std::chrono::system_clock::from_time_t(moment)),
            std::wstring(date.data()) + L" " + clock.data());
}

TEST_F(NativeSurroundings, ThePolicyOfTheMachineComesBeforeThatOfTheUser) {
  Write(person, L"D:\\of the user");
  EXPECT_EQ(Policy(), L"D:\\of the user");
  Write(machine, L"D:\\of the machine");
  EXPECT_EQ(Policy(), L"D:\\of the machine");
}

TEST_F(NativeSurroundings, APolicyIsATextANumberOrATextWithVariables) {
  Write(machine, L"");
  EXPECT_EQ(Policy(), L"");
  Write(machine, 0);
  EXPECT_EQ(Policy(), L"0");
  SetEnvironmentVariableW(L"UADMIN_TEST_FOLDER", L"D:\\audit");
  Write(machine, L"%UADMIN_TEST_FOLDER%\\a", REG_EXPAND_SZ);
  EXPECT_EQ(Policy(), L"D:\\audit\\a");
}

TEST(NativeMachine, ItItsUserAndHisFolderAreKnown) {
  const controls::NativeSystem system;
  EXPECT_FALSE(system.ComputerName().empty());
  EXPECT_NE(system.UserName().find(L'\\'), std::wstring::npos);
  EXPECT_TRUE(std::filesystem::is_directory(system.LocalDataFolder()));
}

}  // namespace
}  // namespace controls_test
