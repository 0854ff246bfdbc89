#pragma once

#include "app/MShowHelp.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "dialogs/Exchange.h"

namespace dialogs {

// What the modal dialogs have in common: OK, Cancel and help, and the question before changes are
// thrown away. A dialog declares its buttons itself, at their place in the tab order, and hands
// them over in its load.
class EditingDialog : public controls::Form {
 public:
  EditingDialog(Exchange& exchange, int templateId)
      : Form(exchange.global.desktop, templateId), exchange_(exchange) {}

  // Asks when something has changed; any answer but Yes keeps the dialog.
  void Form_Unload(bool& cancel) override;
  void Form_KeyUp(int keyCode) override;

 protected:
  virtual app::HelpTopic Topic() const = 0;
  virtual void cmdOK_Click() = 0;
  // With changes, asks first; then hands back that nothing was written, and closes.
  virtual void cmdCancel_Click();

  // Gives the three buttons their captions and their work.
  void SetDialogButtons(controls::CommandButton& ok, controls::CommandButton& cancel,
                        controls::CommandButton& help);
  // Unloads the dialog without the question.
  void Close();

  Exchange& exchange_;
  bool bChanged = false;

 private:
  bool AskDiscardChanges() const;
};

}  // namespace dialogs
