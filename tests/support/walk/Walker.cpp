#include "tests/support/walk/Walker.h"

#include <gtest/gtest.h>

#include <utility>

#include "controls/Desktop.h"
#include "data/Text.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"

namespace test_support {

Walker::Walker(browser::frmUserGroupPerm& window, User& user, CallLog& log,
               test_support::RawDatabase& raw, std::uint32_t seed)
    : window_(window),
      user_(user),
      log_(log),
      raw_(raw),
      dice_(seed),
      actor_(user, dice_, [this](const std::string& step) { Note(step); }),
      wanted_(window.accounts) {
  controls::StandIns& instead = window_.OwnerDesktop().Instead;
  instead.MsgBox = [this](const std::wstring& prompt, int style, const std::wstring&) {
    return AnswerBox(prompt, style);
  };
  instead.ModalShown = [this](controls::Form& form) {
    if (!std::exchange(dialog_, true)) DeleteBehind(form);
    actor_.Act(form);
  };
  before_ = ReadTables(raw_);
  wanted_.Refresh(before_);
  Check(false);
}

Walker::~Walker() {
  controls::StandIns& instead = window_.OwnerDesktop().Instead;
  instead.MsgBox = nullptr;
  instead.ModalShown = nullptr;
  instead.PopupMenu = nullptr;
}

// Now and then somebody else deletes an account while its dialog is open, unless it is protected.
void Walker::DeleteBehind(const controls::Form& form) {
  const bool isUser = dynamic_cast<const dialogs::frmEditUser*>(&form) != nullptr;
  if (!isUser && dynamic_cast<const dialogs::frmEditGroup*>(&form) == nullptr) return;
  const std::string id = std::to_string(target_.account);
  if (target_.account <= 2 || !dice_.OneIn(10)) return;
  Note("  somebody else deletes " + id);
  raw_.Execute(isUser ? "UPDATE QRUSER SET VFLG = 'D' WHERE USERID = " + id
                      : "UPDATE QRGROUP SET VFLG = 'D' WHERE GROUPID = " + id);
  foreign_ = true;
  before_ = ReadTables(raw_);
}

// The commands' own questions have the stop icon; the question before changes are thrown away has
// another.
int Walker::AnswerBox(const std::wstring& prompt, int style) {
  const bool asks = (style & controls::kYesNo) != 0;
  const bool yes = actor_.Insists() || !dice_.OneIn(3);
  Note("  box \"" + data::ToUtf8(prompt) + "\"" + (asks ? yes ? ": Yes" : ": No" : ""));
  if (prompt.find(L" Error [") != std::wstring::npos) {
    reported_ = true;
    // Only a name that breaks the statement may fail.
    const Tables::Accounts& accounts = target_.tree == 0 ? before_.users : before_.groups;
    EXPECT_TRUE(prompt.starts_with(L"DeleteRecord Error ["));
    EXPECT_NE(accounts.at(target_.account).name.find(L'\''), std::wstring::npos);
  }
  if (prompt.starts_with(L"Un autre administrateur")) told_ = true;
  if (!asks) return controls::kResultOk;
  if ((style & controls::kExclamation) == controls::kCritical) confirmed_ = yes;
  return yes ? controls::kResultYes : controls::kResultNo;
}

std::wstring Walker::SelectedKey(int tree) const {
  const int node = window_.TreeView1[tree].SelectedNode();
  return node == controls::kNoNode ? std::wstring() : NodesOf(tree).Key(node);
}

std::set<std::wstring> Walker::OpenKeys(int tree) const {
  std::set<std::wstring> keys;
  const Nodes& nodes = NodesOf(tree);
  for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
    if (nodes.HasChildren(node) && nodes.Expanded(node)) keys.insert(nodes.Key(node));
  }
  return keys;
}

std::set<std::wstring> Walker::ClosedKeys(int tree) const {
  std::set<std::wstring> keys;
  const Nodes& nodes = NodesOf(tree);
  for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
    if (nodes.HasChildren(node) && !nodes.Expanded(node)) keys.insert(nodes.Key(node));
  }
  return keys;
}

}  // namespace test_support
