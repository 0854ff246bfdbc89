#include "tests/browser/FaultRun.h"

#include "data/Text.h"
#include "tests/support/keys/Keys.h"

namespace browser {

void FaultRun::AnswerAll(const FaultCase& test) {
  reports_.clear();
  desktop.system.answers.MsgBox = [this](const std::wstring& prompt, int style,
                                         const std::wstring&) {
    if (prompt.find(L" Error [") != std::wstring::npos) reports_.push_back(prompt);
    EXPECT_FALSE(IsReading()) << "others wait for " << data::ToUtf8(prompt);
    return (style & controls::kYesNo) != 0 ? controls::kResultYes : controls::kResultOk;
  };
  desktop.system.answers.ModalShown = [this, &test](controls::Form& form) {
    if (reports_.empty()) test.Fill(user, form);
    if (form.IsLoaded()) user.PressKey(form, test_support::kKeyEscape);
  };
}

void FaultRun::StopAnswering() {
  desktop.system.answers.MsgBox = nullptr;
  desktop.system.answers.ModalShown = nullptr;
  log.FailAt = {};
  log.FailInside = {};
}

void FaultRun::Give(frmUserGroupPerm& window, const FaultCase& test, const FailAt& failAt) {
  AnswerAll(test);
  window.exchange.AddNode = false;
  log.FailAt = [&](const std::wstring& call) { return failAt(call, false); };
  log.FailInside = [&](const std::wstring& call) { return failAt(call, true); };
  if (test.button != nullptr) {
    user.Click(*test.button(window));
  } else {
    user.PressCtrl(window, test.letter);
  }
  StopAnswering();
}

test_support::Tables FaultRun::Stored(test_support::RawDatabase& raw) {
  test_support::Tables tables = test_support::ReadTables(raw);
  for (auto& [id, record] : tables.users) record.password = record.password.empty() ? L"" : L"*";
  return tables;
}

}  // namespace browser
