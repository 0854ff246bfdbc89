#pragma once

#include "app/mGlobal.h"
#include "browser/rules/Account.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/ImageList.h"
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "controls/TreeView.h"

namespace browser {

// The buttons of a section by their Index.
enum AccountButton : int { kEditButton, kDeleteButton, kNewButton };
enum LinkButton : int { kAssignButton, kRemoveButton };

// A tab, the numbers of its controls in the window's template, and of their texts in the string
// table.
struct PageLayout {
  Tab tab;
  int txtFind;
  int lblTree;
  int TreeView1;
  int fraAccount;
  int cmdAccount;  // of the first button of the section, the others follow it
  int fraFirst;
  int cmdFirst;
  int fraSecond;
  int cmdSecond;
  int treeName;
  int accountCaption;  // of the frame, and of the tree's root
  int firstCaption;
  int secondCaption;
  int created;  // what has been done to an account, %1
  int changed;
  int deleted;
};

// The controls of one tab: a tree with its label and, above it, the box that searches it, and three
// sections of buttons, for accounts and for their first and second links (see ButtonRule).
class PageView {
 public:
  PageView(const PageView&) = delete;
  PageView& operator=(const PageView&) = delete;

  // To be called in the load of the form: captions, and who follows whom when the form is resized
  // or a section is hidden. All buttons are off then.
  void SetControls(const app::mGlobal& global, const controls::ImageList& images);

  // Shows the tab's tree and its box, or hides the whole tab; the sections are shown by a call of
  // their own, so that the focus of a tab that goes has not gone to them.
  void ShowTree();
  void ShowSections();
  void Hide();

  controls::TextBox txtFind;
  controls::Label lblTree;  // never on view: it names the tree for screen readers
  controls::TreeView TreeView1;
  controls::Frame fraAccount;
  controls::CommandButton cmdAccount[3];  // AccountButton
  controls::Frame fraFirst;
  controls::CommandButton cmdFirst[2];  // LinkButton
  controls::Frame fraSecond;
  controls::CommandButton cmdSecond[2];  // LinkButton

 protected:
  PageView(controls::Form& form, const PageLayout& layout);
  ~PageView() = default;

  const PageLayout layout_;

 private:
  void SetCaptions(const app::mGlobal& global);
  void SetSections();
};

}  // namespace browser
