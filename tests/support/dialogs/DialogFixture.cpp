#include "tests/support/dialogs/DialogFixture.h"

#include "controls/MsgBox.h"

namespace test_support {

void DialogFixture::Start(std::wstring_view userName) {
  Stop();
  user.SetCommandLine(Database().CommandLine(userName));
  window.Show();
  ASSERT_TRUE(window.isStarted);
  exchange.adminUserId = window.accounts.adminUserId;
  ClearLog();
}

void DialogFixture::Stop() {
  FailNothing();
  window.Unload();
}

void DialogFixture::Toggle(controls::ListBox& list, std::wstring_view item, Where where) {
  user.Toggle(list, ItemOf(list, item), where);
}

void DialogFixture::Choose(controls::ListBox& list, std::wstring_view item, Where where) {
  user.Choose(list, ItemOf(list, item), where);
}

Ids DialogFixture::IdsIn(const std::string& sql) {
  Ids ids;
  for (const auto& row : Raw().Rows(sql)) ids.push_back(std::stoi(row[0]));
  return ids;
}

void DialogFixture::ClearLog() {
  log.serverCalls.clear();
  log.statements.clear();
  log.calls.clear();
}

void DialogFixture::FailAtPosition(std::size_t position) {
  failedCall_.clear();
  log.FailAt = [this, left = position](const std::wstring& call) mutable {
    if (left-- != 0) return 0L;
    failedCall_ = call;
    return kInjected;
  };
}

void DialogFixture::FailAt(const std::wstring& call) {
  failedCall_.clear();
  log.FailAt = [this, call](const std::wstring& current) {
    if (current != call) return 0L;
    failedCall_ = current;
    return kInjected;
  };
}

void DialogFixture::FailAtRowStep(std::size_t position) {
  failedCall_.clear();
  rowSteps_ = 0;
  log.FailInside = [this, position](const std::wstring& step) {
    if (rowSteps_++ != position) return 0L;
    failedCall_ = step;
    return kInjected;
  };
}

void DialogFixture::FailNothing() {
  log.FailAt = {};
  log.FailInside = {};
}

void DialogFixture::ExpectReport(const std::wstring& procedure, const std::wstring& call,
                                 Where where) {
  ExpectedBox box{.answer = controls::kResultOk,
                  .style = controls::kExclamation,
                  .title = L"Admin Utilisateurs"};
  if (!call.empty()) box.prompt = procedure + L" Error [1234]\r\ninjected: " + call;
  user.ExpectMsgBox(std::move(box), where);
}

std::wstring DialogFixture::ReportOf(const std::wstring& procedure) const {
  return procedure + L" Error [1234]\r\ninjected: " + failedCall_;
}

void DialogFixture::ExpectInformation(const std::wstring& prompt, Where where) {
  user.ExpectMsgBox({.answer = controls::kResultOk,
                     .prompt = prompt,
                     .style = controls::kInformation,
                     .title = L"Admin Utilisateurs"},
                    where);
}

void DialogFixture::ExpectDiscardQuestion(int answer, Where where) {
  user.ExpectMsgBox(
      {.answer = answer,
       .prompt = L"Vos modifications ne seront pas prises en compte dans le syst\x00E8me.\r\n"
                 L"Souhaitez-vous poursuivre ?",
       .style = controls::kYesNo | controls::kExclamation | controls::kDefaultButton2,
       .title = L"Admin Utilisateurs"},
      where);
}

}  // namespace test_support
