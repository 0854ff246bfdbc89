#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "controls/win32/NativeSystem.h"

namespace controls_test {
namespace {

// A key of the registry that is nobody's, and goes with the test.
class NativeSettings : public testing::Test {
 protected:
  ~NativeSettings() override { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }

  const std::wstring key =
      L"Software\\User Administration tests " + std::to_wstring(GetCurrentProcessId());
};

TEST_F(NativeSettings, AreThereInTheNextRun) {
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Tab"), L"");
  controls::NativeSystem(key).KeepSetting(L"Tab", L"1");
  controls::NativeSystem(key).KeepSetting(L"Été", L"ç €");
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Tab"), L"1");
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Été"), L"ç €");
  controls::NativeSystem(key).KeepSetting(L"Tab", L"");
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Tab"), L"");
}

TEST_F(NativeSettings, OfAnotherKindOrLengthAreNotRead) {
  const DWORD number = 7;
  RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Number", REG_DWORD, &number, sizeof number);
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Number"), L"");
  const std::wstring longText(5000, L'x');
  controls::NativeSystem(key).KeepSetting(L"Long", longText);
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Long"), L"");
  RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Long", REG_SZ, longText.c_str(),
                  static_cast<DWORD>((longText.size() + 1) * sizeof(wchar_t)));
  EXPECT_EQ(controls::NativeSystem(key).Setting(L"Long"), L"");
}

TEST_F(NativeSettings, AreNotKeptWithoutAKey) {
  controls::NativeSystem system;
  system.KeepSetting(L"Tab", L"1");
  EXPECT_EQ(system.Setting(L"Tab"), L"");
}

}  // namespace
}  // namespace controls_test
