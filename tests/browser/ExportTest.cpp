#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>

#include "browser/evidence/CsvCell.h"
#include "browser/evidence/HtmlText.h"
#include "data/Text.h"
#include "tests/browser/CommandTest.h"
#include "tests/browser/FullDisk.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
using Cells = std::vector<std::string>;

// Where a test leaves a page for a browser to read; not set, there is no need of one.
constexpr const char* kPageVariable = "UADMIN_EXPORTED_PAGE";

// A table read back by its own rules.
std::vector<Cells> ReadTable(const std::string& table) {
  std::vector<Cells> rows(1, Cells(1));
  bool quoted = false;
  for (std::size_t i = 0; i < table.size(); ++i) {
    std::string& cell = rows.back().back();
    if (quoted && table[i] == '"' && i + 1 < table.size() && table[i + 1] == '"') {
      cell += table[i++];
    } else if (table[i] == '"') {
      quoted = !quoted;
    } else if (!quoted && table[i] == ';') {
      rows.back().emplace_back();
    } else if (!quoted && table[i] == '\r' && i + 1 < table.size() && table[i + 1] == '\n') {
      rows.emplace_back(1);
      ++i;
    } else {
      cell += table[i];
    }
  }
  EXPECT_EQ(rows.back(), Cells(1)) << "the last line has no end";
  rows.pop_back();
  return rows;
}

class RightsExportTest : public CommandTest {
 protected:
  RightsExportTest() {
    user.System().answers.AskSaveFile = [this](const std::wstring& name,
                                               const std::vector<controls::FileKind>& kinds) {
      EXPECT_TRUE(name.starts_with(L"droits-20")) << data::ToUtf8(name);
      EXPECT_EQ(kinds.size(), 2u);
      return std::optional(File().wstring());
    };
  }

  std::filesystem::path Folder() {
    const std::filesystem::path folder = Database().Home() / "exports";
    if (makesFolder) std::filesystem::create_directories(folder);
    return folder;
  }
  std::filesystem::path File() { return Folder() / fileName; }

  static std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // The rows of the table, without its mark and headings.
  std::vector<Cells> Table() {
    const std::string table = Content(File());
    EXPECT_TRUE(table.starts_with("\xEF\xBB\xBF"));
    std::vector<Cells> rows = ReadTable(table.substr(std::min<std::size_t>(3, table.size())));
    EXPECT_EQ(rows.at(0),
              (Cells{"Utilisateur", "Nom complet", "Permission", "Origine", "Groupes"}));
    rows.erase(rows.begin());
    return rows;
  }

  void Export(frmUserGroupPerm& window) { user.PressCtrl(window, 'E'); }

#ifndef _WIN32
  // An export for which there is room for so many bytes only.
  void ExpectFullDisk(frmUserGroupPerm& window, std::uintmax_t bytes) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"ExportRights Error [75]\r\nLe disque du dossier " +
                                 Folder().wstring() +
                                 L" est plein ou n'est plus accessible. Aucun fichier n'a été "
                                 L"laissé."});
    const std::size_t files = FilesLeft();
    const FullDisk disk(bytes);
    Export(window);
    EXPECT_EQ(FilesLeft(), files);
  }
#endif

  std::size_t FilesLeft() {
    const std::filesystem::directory_iterator files(Folder());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  std::string fileName = "rights.csv";
  bool makesFolder = true;
};

// The database itself says who has what and from where.
std::set<Cells> FromDatabase(test_support::RawDatabase raw) {
  std::set<Cells> facts;
  for (const auto& row : raw.Rows(
           "SELECT U.NAME, COALESCE(U.FULLNAME, ''), P.NAME, '' FROM QRUSER U, QRUPRM L, QRPERM P "
           "WHERE U.USERID = L.USERID AND P.PERMID = L.PERMID AND COALESCE(U.VFLG, '') <> 'D' "
           "UNION SELECT U.NAME, COALESCE(U.FULLNAME, ''), P.NAME, G.NAME "
           "FROM QRUSER U, QRUSGP M, QRGROUP G, QRGPRM L, QRPERM P "
           "WHERE U.USERID = M.USERID AND G.GROUPID = M.GROUPID AND L.GROUPID = G.GROUPID "
           "AND P.PERMID = L.PERMID AND COALESCE(U.VFLG, '') <> 'D' "
           "AND COALESCE(G.VFLG, '') <> 'D'")) {
    facts.insert(row);
  }
  return facts;
}

TEST_F(RightsExportTest, TheTableSaysWhatTheDatabaseSays) {
  UseGenerated({60, 12, 40});
  auto raw = Raw();
  // Random, and uneven: users with much, with little and with nothing; what is deleted counts not.
  raw.Execute("DELETE FROM QRUSGP WHERE (USERID * 7 + GROUPID) % 5 = 0");
  raw.Execute("DELETE FROM QRUPRM WHERE (USERID + PERMID) % 3 = 0");
  raw.Execute("DELETE FROM QRUSGP WHERE USERID = 20");
  raw.Execute("DELETE FROM QRUPRM WHERE USERID = 20");
  raw.Execute("UPDATE QRUSER SET VFLG = 'D' WHERE USERID = 30");
  raw.Execute("UPDATE QRGROUP SET VFLG = 'D' WHERE GROUPID = 5");
  raw.Execute("UPDATE QRUSER SET FULLNAME = NULL WHERE USERID = 31");
  // Shown names are those of the database here.
  raw.Execute("DELETE FROM QRDISPLAY");
  Run([this](frmUserGroupPerm& window) {
    log.statements.clear();
    Export(window);
    EXPECT_EQ(log.statements, Strings());
  });
  std::set<Cells> facts;
  for (const Cells& row : Table()) {
    ASSERT_EQ(row.size(), 5u);
    if (row[3].starts_with("Directe")) facts.insert({row[0], row[1], row[2], ""});
    EXPECT_EQ(row[3] != "Directe", !row[4].empty());
    for (std::size_t at = 0; !row[4].empty() && at != std::string::npos;) {
      const std::size_t end = row[4].find(", ", at);
      facts.insert({row[0], row[1], row[2], row[4].substr(at, end - at)});
      at = end == std::string::npos ? end : end + 2;
    }
  }
  const std::set<Cells> wanted = FromDatabase(Raw());
  EXPECT_GT(wanted.size(), 2000u);
  EXPECT_EQ(facts, wanted);
  EXPECT_EQ(FilesLeft(), 1u);
}

TEST_F(RightsExportTest, TheStatusLineNamesTheFile) {
  Run([this](frmUserGroupPerm& window) {
    Export(window);
    EXPECT_EQ(window.lblStatus.Caption(), L"Droits exportés dans " + File().wstring());
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    std::filesystem::remove(File());
    user.Focus(window.Groups.TreeView1);
    Export(window);
    EXPECT_TRUE(std::filesystem::exists(File()));
  });
}

TEST_F(RightsExportTest, WithoutAFileNothingIsWritten) {
  user.System().answers.AskSaveFile = [](const auto&, const auto&) {
    return std::optional<std::wstring>();
  };
  Run([this](frmUserGroupPerm& window) {
    const std::wstring status = window.lblStatus.Caption();
    Export(window);
    EXPECT_EQ(window.lblStatus.Caption(), status);
  });
  EXPECT_EQ(FilesLeft(), 0u);
}

TEST_F(RightsExportTest, EscapeStopsItAndLeavesWhatWasThere) {
  std::ofstream(File()) << "of yesterday";
  int asked = 0;
  user.System().answers.EscapePressed = [&] { return ++asked > 0; };
  Run([this](frmUserGroupPerm& window) {
    Export(window);
    EXPECT_EQ(window.lblStatus.Caption(), L"Export arrêté : aucun fichier n'a été écrit.");
  });
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(Content(File()), "of yesterday");
  EXPECT_EQ(FilesLeft(), 1u);
}

TEST_F(RightsExportTest, AFolderThatIsNotThereIsTold) {
  makesFolder = false;
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"ExportRights Error [75]\r\nImpossible d'écrire dans le dossier " +
                   Folder().wstring() +
                   L" : il n'existe pas ou plus, ou vous n'avez pas le droit d'y "
                   L"écrire. Aucun fichier n'a été laissé."});
    Export(window);
  });
  EXPECT_FALSE(std::filesystem::exists(Folder()));
}

TEST_F(RightsExportTest, AFolderThatGoesAwayMeanwhileIsTold) {
#ifndef _WIN32
  user.System().answers.EscapePressed = [this] {
    std::filesystem::remove_all(Folder());
    makesFolder = false;
    return false;
  };
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox(controls::kResultOk);
    Export(window);
  });
  EXPECT_FALSE(std::filesystem::exists(Folder()));
#endif
}

#ifndef _WIN32
// Wherever the room ends: at once, within what is written at a time, just before the end.
TEST_F(RightsExportTest, AFullDiskIsToldAndLeavesWhatWasThere) {
  UseGenerated({60, 12, 40});
  const std::string before = "of yesterday";
  Run([&](frmUserGroupPerm& window) {
    for (const char* name : {"rights.csv", "rights.html"}) {
      fileName = name;
      Export(window);
      const std::uintmax_t whole = std::filesystem::file_size(File());
      EXPECT_GT(whole, 20'000u);
      std::ofstream(File()) << before;
      for (std::uintmax_t bytes = 0; bytes < whole; bytes = bytes < 4 ? bytes + 1 : 3 * bytes) {
        ExpectFullDisk(window, bytes);
      }
      ExpectFullDisk(window, whole - 1);
      EXPECT_EQ(Content(File()), before);
      std::filesystem::remove(File());
      EXPECT_EQ(FilesLeft(), 0u);
    }
  });
}

TEST_F(RightsExportTest, ADiskThatIsFullUntilRoomIsMadeIsUsedThen) {
  Run([&](frmUserGroupPerm& window) {
    ExpectFullDisk(window, 100);
    Export(window);
    EXPECT_EQ(window.lblStatus.Caption(), L"Droits exportés dans " + File().wstring());
    EXPECT_FALSE(Table().empty());
  });
}
#endif

TEST_F(RightsExportTest, AFileThatCannotBeReplacedStaysAsItWas) {
  // A folder of the name stands for a file that another program holds.
  std::filesystem::create_directories(File() / "held");
  Run([this](frmUserGroupPerm& window) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"ExportRights Error [75]\r\nLe fichier " + File().wstring() +
                                 L" ne peut pas être remplacé : il est protégé ou ouvert dans un "
                                 L"autre programme. Il est resté tel qu'il était."});
    Export(window);
  });
  EXPECT_TRUE(std::filesystem::exists(File() / "held"));
  EXPECT_EQ(FilesLeft(), 1u);
}

TEST_F(RightsExportTest, AfterAFailedRefreshTheFileAndAMessageSayWhatItIs) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) {
      return call.starts_with(L"SELECT QRUSERV.USERID, QRUSERV.NAME") ? 1234L : 0L;
    };
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.cmdBtn[kRefreshButton]);
    log.FailAt = nullptr;
    const std::wstring notice =
        L"Cet export est incomplet : une lecture de la base a échoué, et il ne contient que ce qui "
        L"a été lu.";
    for (const char* name : {"rights.csv", "rights.html"}) {
      fileName = name;
      user.ExpectMsgBox({.answer = controls::kResultOk, .prompt = notice});
      user.Focus(window.Users.TreeView1);
      Export(window);
      EXPECT_NE(Content(File()).find("Cet export est incomplet"), std::string::npos) << name;
    }
  });
}

// Names that would do something where they are read; all of them stay in the page.
TEST_F(RightsExportTest, HostileNamesAreTextOnThePageAndInTheTable) {
  auto raw = Raw();
  raw.Execute("UPDATE QRUSER SET NAME = '<script>document.title=1</script>' WHERE USERID = 9");
  raw.Execute("UPDATE QRUSER SET NAME = '=cmd|calc', FULLNAME = '\"a\";b' WHERE USERID = 10");
  raw.Execute(
      "UPDATE QRGROUP SET NAME = '</li><img src=x onerror=document.title=2>&amp;' "
      "WHERE GROUPID = 6");
  raw.Execute("UPDATE QRPERM SET NAME = '\" onload=\"document.title=3' WHERE PERMID = 14");
  raw.Execute("UPDATE QRPERM SET NAME = '@SUM(A1)' WHERE PERMID = 20");
  raw.Execute(
      "UPDATE QRUSER SET NAME = '\xE2\x80\xAEnimdA', FULLNAME = '\xF0\x9F\x98\x80' "
      "WHERE USERID = 11");
  Run([this](frmUserGroupPerm& window) {
    Export(window);
    const std::vector<Cells> table = Table();
    for (const Cells& row : table) {
      ASSERT_EQ(row.size(), 5u);
      for (const std::string& cell : row) {
        EXPECT_EQ(cell.find_first_of("=+-@\t\r"), cell.find_first_of("=+-@\t\r", 1)) << cell;
      }
    }
    EXPECT_TRUE(std::ranges::any_of(
        table, [](const Cells& row) { return row[0] == "'=cmd|calc" && row[1] == "\"a\";b"; }));
    fileName = "rights.html";
    Export(window);
  });
  const std::string page = Content(File());
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>"));
  EXPECT_TRUE(page.ends_with("</html>\n"));
  for (const char* broken : {"<script", "<img", "\" onload"}) {
    EXPECT_EQ(page.find(broken), std::string::npos) << broken;
  }
  EXPECT_NE(page.find("&lt;script&gt;document.title=1&lt;/script&gt;"), std::string::npos);
  if (const char* kept = std::getenv(kPageVariable)) {
    std::filesystem::copy_file(File(), kept, std::filesystem::copy_options::overwrite_existing);
  }
}

TEST(CsvCell, WhatASpreadsheetWouldCalculateHasAnApostropheBeforeIt) {
  for (const wchar_t* text : {L"=1+1", L"+1", L"-1", L"@A", L"\t=1", L"\r=1", L"\n=1", L" =1",
                              L"\xFF1D"
                              L"1"}) {
    const std::string cell = CsvCell(text);
    EXPECT_TRUE(cell.starts_with("'") || cell.starts_with("\"'")) << cell;
  }
  EXPECT_EQ(CsvCell(L"a=1"), "a=1");
  EXPECT_EQ(CsvCell(L""), "");
  EXPECT_EQ(CsvCell(L"a;\"b\""), "\"a;\"\"b\"\"\"");
}

TEST(HtmlText, NothingOfATextIsTakenForATag) {
  EXPECT_EQ(HtmlText(L"<a href='x'>\"&\x01\n"),
            "&lt;a href=&#39;x&#39;&gt;&quot;&amp;\xEF\xBF\xBD"
            "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace browser
