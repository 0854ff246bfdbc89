#include "server/core/sessions/DataSource.h"

#ifndef _WIN32
#include <grp.h>
#include <unistd.h>
#endif

#include <fstream>
#include <iterator>

#include "ServerTest.h"
#include "data/Text.h"
#include "server/core/sessions/PrivateFile.h"
#include "server/core/sessions/PrivateFileAccess.h"

namespace server_test {
namespace {

using server::DataSources;

class DataSource : public ::testing::Test {
 protected:
  ~DataSource() override {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }
  void Describe(const std::string& text) {
    std::filesystem::create_directories(home_ / "sources");
    std::ofstream(home_ / "sources" / "demo.ini", std::ios::binary) << text;
  }

  std::filesystem::path home_ = test_support::MakeTestFolder();
  DataSources sources_{home_};
};

TEST_F(DataSource, IsFoundAsItWasCreated) {
  const server::DataSource created = sources_.Create("demo", home_ / "base é.db");
  const server::DataSource found = sources_.Find("demo");
  EXPECT_TRUE(sources_.Exists("demo"));
  EXPECT_EQ(found.name, "demo");
  EXPECT_EQ(found.database, home_ / "base é.db");
  EXPECT_EQ(found.keyFile, created.keyFile);
  EXPECT_EQ(server::ReadKey(found).size(), 32U);
}

TEST_F(DataSource, CreatedAgainHasAnotherKey) {
  const std::string key = server::ReadKey(sources_.Create("demo", home_ / "a.db"));
  EXPECT_NE(server::ReadKey(sources_.Create("demo", home_ / "b.db")), key);
  EXPECT_EQ(sources_.Find("demo").database, home_ / "b.db");
}

TEST_F(DataSource, DescriptionsWrittenByHandAreReadToo) {
  Describe("; our site\r\n\r\n  key=/k/demo.key  \r\nother = 1\r\ndatabase\t=  /d/a = b.db\t\r\n");
  const server::DataSource found = sources_.Find("demo");
  EXPECT_EQ(server::PathToUtf8(found.database), "/d/a = b.db");
  EXPECT_EQ(server::PathToUtf8(found.keyFile), "/k/demo.key");
}

TEST_F(DataSource, AnIncompleteDescriptionIsAnError) {
  for (const char* const text : {"", "database = x\n", "key = x\n", "database =\nkey = x\n"}) {
    Describe(text);
    EXPECT_EQ(NumberOf([&] { sources_.Find("demo"); }), server::kSourceUnreadable) << text;
  }
}

TEST_F(DataSource, AnUnknownNameIsAnError) {
  for (const char* const name :
       {"ailleurs", "", "..", "../demo", "a/b", "a\\b", "C:", "é", "a b"}) {
    EXPECT_EQ(NumberOf([&] { sources_.Find(name); }), server::kSourceUnknown) << name;
    EXPECT_FALSE(sources_.Exists(name)) << name;
  }
  EXPECT_EQ(NumberOf([&] { sources_.Create("../demo", "x"); }), server::kSourceUnknown);
}

TEST_F(DataSource, NamesAreShortAndPlain) {
  EXPECT_TRUE(DataSources::IsName("Demo-2_a"));
  EXPECT_TRUE(DataSources::IsName(std::string(64, 'a')));
  EXPECT_FALSE(DataSources::IsName(std::string(65, 'a')));
}

TEST_F(DataSource, AKeyOfAnotherLengthIsNone) {
  const server::DataSource source = sources_.Create("demo", home_ / "a.db");
  std::filesystem::remove(source.keyFile);
  EXPECT_EQ(NumberOf([&] { server::ReadKey(source); }), server::kKeyFileUnreadable);
  for (const std::size_t size : {0U, 31U, 33U}) {
    std::ofstream(source.keyFile, std::ios::binary) << std::string(size, 'k');
    EXPECT_EQ(NumberOf([&] { server::ReadKey(source); }), server::kKeyFileUnreadable) << size;
  }
}

TEST_F(DataSource, APrivateFileIsNeverWrittenOver) {
  const std::filesystem::path file = home_ / "secret";
  EXPECT_TRUE(server::WritePrivateFile(file, "un"));
  EXPECT_FALSE(server::WritePrivateFile(file, "deux"));
  std::ifstream input(file, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(input), {}), "un");
  EXPECT_FALSE(server::WritePrivateFile(home_ / "nulle part" / "secret", "x"));
}

TEST_F(DataSource, WithoutItsGroupASecretIsNotWritten) {
  const std::string nobody = "no such group, I hope";
  EXPECT_FALSE(server::IsGroup(nobody));
  EXPECT_FALSE(server::IsGroup(""));
  EXPECT_FALSE(server::WritePrivateFile(home_ / "key", "k", nobody));
  EXPECT_FALSE(server::WriteSecret(home_ / "password", "p", nobody));
  EXPECT_FALSE(std::filesystem::exists(home_ / "key"));
}

#ifdef _WIN32
TEST_F(DataSource, TheKeyIsForItsCreatorTheSystemAndAdministrators) {
  EXPECT_EQ(server::PrivateFileAccess(L"S-1-5-21-1", L""),
            L"D:P(A;;FA;;;S-1-5-21-1)(A;;FA;;;SY)(A;;FA;;;BA)");
}

TEST_F(DataSource, TheMembersOfItsGroupMayReadTheKey) {
  EXPECT_EQ(server::PrivateFileAccess(L"S-1-5-21-1", L"S-1-5-21-2"),
            L"D:P(A;;FA;;;S-1-5-21-1)(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;S-1-5-21-2)");
  const DataSources shared(home_, "Users");
  EXPECT_EQ(server::ReadKey(shared.Create("demo", home_ / "a.db")).size(), 32U);
}
#else
std::filesystem::perms RightsOf(const std::filesystem::path& file) {
  return std::filesystem::status(file).permissions();
}

TEST_F(DataSource, TheKeyIsForItsOwnerAlone) {
  using std::filesystem::perms;
  const server::DataSource source = sources_.Create("demo", home_ / "a.db");
  EXPECT_EQ(RightsOf(source.keyFile), perms::owner_read | perms::owner_write);
}

TEST_F(DataSource, TheMembersOfItsGroupMayReadTheKey) {
  using std::filesystem::perms;
  const DataSources shared(home_, getgrgid(getegid())->gr_name);
  const server::DataSource source = shared.Create("demo", home_ / "a.db");
  EXPECT_EQ(RightsOf(source.keyFile), perms::owner_read | perms::owner_write | perms::group_read);
  EXPECT_EQ(server::ReadKey(source).size(), 32U);
}
#endif

}  // namespace
}  // namespace server_test
