#include "server/com/Registration.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include "automation/RegistryKey.h"
#include "server/com/Identity.h"

namespace com_test {
namespace {

using automation::ReadText;
using automation::RegistryKey;
using server::com::Register;
using server::com::Scope;
using server::com::Unregister;

constexpr const wchar_t* kFile = L"C:\\Program Files\\vardex.dll";
constexpr const wchar_t* kOwnClass = L"{04098AF8-3C38-4DC6-BAE7-6CB808364E64}";
constexpr const wchar_t* kForeignClass = L"{11111111-2222-3333-4444-555555555555}";

// Every registration of the test goes into a key of its own: the process is shown that key in the
// place of the real roots.
class Registration : public testing::Test {
 protected:
  Registration()
      : scratch_(RegistryKey::Create(HKEY_CURRENT_USER, Scratch())),
        machine_(RegistryKey::Create(scratch_.Get(), L"Machine")),
        user_(RegistryKey::Create(scratch_.Get(), L"User")),
        merged_(RegistryKey::Create(scratch_.Get(), L"Merged")),
        classes_(RegistryKey::Create(machine_.Get(), L"Software\\Classes")) {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_.Get());
    RegOverridePredefKey(HKEY_CLASSES_ROOT, merged_.Get());
    RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get());
  }
  ~Registration() override {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, Scratch().c_str());
  }

  static std::wstring Scratch() {
    return L"Software\\UadminTest" + std::to_wstring(GetCurrentProcessId());
  }

  // The texts of a class's entry; empty when it is not there.
  std::wstring Machine(const std::wstring& path) const { return ReadText(classes_.Get(), path); }
  std::wstring User(const std::wstring& path) const {
    return ReadText(user_.Get(), L"Software\\Classes\\" + path);
  }
  void PutForeign(const std::wstring& progId) const {
    RegistryKey::Create(classes_.Get(), progId + L"\\CLSID").Write(L"", kForeignClass);
  }

  bool IsMergedViewUntouched() const {
    wchar_t name[100];
    return RegEnumKeyW(merged_.Get(), 0, name, 100) == ERROR_NO_MORE_ITEMS;
  }

  RegistryKey scratch_;
  RegistryKey machine_;
  RegistryKey user_;
  RegistryKey merged_;   // stands for both as one, which nothing may be written through
  RegistryKey classes_;  // the machine's
};

TEST_F(Registration, EntersTheClassUnderBothNames) {
  ASSERT_EQ(S_OK, Register(Scope::kMachine, kFile));
  EXPECT_EQ(kOwnClass, Machine(L"Vardex.Vardex.1\\CLSID"));
  EXPECT_EQ(kOwnClass, Machine(L"Vardex.Vardex\\CLSID"));
  EXPECT_EQ(L"Vardex.Vardex.1", Machine(L"Vardex.Vardex\\CurVer"));
  const std::wstring key = std::wstring(L"CLSID\\") + kOwnClass;
  EXPECT_EQ(kFile, Machine(key + L"\\InprocServer32"));
  EXPECT_EQ(L"Vardex.Vardex.1", Machine(key + L"\\ProgID"));
  wchar_t model[20] = {};
  DWORD bytes = sizeof model;
  RegGetValueW(classes_.Get(), (key + L"\\InprocServer32").c_str(), L"ThreadingModel",
               RRF_RT_REG_SZ, nullptr, model, &bytes);
  EXPECT_STREQ(L"Apartment", model);
}

TEST_F(Registration, MayBeRepeatedFromAnotherPlace) {
  ASSERT_EQ(S_OK, Register(Scope::kMachine, kFile));
  ASSERT_EQ(S_OK, Register(Scope::kMachine, L"D:\\vardex.dll"));
  EXPECT_EQ(L"D:\\vardex.dll", Machine(std::wstring(L"CLSID\\") + kOwnClass + L"\\InprocServer32"));
}

TEST_F(Registration, ForAUserLeavesTheMachineAlone) {
  ASSERT_EQ(S_OK, Register(Scope::kUser, kFile));
  EXPECT_EQ(kOwnClass, User(L"Vardex.Vardex.1\\CLSID"));
  EXPECT_EQ(L"", Machine(L"Vardex.Vardex.1\\CLSID"));
  ASSERT_EQ(S_OK, Unregister(Scope::kUser));
  EXPECT_EQ(L"", User(L"Vardex.Vardex.1\\CLSID"));
}

TEST_F(Registration, ForTheMachineLeavesTheUsersEntriesAlone) {
  ASSERT_EQ(S_OK, Register(Scope::kUser, L"D:\\own.dll"));
  ASSERT_EQ(S_OK, Register(Scope::kMachine, kFile));
  const std::wstring key = std::wstring(L"CLSID\\") + kOwnClass + L"\\InprocServer32";
  EXPECT_EQ(L"D:\\own.dll", User(key));
  EXPECT_EQ(kFile, Machine(key));
  ASSERT_EQ(S_OK, Unregister(Scope::kMachine));
  EXPECT_EQ(L"", Machine(key));
  EXPECT_EQ(L"D:\\own.dll", User(key));
  EXPECT_TRUE(IsMergedViewUntouched());
}

TEST_F(Registration, RefusesToDisplaceWhatAUserHasRegistered) {
  RegistryKey::Create(user_.Get(), L"Software\\Classes\\Vardex.Vardex.1\\CLSID")
      .Write(L"", kForeignClass);
  EXPECT_EQ(SELFREG_E_CLASS, Register(Scope::kMachine, kFile));
  EXPECT_EQ(L"", Machine(L"Vardex.Vardex.1\\CLSID"));
}

TEST_F(Registration, RefusesToDisplaceAForeignClass) {
  for (const wchar_t* progId : {L"Vardex.Vardex.1", L"Vardex.Vardex"}) {
    PutForeign(progId);
    for (const Scope scope : {Scope::kMachine, Scope::kUser}) {
      EXPECT_EQ(SELFREG_E_CLASS, Register(scope, kFile));
    }
    EXPECT_EQ(kForeignClass, Machine(std::wstring(progId) + L"\\CLSID"));
    EXPECT_EQ(L"", Machine(std::wstring(L"CLSID\\") + kOwnClass + L"\\InprocServer32"));
    EXPECT_EQ(L"", User(std::wstring(progId) + L"\\CLSID"));
    classes_.Remove(progId);
  }
}

TEST_F(Registration, IsTakenBackWithoutATrace) {
  ASSERT_EQ(S_OK, Register(Scope::kMachine, kFile));
  ASSERT_EQ(S_OK, Unregister(Scope::kMachine));
  // The class list itself may stay, empty.
  RegDeleteKeyW(classes_.Get(), L"CLSID");
  wchar_t name[100];
  EXPECT_EQ(ERROR_NO_MORE_ITEMS, RegEnumKeyW(classes_.Get(), 0, name, 100));
  EXPECT_EQ(S_OK, Unregister(Scope::kMachine)) << "nothing to take back is no failure";
}

TEST_F(Registration, TakesNoForeignNameBack) {
  ASSERT_EQ(S_OK, Register(Scope::kMachine, kFile));
  PutForeign(L"Vardex.Vardex.1");
  ASSERT_EQ(S_OK, Unregister(Scope::kMachine));
  EXPECT_EQ(kForeignClass, Machine(L"Vardex.Vardex.1\\CLSID"));
  EXPECT_EQ(L"", Machine(L"Vardex.Vardex\\CLSID"));
}

}  // namespace
}  // namespace com_test
