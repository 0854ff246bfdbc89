#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/ListView.h"
#include "controls/TabStrip.h"
#include "controls/TextBox.h"
#include "controls/TreeView.h"
#include "tests/controls/TestFormIds.h"

namespace controls_test {

// A form whose procedures a test puts in.
class ScriptedForm : public controls::Form {
 public:
  using Form::Form;

  void Form_Load() override {
    if (OnLoad) OnLoad();
  }
  void Form_Unload(bool& cancel) override {
    if (OnUnload) OnUnload(cancel);
  }
  void Form_KeyDown(int keyCode) override {
    if (OnKeyDown) OnKeyDown(keyCode);
  }
  void Form_KeyUp(int keyCode) override {
    if (OnKeyUp) OnKeyUp(keyCode);
  }

  std::function<void()> OnLoad;
  std::function<void(bool& cancel)> OnUnload;
  std::function<void(int keyCode)> OnKeyDown;
  std::function<void(int keyCode)> OnKeyUp;
};

// One control of every kind, in tab order.
class TestForm : public ScriptedForm {
 public:
  explicit TestForm(controls::Desktop& desktop) : ScriptedForm(desktop, IDD_TEST_FORM) {}

  controls::Label label{*this, IDC_TEST_LABEL};
  controls::TextBox name{*this, IDC_TEST_NAME};
  controls::TextBox password{*this, IDC_TEST_PASSWORD, controls::TextBox::Masking::kMasked};
  controls::Frame frame{*this, IDC_TEST_FRAME};
  controls::TextBox framedBox{*this, IDC_TEST_FRAMED_BOX};
  controls::CommandButton framedButton{*this, IDC_TEST_FRAMED_BUTTON};
  controls::ListBox plainList{*this, IDC_TEST_PLAIN_LIST, controls::ListBox::Kind::kPlain};
  controls::ListBox multiList{*this, IDC_TEST_MULTI_LIST, controls::ListBox::Kind::kMultiSelect};
  controls::ListBox checkList{*this, IDC_TEST_CHECK_LIST, controls::ListBox::Kind::kChecked};
  controls::TabStrip tabs{*this, IDC_TEST_TABS};
  controls::TreeView tree{*this, IDC_TEST_TREE};
  controls::CommandButton ok{*this, IDC_TEST_OK};
  controls::CommandButton cancel{*this, IDC_TEST_CANCEL};
  controls::CommandButton more{*this, IDC_TEST_MORE};
};

// A dialog with two buttons.
class SmallForm : public ScriptedForm {
 public:
  explicit SmallForm(controls::Desktop& desktop) : ScriptedForm(desktop, IDD_SMALL_FORM) {}

  controls::CommandButton ok{*this, IDC_TEST_OK};
  controls::CommandButton cancel{*this, IDC_TEST_CANCEL};
};

// A box, a list view and a button.
class ListForm : public ScriptedForm {
 public:
  explicit ListForm(controls::Desktop& desktop) : ScriptedForm(desktop, IDD_LIST_FORM) {}

  controls::TextBox box{*this, IDC_TEST_NAME};
  controls::ListView list{*this, IDC_TEST_LIST_VIEW};
  controls::CommandButton ok{*this, IDC_TEST_OK};
};

}  // namespace controls_test
