#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "BuiltLibrary.h"
#include "com/Apartment.h"
#include "com/ComSessionServer.h"
#include "tests/support/data/SampleDatabase.h"

namespace com_test {
namespace {

constexpr const char* kManifest =
    R"(<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
<assemblyIdentity type="win32" name="UadminTest" version="1.0.0.0"/>
<file name="vardex.dll">
<comClass clsid="{04098AF8-3C38-4DC6-BAE7-6CB808364E64}" progid="Vardex.Vardex.1"
 threadingModel="Apartment"/>
</file>
</assembly>)";

// While it lives, the system knows the reference server from a manifest instead of the registry,
// with a copy of the library beside it.
class ManifestActivation {
 public:
  explicit ManifestActivation(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / "vardex.manifest";
    std::ofstream(file) << kManifest;
    std::filesystem::copy_file(BuiltFile(L"vardex.dll"), folder / "vardex.dll");
    ACTCTXW request{};
    request.cbSize = sizeof request;
    const std::wstring path = file.wstring();
    request.lpSource = path.c_str();
    context_ = CreateActCtxW(&request);
    active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
  }
  ~ManifestActivation() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
  ManifestActivation(const ManifestActivation&) = delete;
  ManifestActivation& operator=(const ManifestActivation&) = delete;

  bool IsActive() const { return active_; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

TEST(Activation, ByTheProductsNameGivesAServerThatWorks) {
  test_support::SampleDatabase database;
  _wputenv_s(L"VARDEX_HOME", database.Home().c_str());
  const ::com::Apartment apartment;
  const ManifestActivation activation(database.Home());
  ASSERT_TRUE(activation.IsActive());
  const auto server = ::com::CreateSessionServer(L"Vardex.Vardex.1", {L"", L"", L""});
  std::wstring text;
  std::int32_t id = 0;
  server->ReadCommandLine(database.CommandLine(), text, id);
  server->OpenSession(text, id);
  EXPECT_EQ(4, server->GetRights() & 4);
}

}  // namespace
}  // namespace com_test
