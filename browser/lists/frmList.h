#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/mGlobal.h"
#include "browser/evidence/TableFile.h"
#include "browser/lists/ListSource.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/Label.h"
#include "controls/ListView.h"
#include "controls/TextBox.h"

namespace browser {

// A list to search, sort, copy from and save: who has a permission, the members of a group, two
// users side by side, the journal. Shown modally; what the user has chosen in it is asked for
// afterwards.
//
// What is typed in the box narrows the list to the rows that have every word of it in one of their
// texts (see data/TextFilter). Enter, or a double click, chooses the row that has the list's focus,
// else the first one on view. Ctrl+F goes to the box, the arrow down from there to the list, and
// Ctrl with a digit sorts by the column of that number, as a click on its heading does. Ctrl+S
// saves what is on view, in its order, as a table or a page.
class frmList : public controls::Form {
 public:
  frmList(const app::mGlobal& global, ListSource source);

  void Form_Load() override;
  void Form_KeyDown(int keyCode) override;
  void Form_KeyUp(int keyCode) override;

  // The account of the row that was chosen; nothing where the window was just closed.
  std::optional<Account> chosen;

  // In the order of the Tab key.
  controls::Label lblList;
  controls::TextBox txtFilter;
  controls::Label lblCount;
  controls::ListView List1;
  controls::Label lblNotice;
  controls::CommandButton cmdSave;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 private:
  void SettingControls();
  void SetAnchors();
  void SetEvents();
  void FillList();
  void txtFilter_Change();
  void cmdSave_Click();
  void cmdOK_Click();
  void Command1_Click();
  std::wstring CountText() const;
  void ShowCount();
  ShownTable OnView() const;
  void ShowAction();
  const std::optional<Account>& AccountAtHand() const;
  std::wstring Text(int id) const { return global_.LoadResString(id); }

  const app::mGlobal& global_;
  const ListSource source_;
  std::vector<std::string> folded_;  // the texts of each row, made when something is first typed
};

}  // namespace browser
