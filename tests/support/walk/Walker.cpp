#include "tests/support/walk/Walker.h"

#include "controls/Desktop.h"
#include "data/Text.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"

namespace test_support {
namespace {

// How the question begins whether to lose one's own right to the program.
constexpr const wchar_t* kOwnAccess = L"Après cette modification, votre propre compte";

}  // namespace

Walker::Walker(browser::frmUserGroupPerm& window, User& user, CallLog& log, RawDatabase& raw,
               std::uint32_t seed)
    : walk_(window, user, log, raw, seed),
      actor_(user, walk_.dice, [this](const std::string& step) { walk_.Note(step); }),
      expected_(window.accounts),
      run_(walk_, expected_, actor_),
      lists_(walk_, expected_),
      checks_(walk_, expected_),
      actions_(walk_, expected_, run_, lists_, checks_) {
  SystemAnswers& answers = user.System().answers;
  answers.MsgBox = [this](const std::wstring& prompt, int style, const std::wstring&) {
    return AnswerBox(prompt, style);
  };
  answers.ModalShown = [this](controls::Form& form) { UseDialog(form); };
  answers.AskSaveFile = [this](const std::wstring&, const std::vector<controls::FileKind>&) {
    return std::optional(walk_.ExportedFile().wstring());
  };
  expected_.Refreshed(ReadTables(raw));
  run_.Begin();
  checks_.AfterStep();
}

Walker::~Walker() {
  SystemAnswers& answers = walk_.user.System().answers;
  answers.MsgBox = nullptr;
  answers.ModalShown = nullptr;
  answers.PopupMenu = nullptr;
  answers.AskSaveFile = nullptr;
}

void Walker::UseDialog(controls::Form& form) {
  if (auto* list = dynamic_cast<browser::frmList*>(&form)) return lists_.Use(*list);
  if (!run_.HasDialog()) {
    run_.DialogShown();
    DeleteMeanwhile(form);
  }
  actor_.Act(form);
}

// Now and then somebody else deletes an account while its dialog is open, unless it is protected.
void Walker::DeleteMeanwhile(const controls::Form& form) {
  const bool isUser = dynamic_cast<const dialogs::frmEditUser*>(&form) != nullptr;
  if (!isUser && dynamic_cast<const dialogs::frmEditGroup*>(&form) == nullptr) return;
  const std::int32_t account = run_.At().account;
  if (account <= 2 || !walk_.dice.OneIn(10)) return;
  const std::string id = std::to_string(account);
  walk_.Note("  somebody else deletes " + id);
  walk_.ChangeFromOutside(isUser ? "UPDATE QRUSER SET VFLG = 'D' WHERE USERID = " + id
                                 : "UPDATE QRGROUP SET VFLG = 'D' WHERE GROUPID = " + id);
  expected_.isChangedOutside = true;
  run_.ReadDatabase();
}

// The commands' own questions have the stop icon; the question before changes are thrown away has
// another.
int Walker::AnswerBox(const std::wstring& prompt, int style) {
  const bool asks = (style & controls::kYesNo) != 0;
  const bool yes = actor_.Insists() || !walk_.dice.OneIn(3);
  walk_.Note("  box \"" + data::ToUtf8(prompt) + "\"" + (asks ? yes ? ": Yes" : ": No" : ""));
  if (prompt.find(L" Error [") != std::wstring::npos) run_.Reported(prompt);
  if (prompt.starts_with(L"Un autre administrateur")) run_.ToldOfAnother();
  if (!asks) return controls::kResultOk;
  if (prompt.starts_with(kOwnAccess)) run_.AnsweredOwnAccess(yes);
  if ((style & controls::kExclamation) == controls::kCritical) run_.Answered(yes);
  return yes ? controls::kResultYes : controls::kResultNo;
}

}  // namespace test_support
