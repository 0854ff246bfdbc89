// The ceiling of what the program counts.

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

constexpr int kMostUsers = 32767;

class ManyUsers : public ProgramTest {
 protected:
  // A session on the sample, with users added until there are this many.
  std::wstring SessionWithUsers(int users) {
    const std::wstring session = SampleSession();
    Database database = Box().Database();
    const int missing = users - database.Number(L"SELECT COUNT(*) FROM QRUSERV");
    database.Run(L"WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < " +
                 std::to_wstring(missing) +
                 L") INSERT INTO QRUSER (USERID, NAME) SELECT 100000 + I, 'u' || I FROM N");
    return session;
  }
};

TEST_F(ManyUsers, AsManyAsCanBeCountedAreShown) {
  const MainWindow window = Open(SessionWithUsers(kMostUsers));
  EXPECT_EQ(1 + kMostUsers, window.Tree(kUsersTab).Count());
  EXPECT_TRUE(window.Status().starts_with(std::to_wstring(kMostUsers) + L" "));
}

TEST_F(ManyUsers, OneMoreOverflowsAndIsReported) {
  Start(SessionWithUsers(kMostUsers + 1));
  ExpectReport(Report(L"UserNode", 6, String(app::kErrorTexts + 6)));
  ExpectExit(1);
}

}  // namespace
}  // namespace program
