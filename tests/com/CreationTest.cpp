#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ClassEntry.h"
#include "LateServer.h"
#include "automation/RegistryKey.h"
#include "com/Apartment.h"
#include "com/ComSessionServer.h"

using Microsoft::WRL::ComPtr;

namespace com_test {
namespace {

#ifdef _WIN64
constexpr WORD kOtherMachine = IMAGE_FILE_MACHINE_I386;
#else
constexpr WORD kOtherMachine = IMAGE_FILE_MACHINE_AMD64;
#endif

data::RunTimeError ErrorOfCreating(const std::wstring& progId) {
  const ::com::Apartment apartment;
  return ErrorOf([&] {
    ::com::CreateSessionServer(progId, {L"not registered", L"file missing", L"wrong bitness"});
  });
}

void ExpectFault(const wchar_t* text, const std::wstring& progId) {
  const data::RunTimeError error = ErrorOfCreating(progId);
  EXPECT_EQ(data::kCannotCreateObject, error.Number());
  EXPECT_EQ(text, error.Text());
}

// A file that looks like a library of a machine, as far as anybody reads it.
class ImageStub {
 public:
  explicit ImageStub(WORD machine) {
    std::string image(0x200, '\0');
    image[0] = 'M';
    image[1] = 'Z';
    image[0x3C] = 0x40;
    image.replace(0x40, 4, std::string("PE\0\0", 4));
    image[0x44] = static_cast<char>(machine & 0xFF);
    image[0x45] = static_cast<char>(machine >> 8);
    std::ofstream(path_, std::ios::binary) << image;
  }
  ~ImageStub() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  std::wstring Path() const { return path_.wstring(); }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() /
      (L"uadmin-stub-" + std::to_wstring(GetCurrentProcessId()) + L".dll");
};

TEST(Creation, OfAnUnknownObjectSaysSo) {
  ExpectFault(L"not registered", L"Vardex.NoSuchObject.1");
}

// A class that the user has registered, in a process that is shown no class of his: the keys of the
// test stand in the place of the real ones.
class UnseenClass {
 public:
  UnseenClass() {
    RegistryKey::Create(user_.Get(), L"Software\\Classes\\" + ProgId() + L"\\CLSID")
        .Write(nullptr, L"{11111111-2222-3333-4444-555555555555}");
    RegOverridePredefKey(HKEY_CLASSES_ROOT, seen_.Get());
    RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get());
  }
  ~UnseenClass() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, Scratch().c_str());
  }
  UnseenClass(const UnseenClass&) = delete;
  UnseenClass& operator=(const UnseenClass&) = delete;

  static std::wstring ProgId() { return L"UadminTest.Unseen.1"; }

 private:
  using RegistryKey = automation::RegistryKey;

  static std::wstring Scratch() {
    return L"Software\\UadminTestUnseen" + std::to_wstring(GetCurrentProcessId());
  }

  RegistryKey user_ = RegistryKey::Create(HKEY_CURRENT_USER, Scratch() + L"\\User");
  RegistryKey seen_ = RegistryKey::Create(HKEY_CURRENT_USER, Scratch() + L"\\Seen");
};

TEST(Creation, OfAUsersClassThatTheProcessDoesNotSeeSaysSo) {
  const UnseenClass unseen;
  const ::com::Apartment apartment;
  const data::RunTimeError error = ErrorOf([] {
    ::com::CreateSessionServer(UnseenClass::ProgId(),
                               {L"not registered", L"", L"", L"", L"", L"for the user only"});
  });
  EXPECT_EQ(data::kCannotCreateObject, error.Number());
  EXPECT_EQ(L"for the user only", error.Text());
}

TEST(Creation, OfANameWithoutItsClassSaysSo) {
  const ClassEntry entry;
  ExpectFault(L"not registered", entry.ProgId());
}

TEST(Creation, WithoutTheRegisteredFileSaysSo) {
  ClassEntry entry;
  entry.SetLibrary(L"C:\\no such folder\\server.dll");
  ExpectFault(L"file missing", entry.ProgId());
}

// A folder to stand in, left again at the end.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder) {
    std::filesystem::current_path(folder);
  }
  ~CurrentFolder() { std::filesystem::current_path(before_); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

TEST(Creation, OfALibraryThatLiesInTheCurrentFolderAloneSaysThatItIsMissing) {
  const ImageStub stub(kOtherMachine);
  const std::filesystem::path file = stub.Path();
  const CurrentFolder folder(file.parent_path());
  ClassEntry entry;
  entry.SetLibrary(file.filename().wstring());
  ExpectFault(L"file missing", entry.ProgId());
}

TEST(Creation, OfALibraryForTheOtherMachineSaysSo) {
  const ImageStub stub(kOtherMachine);
  ClassEntry entry;
  entry.SetLibrary(L"\"" + stub.Path() + L"\"");
  ExpectFault(L"wrong bitness", entry.ProgId());
}

bool HasTwoRegistryViews() {
  BOOL emulated = FALSE;
  return sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &emulated) && emulated);
}

TEST(Creation, OfAClassKnownToOtherProgramsOnlySaysSo) {
  ClassEntry entry;
  entry.SetLibraryOfTheOtherView(L"C:\\no such folder\\server.dll");
  // A system that runs programs of one word size only has no other ones to know the class.
  ExpectFault(HasTwoRegistryViews() ? L"wrong bitness" : L"file missing", entry.ProgId());
}

TEST(Creation, OfARegisteredClassGivesASessionServer) {
  const ::com::Apartment apartment;
  ClassEntry entry;
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->Gives(L"GetRights", SmallValue(5));
  const RunningClass running(entry.ClassId(), object.Get());
  const ULONG before = object->References();
  {
    const auto server = ::com::CreateSessionServer(entry.ProgId(), {L"", L"", L""});
    EXPECT_EQ(5, server->GetRights());
  }
  EXPECT_EQ(before, object->References());
}

TEST(Creation, OfAnObjectThatScriptsCannotCallIsError430) {
  const ::com::Apartment apartment;
  ClassEntry entry;
  const ComPtr<FakeObject> object = FakeObject::Make();
  object->isDispatch = false;
  const RunningClass running(entry.ClassId(), object.Get());
  EXPECT_EQ(data::kNoAutomation, ErrorOfCreating(entry.ProgId()).Number());
}

TEST(Creation, ThatTheClassRefusesIsReportedInItsOwnWords) {
  const ::com::Apartment apartment;
  ClassEntry entry;
  const FailingClass failing(entry.ClassId(), E_ACCESSDENIED, L"no licence left");
  // What an earlier call has left behind is not taken for it.
  ComPtr<ICreateErrorInfo> creation;
  ComPtr<IErrorInfo> old;
  CreateErrorInfo(creation.GetAddressOf());
  creation->SetDescription(const_cast<wchar_t*>(L"old"));
  creation.As(&old);
  SetErrorInfo(0, old.Get());
  const data::RunTimeError error = ErrorOfCreating(entry.ProgId());
  EXPECT_EQ(E_ACCESSDENIED, error.Number());
  EXPECT_EQ(L"no licence left", error.Text());
}

TEST(Apartments, CannotBeHadInAThreadOfAnotherKind) {
  ASSERT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  EXPECT_EQ(RPC_E_CHANGED_MODE, ErrorOf([] { const ::com::Apartment apartment; }).Number());
  CoUninitialize();
}

}  // namespace
}  // namespace com_test
