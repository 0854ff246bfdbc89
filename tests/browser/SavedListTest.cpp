#include <fstream>
#include <iterator>

#include "browser/lists/frmList.h"
#include "tests/browser/CommandTest.h"
#include "tests/browser/FullDisk.h"

namespace browser {
namespace {

// What a list window writes to a file.
class SavedList : public CommandTest {
 protected:
  SavedList() {
    std::filesystem::create_directories(Folder());
    user.System().answers.AskSaveFile = [this](const std::wstring& name,
                                               const std::vector<controls::FileKind>& kinds) {
      EXPECT_TRUE(name.starts_with(L"Titre-20"));
      EXPECT_EQ(kinds.size(), 2u);
      return std::optional((Folder() / fileName).wstring());
    };
  }

  static ListSource Names() {
    ListSource source;
    source.title = L"Titre";
    source.heading = L"Groupe : <R&D>";
    source.columns = {{L"Nom", 1}, {L"Détail", 2}, {.caption = L"Jour", .sortedBy = 3}};
    source.rows = {{{L"Martin", L"=1+1", L"9", L"09"}},
                   {{L"Œuvrard", L"a;\"b\"", L"10", L"10"}},
                   {{L"Durand", L"<b>\x05D0</b>", L"11", L"11"}}};
    return source;
  }

  void Show(ListSource source, const std::function<void(frmList& list)>& script) {
    Run([&](frmUserGroupPerm& window) {
      frmList list(global, std::move(source));
      user.ExpectModal([&](controls::Form&) {
        script(list);
        EXPECT_TRUE(list.IsLoaded());
        user.PressKey(list, test_support::kKeyEscape);
      });
      list.ShowModal(window);
    });
  }

  std::filesystem::path Folder() { return Database().Home() / "saved"; }
  std::string Content() {
    std::ifstream file(Folder() / fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::size_t FilesLeft() {
    const std::filesystem::directory_iterator files(Folder());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }
  void ExpectReport(const std::wstring& text) {
    user.ExpectMsgBox({.answer = controls::kResultOk, .prompt = L"SaveList Error [75]\r\n" + text});
  }

  std::string fileName = "list.csv";
};

TEST_F(SavedList, IsATableOfWhatIsOnViewInItsOrder) {
  Show(Names(), [this](frmList& list) {
    user.Click(list.cmdSave);
    EXPECT_EQ(Content(),
              "\xEF\xBB\xBFNom;Détail;Jour\r\nMartin;\"'=1+1\";9\r\nŒuvrard;\"a;\"\"b\"\"\";10\r\n"
              "Durand;<b>\xD7\x90</b>;11\r\n");
    EXPECT_EQ(list.lblCount.Caption(), L"Enregistré : list.csv");
    user.PressCtrl(list, '3');
    user.PressCtrl(list, '3');
    user.Focus(list.txtFilter);
    user.Type(list.txtFilter, L"ar");
    EXPECT_EQ(list.lblCount.Caption(), L"2 sur 3");
    user.PressCtrl(list, 'S');
    EXPECT_EQ(
        Content(),
        "\xEF\xBB\xBFNom;Détail;Jour\r\nŒuvrard;\"a;\"\"b\"\"\";10\r\nMartin;\"'=1+1\";9\r\n");
  });
  EXPECT_EQ(FilesLeft(), 1u);
}

TEST_F(SavedList, IsAPageToReadWhereItsNameIsThatOfOne) {
  fileName = "list.HTM";
  ListSource source = Names();
  source.notice = L"Lu à <moitié>.";
  Show(source, [this](frmList& list) {
    list.txtFilter.SetText(L"d");
    user.PressCtrl(list, 'S');
  });
  const std::string page = Content();
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>"));
  EXPECT_TRUE(page.ends_with("</html>\n"));
  for (const char* part :
       {"<h1>Titre</h1>", "Groupe : &lt;R&amp;D&gt;", "Lu à &lt;moitié&gt;.", ">2 sur 3<", ">d<",
        "<th scope=\"col\">Jour</th>", "<td><bdi>Durand</bdi></td>",
        "<td><bdi>&lt;b&gt;\xD7\x90&lt;/b&gt;</bdi></td>"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(page.find("Martin"), std::string::npos);
}

TEST_F(SavedList, SaysInATableTooThatItIsNotComplete) {
  ListSource source = Names();
  source.notice = L"Lu à moitié.";
  source.rows.clear();
  Show(source, [this](frmList& list) { user.PressCtrl(list, 'S'); });
  EXPECT_EQ(Content(), "\xEF\xBB\xBF\"Lu à moitié.\"\r\nNom;Détail;Jour\r\n");
}

TEST_F(SavedList, IsNotSavedWhereTheUserThinksBetterOfIt) {
  user.System().answers.AskSaveFile = [](const auto&, const auto&) {
    return std::optional<std::wstring>();
  };
  Show(Names(), [this](frmList& list) {
    user.Click(list.cmdSave);
    EXPECT_EQ(list.lblCount.Caption(), L"3 sur 3");
  });
  EXPECT_EQ(FilesLeft(), 0u);
}

TEST_F(SavedList, ToAFolderThatIsGoneIsToldAndTheListStays) {
  Show(Names(), [this](frmList& list) {
    std::filesystem::remove_all(Folder());
    ExpectReport(L"Impossible d'écrire dans le dossier " + Folder().wstring() +
                 L" : il n'existe pas ou plus, ou vous n'avez pas le droit d'y écrire. Aucun "
                 L"fichier n'a été laissé.");
    user.Click(list.cmdSave);
    EXPECT_EQ(list.lblCount.Caption(), L"3 sur 3");
    std::filesystem::create_directories(Folder());
    user.Click(list.cmdSave);
    EXPECT_EQ(list.lblCount.Caption(), L"Enregistré : list.csv");
  });
}

TEST_F(SavedList, OverAFileThatAnotherProgramHoldsIsToldAndLeavesIt) {
#ifdef _WIN32
  std::ofstream(Folder() / fileName) << "of yesterday";
  const std::ifstream holder(Folder() / fileName);
#else
  // A folder of the name stands for it.
  std::filesystem::create_directories(Folder() / fileName / "held");
#endif
  Show(Names(), [this](frmList& list) {
    ExpectReport(L"Le fichier " + (Folder() / fileName).wstring() +
                 L" ne peut pas être remplacé : il est protégé ou ouvert dans un autre programme. "
                 L"Il est resté tel qu'il était.");
    user.Click(list.cmdSave);
  });
  EXPECT_EQ(FilesLeft(), 1u);
#ifdef _WIN32
  EXPECT_EQ(Content(), "of yesterday");
#endif
}

#ifndef _WIN32
TEST_F(SavedList, OnAFullDiskIsToldAndLeavesWhatWasThere) {
  const std::string before = "of yesterday";
  for (const char* name : {"list.csv", "list.html"}) {
    fileName = name;
    ListSource source = Names();
    for (int i = 0; i < 40'000; ++i) source.rows.push_back({{L"Nom " + std::to_wstring(i)}});
    std::uintmax_t whole = 0;
    Show(source, [&](frmList& list) {
      user.Click(list.cmdSave);
      whole = std::filesystem::file_size(Folder() / fileName);
      std::ofstream(Folder() / fileName) << before;
      // Nowhere, at the ends of what is written at once, and just before the end.
      for (const std::uintmax_t bytes : {std::uintmax_t{0}, std::uintmax_t{1}, std::uintmax_t{4095},
                                         std::uintmax_t{1} << 19, whole / 2, whole - 1}) {
        ExpectReport(L"Le disque du dossier " + Folder().wstring() +
                     L" est plein ou n'est plus accessible. Aucun fichier n'a été laissé.");
        const FullDisk disk(bytes);
        user.Click(list.cmdSave);
      }
    });
    EXPECT_GT(whole, 400'000u);
    EXPECT_EQ(Content(), before);
    std::filesystem::remove(Folder() / fileName);
    EXPECT_EQ(FilesLeft(), 0u);
  }
}
#endif

}  // namespace
}  // namespace browser
