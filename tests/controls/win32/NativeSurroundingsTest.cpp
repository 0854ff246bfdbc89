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
