#include "HelpFile.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <vector>

#include "app/MShowHelp.h"

namespace help_test {
namespace {

constexpr const char* kStartPage = "accueil.htm";

// What a pattern's first group catches, at every place it fits.
std::vector<std::string> All(const std::string& text, const char* pattern) {
  const std::regex expression(pattern, std::regex::icase);
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
    found.push_back((*at)[1]);
  }
  return found;
}

class Help : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(file_.IsOpen()); }

  // Every page that can be reached from the start page, the topics and the contents.
  std::set<std::string> Pages() const {
    std::vector<std::string> waiting = {kStartPage};
    for (const auto& [number, page] : file_.Topics()) waiting.push_back(page.substr(1));
    for (const char* list : {"sommaire.hhc", "index.hhk"}) {
      for (const std::string& page : Listed(list)) waiting.push_back(page);
    }
    std::set<std::string> pages;
    while (!waiting.empty()) {
      const std::string page = waiting.back();
      waiting.pop_back();
      if (!pages.insert(page).second) continue;
      for (const std::string& link : Links(page)) waiting.push_back(link);
    }
    return pages;
  }

  std::vector<std::string> Listed(const char* list) const {
    return All(file_.Read(list).value_or(""), "name=\"Local\" value=\"([^\"]*)\"");
  }

  std::vector<std::string> Links(const std::string& page) const {
    return All(file_.Read(page).value_or(""), "<a href=\"([^\"#]*)\"");
  }

  HelpFile file_;
};

TEST_F(Help, OpensAPageOfItsOwnForEachWindow) {
  const std::map<int, std::string> expected = {
      {app::kTopicUserGroupPerm, "/fenetre-principale.htm"},
      {app::kTopicNewUser, "/nouvel-utilisateur.htm"},
      {app::kTopicEditUser, "/modifier-utilisateur.htm"},
      {app::kTopicNewGroup, "/nouveau-groupe.htm"},
      {app::kTopicEditGroup, "/modifier-groupe.htm"},
      {app::kTopicAddUserInGroup, "/ajouter-utilisateurs.htm"},
      {app::kTopicListGroups, "/choisir-groupes.htm"},
      {app::kTopicListPermissions, "/choisir-permissions.htm"},
      {app::kTopicList, "/listes.htm"},
      {app::kTopicJournal, "/journal.htm"}};
  EXPECT_EQ(file_.Topics(), expected);
}

TEST_F(Help, HasEveryPageThatItNames) {
  EXPECT_GE(Pages().size(), 13U);
  for (const std::string& page : Pages()) {
    EXPECT_GT(file_.Read(page).value_or("").size(), 500U) << page;
  }
}

TEST_F(Help, HasTheStyleAndEveryPictureOfItsPages) {
  for (const std::string& page : Pages()) {
    const std::string text = file_.Read(page).value_or("");
    EXPECT_NE(text.find("href=\"aide.css\""), std::string::npos) << page;
    for (const std::string& picture : All(text, "<img [^>]*src=\"([^\"]*)\"")) {
      EXPECT_EQ(file_.Read(picture).value_or("").substr(1, 3), "PNG") << page << ": " << picture;
    }
  }
  EXPECT_TRUE(file_.Read("aide.css").has_value());
}

TEST_F(Help, ListsEveryPageInItsContents) {
  const std::vector<std::string> contents = Listed("sommaire.hhc");
  EXPECT_EQ(std::set<std::string>(contents.begin(), contents.end()), Pages());
  EXPECT_EQ(std::set<std::string>(contents.begin(), contents.end()).size(), contents.size());
}

// The one text that a pattern catches in a page.
std::string Only(const std::string& text, const char* pattern) {
  const std::vector<std::string> found = All(text, pattern);
  return found.size() == 1 ? found.front() : std::string();
}

TEST_F(Help, CallsEachPageInTheContentsWhatThePageCallsItself) {
  const std::string contents = file_.Read("sommaire.hhc").value_or("");
  const std::vector<std::string> names =
      All(contents, "value=\"([^\"]*)\">\\s*<param name=\"Local\"");
  const std::vector<std::string> pages = Listed("sommaire.hhc");
  ASSERT_EQ(names.size(), pages.size());
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string text = file_.Read(pages[i]).value_or("");
    EXPECT_EQ(Only(text, "<title>([^<]*)</title>"), names[i]) << pages[i];
    EXPECT_EQ(Only(text, "<h1>([^<]*)</h1>"), names[i]) << pages[i];
  }
}

TEST_F(Help, IsWrittenInTheCodePageThatItDeclares) {
  for (const std::string& page : Pages()) {
    const std::string text = file_.Read(page).value_or("");
    EXPECT_NE(text.find("charset=windows-1252"), std::string::npos) << page;
    EXPECT_EQ(text.find("charset=\"utf-8\""), std::string::npos) << page;
    // No accent is left in the two bytes of UTF-8, the first of which is this one.
    EXPECT_EQ(text.find('\xC3'), std::string::npos) << page;
  }
  EXPECT_EQ(Only(file_.Read("fenetre-principale.htm").value_or(""), "<h1>([^<]*)</h1>"),
            "La fen\xEAtre principale");
}

TEST_F(Help, DoesNotTellWhereItWasBuilt) {
  std::string everything = HelpFile::Raw();
  ASSERT_GT(everything.size(), 10000U);
  for (const char* internal : {"#STRINGS", "#SYSTEM", "#URLSTR", "#WINDOWS", "$FIftiMain"}) {
    const auto bytes = file_.Read(internal);
    ASSERT_TRUE(bytes.has_value()) << internal;
    everything += *bytes;
  }
  for (const std::string& page : Pages()) everything += file_.Read(page).value_or("");
  EXPECT_EQ(everything.find(UADMIN_SOURCE_FOLDER), std::string::npos);
  EXPECT_EQ(everything.find(UADMIN_BUILD_FOLDER), std::string::npos);
}

}  // namespace

}  // namespace help_test
