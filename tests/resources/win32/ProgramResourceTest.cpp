#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>

#include "ModuleResource.h"
#include "resources/ResourceIds.h"

namespace resources_test {
namespace {

std::string Manifest() {
  const auto bytes = ModuleResource(1, RT_MANIFEST);
  return {bytes.begin(), bytes.end()};
}

TEST(Manifest, AsksForThemedControlsSharpPixelsAndNoMoreRightsThanTheUserHas) {
  const std::string manifest = Manifest();
  for (const char* wanted :
       {"Microsoft.Windows.Common-Controls", "version=\"6.0.0.0\"", "PerMonitorV2", "true/pm",
        "level=\"asInvoker\"", "supportedOS", ">true</longPathAware>"}) {
    EXPECT_NE(manifest.find(wanted), std::string::npos) << wanted;
  }
}

// Where the manifest was read and its wish granted, the process looks for this library elsewhere.
TEST(Manifest, GivesTheProcessTheThemedControls) {
  ACTCTX_SECTION_KEYED_DATA redirection = {};
  redirection.cbSize = sizeof redirection;
  EXPECT_TRUE(FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION,
                                       L"comctl32.dll", &redirection));
}

TEST(Version, IsThatOfTheBuildInNumbersAndInWords) {
  const auto bytes = ModuleResource(VS_VERSION_INFO, RT_VERSION);
  // The fixed part stands after a header of three words, the key and its padding.
  constexpr std::size_t kFixedPart = 40;
  ASSERT_GT(bytes.size(), kFixedPart + sizeof(VS_FIXEDFILEINFO));
  VS_FIXEDFILEINFO fixed;
  std::memcpy(&fixed, &bytes[kFixedPart], sizeof fixed);
  ASSERT_EQ(fixed.dwSignature, 0xFEEF04BDU);
  EXPECT_EQ(fixed.dwFileVersionMS, DWORD{UADMIN_VERSION_MAJOR << 16 | UADMIN_VERSION_MINOR});
  EXPECT_EQ(fixed.dwFileVersionLS, DWORD{UADMIN_VERSION_PATCH << 16});
  const std::wstring words(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2);
  EXPECT_NE(words.find(L"Admin Utilisateurs"), std::wstring::npos);
  EXPECT_NE(words.find(UADMIN_VERSION_TEXT), std::wstring::npos);
}

TEST(Dialogs, TheMainWindowHasATemplate) {
  EXPECT_FALSE(ModuleResource(IDD_USER_GROUP_PERM, RT_DIALOG).empty());
}

}  // namespace

}  // namespace resources_test
