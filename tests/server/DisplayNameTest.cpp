#include "ServerTest.h"

namespace server_test {
namespace {

using DisplayName = OnSample;

TEST_F(DisplayName, OfABuiltInGroupIsFrenchAndBack) {
  EXPECT_EQ(server_->GetDisplayName(L"Everyone", 104), L"Tout le monde");
  EXPECT_EQ(server_->GetDisplayName(L"Administrators", 104), L"Administrateurs");
  EXPECT_EQ(server_->GetDisplayName(L"Tout le monde", 114), L"Everyone");
  EXPECT_EQ(server_->GetDisplayName(L"Administrateurs", 114), L"Administrators");
}

TEST_F(DisplayName, OfADescriptionIsFrenchAndBack) {
  EXPECT_EQ(server_->GetDisplayName(L"All users", 105), L"Tous les utilisateurs");
  EXPECT_EQ(server_->GetDisplayName(L"Tous les utilisateurs", 0), L"All users");
}

TEST_F(DisplayName, OfAPermissionIsFrench) {
  EXPECT_EQ(server_->GetDisplayName(L"User administration", 101),
            L"Administration des utilisateurs");
}

TEST_F(DisplayName, OfAnythingElseIsTheTextItself) {
  EXPECT_EQ(server_->GetDisplayName(L"Qualité", 104), L"Qualité");
  EXPECT_EQ(server_->GetDisplayName(L"everyone", 104), L"everyone");
  EXPECT_EQ(server_->GetDisplayName(L"Everyone", 101), L"Everyone");
  EXPECT_EQ(server_->GetDisplayName(L"Everyone", 4711), L"Everyone");
  EXPECT_EQ(server_->GetDisplayName(L"", 104), L"");
}

TEST_F(DisplayName, FollowsTheTableWithTheNextReading) {
  EXPECT_EQ(server_->GetDisplayName(L"Qualité", 104), L"Qualité");
  sample_.Raw().Execute("insert into qrdisplay values (104, 'Qualité', 'Contrôle qualité')");
  EXPECT_EQ(server_->GetDisplayName(L"Qualité", 104), L"Qualité");
  connection_->BeginRead();
  EXPECT_EQ(server_->GetDisplayName(L"Qualité", 104), L"Contrôle qualité");
  connection_->EndRead();
  EXPECT_EQ(server_->GetDisplayName(L"Qualité", 104), L"Contrôle qualité");
}

}  // namespace
}  // namespace server_test
