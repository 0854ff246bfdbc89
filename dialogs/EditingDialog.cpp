#include "dialogs/EditingDialog.h"

#include "app/LocaleFont.h"
#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "controls/MsgBox.h"
#include "data/RunTimeError.h"
#include "resources/ResourceIds.h"

namespace dialogs {

void EditingDialog::Form_Load() {
  const app::Outcome loaded = Reported(L"Form Load", [this] { return LoadDialog(); });
  bChanged = false;
  if (loaded == app::Outcome::kDone) return;
  exchange_.AddNode = false;
  Close();
}

void EditingDialog::SetUpWindow(const std::wstring& caption, controls::CommandButton& ok,
                                controls::CommandButton& cancel, controls::CommandButton& help) {
  app::SetLocaleFont(*this);
  SetCaption(caption);
  SetIcon(IDI_PROGRAM);
  SetResizable(true);
  // Its help topic is what a dialog is known by for good.
  KeepPlace(L"Dialog" + std::to_wstring(Topic()), Kept::kSize);
  ok.SetCaption(Text(app::kOk));
  cancel.SetCaption(Text(app::kCancel));
  help.SetCaption(Text(app::kHelp));
  for (controls::CommandButton* button : {&ok, &cancel, &help}) {
    button->SetAnchors(controls::kAnchorRight | controls::kAnchorBottom);
  }
  ok.Click = [this] { cmdOK_Click(); };
  cancel.Click = [this] { cmdCancel_Click(); };
  help.Click = [this] { app::MShowHelp(exchange_.global, *this, Topic()); };
  SetDefaultButton(ok);
  SetCancelButton(cancel);
}

app::Outcome EditingDialog::List1AddItem(controls::ListBox& list, std::wstring_view statement,
                                         const TextOfRow& textOf) {
  return Reported(L"List1AddItem", [&] { FillList(list, Connection(), statement, textOf); });
}

void EditingDialog::CheckAllReported(const wchar_t* procedure, controls::ListBox& list,
                                     bool checked) {
  static_cast<void>(Reported(procedure, [&] { CheckAll(list, checked); }));
}

void EditingDialog::EnableButton(controls::CommandButton& button, bool enabled,
                                 controls::ListBox& list) {
  if (!enabled && button.HasFocus()) list.SetFocus();
  button.SetEnabled(enabled);
}

app::Outcome EditingDialog::WriteRow(const wchar_t* procedure,
                                     const std::function<bool()>& change) {
  return Reported(procedure, [&] {
    exchange_.accountGone = false;
    try {
      exchange_.accountGone = !change();
    } catch (const data::RunTimeError& error) {
      exchange_.accountGone = error.Number() == data::kRowGone;
      throw;
    }
    return exchange_.accountGone ? app::Outcome::kFailed : app::Outcome::kDone;
  });
}

bool EditingDialog::AskDiscardChanges() const {
  return app::MQVXMsgBox(exchange_.global).AskDiscardChanges() == controls::kResultYes;
}

void EditingDialog::cmdCancel_Click() {
  if (bChanged && !AskDiscardChanges()) return;
  exchange_.AddNode = false;
  Close();
}

void EditingDialog::Close() {
  bChanged = false;
  Unload();
}

void EditingDialog::Form_Unload(bool& cancel) {
  if (!bChanged) return;
  if (AskDiscardChanges()) {
    exchange_.AddNode = false;
    bChanged = false;
  } else {
    cancel = true;
  }
}

std::wstring EditingDialog::UnsavedChanges() const {
  return bChanged ? Text(app::kUnsavedChanges) : std::wstring();
}

void EditingDialog::Form_KeyUp(int keyCode) {
  if (keyCode == controls::kKeyF1) app::MShowHelp(exchange_.global, *this, Topic());
}

}  // namespace dialogs
