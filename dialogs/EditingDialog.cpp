#include "dialogs/EditingDialog.h"

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "controls/MsgBox.h"

namespace dialogs {

void EditingDialog::SetDialogButtons(controls::CommandButton& ok, controls::CommandButton& cancel,
                                     controls::CommandButton& help) {
  const app::mGlobal& global = exchange_.global;
  ok.SetCaption(global.LoadResString(app::kOk));
  cancel.SetCaption(global.LoadResString(app::kCancel));
  help.SetCaption(global.LoadResString(app::kHelp));
  ok.Click = [this] { cmdOK_Click(); };
  cancel.Click = [this] { cmdCancel_Click(); };
  help.Click = [this] { app::MShowHelp(exchange_.global, *this, Topic()); };
  SetDefaultButton(ok);
  SetCancelButton(cancel);
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

void EditingDialog::Form_KeyUp(int keyCode) {
  if (keyCode == controls::kKeyF1) app::MShowHelp(exchange_.global, *this, Topic());
}

}  // namespace dialogs
