#include "app/MQVXMsgBox.h"

#include <gtest/gtest.h>

#include "controls/Desktop.h"
#include "data/Text.h"
#include "tests/support/controls/User.h"

namespace app {
namespace {

using data::FromUtf8;

class MessageBoxes : public ::testing::Test {
 protected:
  void Expect(const char* prompt, int style, int answer = controls::kResultOk) {
    user.ExpectMsgBox({.answer = answer,
                       .prompt = FromUtf8(prompt),
                       .style = style,
                       .title = L"Admin Utilisateurs"});
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  mGlobal global{desktop};
  MQVXMsgBox boxes{global};
};

TEST_F(MessageBoxes, DiscardingChangesIsAskedWithNoAsTheDefault) {
  const int style = controls::kYesNo | controls::kExclamation | controls::kDefaultButton2;
  Expect(
      "Vos modifications ne seront pas prises en compte dans le système.\r\n"
      "Souhaitez-vous poursuivre ?",
      style, controls::kResultYes);
  EXPECT_EQ(boxes.AskDiscardChanges(), 6);
}

TEST_F(MessageBoxes, AQuestionIsAskedWithTheStopIconAndNoAsTheDefault) {
  const int style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2;
  Expect("Souhaitez-vous supprimer ce groupe ?", style, controls::kResultNo);
  EXPECT_EQ(boxes.AskYesNo(L"Souhaitez-vous supprimer ce groupe ?"), 7);
}

TEST_F(MessageBoxes, PasswordsAreRefusedInTheWordsOfTheProduct) {
  Expect("Mot de passe différent du mot de passe confirmé.\r\nVeuillez les ressaisir.",
         controls::kInformation);
  EXPECT_EQ(boxes.ShowPasswordMismatch(), 1);
  Expect("Me mot de passe doit comporter moins de 20 caractères.", controls::kInformation);
  EXPECT_EQ(boxes.ShowPasswordTooLong(), 1);
  Expect("Le mot de passe doit comporter plus de 6 caractères.", controls::kInformation);
  EXPECT_EQ(boxes.ShowPasswordTooShort(), 1);
}

TEST_F(MessageBoxes, InformationAndNoticesShowWhatTheyAreGiven) {
  Expect("un\r\ndeux", controls::kInformation);
  EXPECT_EQ(boxes.ShowInformation(L"un\r\ndeux"), 1);
  Expect("trois", controls::kInformation);
  EXPECT_EQ(boxes.ShowNotice(L"trois"), 1);
}

TEST_F(MessageBoxes, TheRefusalsKeepTheirWordOrder) {
  Expect("Impossible de supprimer 'Admin' l'utilisateur.", controls::kInformation);
  boxes.ShowCannotDeleteUser(L"Admin");
  Expect("Impossible de supprimer l'utilisateur de 'Everyone' le groupe.", controls::kInformation);
  boxes.ShowCannotRemoveUserFromGroup(L"Everyone");
}

TEST_F(MessageBoxes, AQuoteInANameIsShownAsItIs) {
  Expect("Impossible de supprimer 'D'Angelo' l'utilisateur.", controls::kInformation);
  boxes.ShowCannotDeleteUser(L"D'Angelo");
}

TEST_F(MessageBoxes, ABoxDoesNotRememberTheOneBefore) {
  Expect("un", controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
         controls::kResultNo);
  boxes.AskYesNo(L"un");
  Expect("deux", controls::kInformation);
  boxes.ShowNotice(L"deux");
}

}  // namespace
}  // namespace app
