// A session whose user may not administer users.

#include "data/Text.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class Refusal : public ProgramTest {
 protected:
  // A session whose rights are all those of this mask and no others.
  std::wstring SessionWithRights(int mask) {
    const std::wstring session = SampleSession();
    Database database = Box().Database();
    database.Run(L"UPDATE QRPERM SET RIGHTS = 0");
    database.Run(L"INSERT INTO QRPERM (PERMID, NAME, RIGHTS) VALUES (9001, 'Essai', " +
                 std::to_wstring(mask) + L")");
    database.Run(L"INSERT INTO QRUPRM SELECT USERID, 9001 FROM QRUSER WHERE NAME = 'Admin'");
    return session;
  }
};

TEST_F(Refusal, RightsOfThreeAreRefusedWordForWord) {
  const std::wstring session = SessionWithRights(3);
  const std::wstring before = Box().Database().Contents();
  const driver::Process& process = Start(session);
  const driver::PromptBox box = driver::AwaitPrompt(process.Id());
  EXPECT_EQ(L"Admin Utilisateurs", box.Title());
  EXPECT_EQ(data::ToUtf8(L"Permission Admin Utilisateurs requise pour modifier,\r\n"
                         L"créer ou supprimer une permission de groupe ou d'utilisateur."),
            data::ToUtf8(box.Text()));
  EXPECT_EQ(std::vector<int>{IDOK}, box.Buttons());
  EXPECT_TRUE(box.HasIcon());
  EXPECT_FALSE(FindMainWindow(process.Id())) << "there is nothing to see behind the refusal";
  box.Answer(IDOK);
  ExpectExit(0);
  EXPECT_EQ(before, Box().Database().Contents());
}

TEST_F(Refusal, RightsOfFourPass) {
  const MainWindow window = Open(SessionWithRights(4));
  EXPECT_GT(window.Tree(kUsersTab).Count(), 1);
}

TEST_F(Refusal, RightsOfSevenPass) {
  const MainWindow window = Open(SessionWithRights(7));
  EXPECT_GT(window.Tree(kUsersTab).Count(), 1);
}

}  // namespace
}  // namespace program
