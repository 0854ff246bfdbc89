#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "app/MShowHelp.h"
#include "app/Reported.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/ListBox.h"
#include "data/SessionServer.h"
#include "dialogs/Exchange.h"
#include "dialogs/ListItems.h"

namespace dialogs {

// What the modal dialogs have in common: loading, OK, Cancel and help, the question before changes
// are thrown away, and the filling and checking of lists. A dialog declares its controls itself, in
// their tab order, and hands its buttons over in its load.
class EditingDialog : public controls::Form {
 public:
  EditingDialog(Exchange& exchange, int templateId)
      : Form(exchange.global.desktop, templateId), exchange_(exchange) {}

  // A dialog that could not be loaded closes, so that nothing is saved from the middle of a load.
  void Form_Load() override;
  // Asks when something has changed; any answer but Yes keeps the dialog.
  void Form_Unload(bool& cancel) override;
  void Form_KeyUp(int keyCode) override;
  std::wstring UnsavedChanges() const override;

 protected:
  // Captions, events and contents of the dialog.
  virtual app::Outcome LoadDialog() = 0;
  virtual app::HelpTopic Topic() const = 0;
  virtual void cmdOK_Click() = 0;
  // With changes, asks first; then hands back that nothing was written, and closes.
  virtual void cmdCancel_Click();

  // Gives the window its font, caption and icon, and the three buttons captions, place and work.
  void SetUpWindow(const std::wstring& caption, controls::CommandButton& ok,
                   controls::CommandButton& cancel, controls::CommandButton& help);
  // Unloads the dialog without the question.
  void Close();

  // Makes the rows of a statement the list's items (see FillList).
  app::Outcome List1AddItem(controls::ListBox& list, std::wstring_view statement,
                            const TextOfRow& textOf);
  // Checks or unchecks all items. An error is reported under the procedure's name.
  void CheckAllReported(const wchar_t* procedure, controls::ListBox& list, bool checked);
  // Switches a button of a list on or off. One that is switched off under the focus hands it to the
  // list: the next button in the tab order may undo what was done, or save it.
  static void EnableButton(controls::CommandButton& button, bool enabled, controls::ListBox& list);

  // Runs the change of the account's own row, which answers whether there was one. Where there was
  // none any more, because somebody else was faster, the caller of the dialog learns it.
  app::Outcome WriteRow(const wchar_t* procedure, const std::function<bool()>& change);

  template <class Work>
  app::Outcome Reported(const wchar_t* procedure, Work&& work) const {
    return app::Reported(exchange_.global, procedure, std::forward<Work>(work));
  }
  // A text of the string table.
  std::wstring Text(int id) const { return exchange_.global.LoadResString(id); }
  data::Connection& Connection() const { return *exchange_.global.databaseConnection; }
  data::SessionServer& Server() const { return *exchange_.global.SessionServer; }

  Exchange& exchange_;
  bool bChanged = false;

 private:
  bool AskDiscardChanges() const;
};

}  // namespace dialogs
