// The box above the tree, which filters the tree's accounts.

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "browser/pages/AccountPage.h"
#include "controls/Desktop.h"
#include "data/Text.h"

namespace browser {

using controls::NodeId;

// What the status line says of the last command gives way to what is found.
void AccountPage::txtFind_Change() {
  data::TextFilter filter(txtFind.Text());
  if (filter == filter_) return;
  filter_ = std::move(filter);
  controls::TreeFilterRule rule;
  if (!filter_.IsEmpty()) {
    rule.Fold = data::FoldedText;
    rule.Matches = [this](std::string_view folded) { return filter_.Matches(folded); };
  }
  TreeView1.SetFilter(std::move(rule));
  host_.ShowDone({});
}

std::wstring AccountPage::FoundText() const {
  if (!TreeView1.IsFiltered()) return {};
  return app::FillIn(
      Global().LoadResString(app::kShownOf),
      {data::GroupedDecimal(TreeView1.MatchCount()), data::GroupedDecimal(accountCount)});
}

bool AccountPage::FindKeyDown(int keyCode) {
  const bool inBox = txtFind.HasFocus();
  if (keyCode == controls::kKeyControl + 'F') {
    txtFind.SetFocus();
    txtFind.SetSelStart(0);
    txtFind.SetSelLength(static_cast<int>(txtFind.Text().size()));
    return true;
  }
  if (keyCode == controls::kKeyEscape) return (inBox || TreeView1.HasFocus()) && EndFind();
  if (!inBox || (keyCode != controls::kKeyDown && keyCode != controls::kKeyReturn)) return false;
  GoToFirstFound();
  return true;
}

void AccountPage::GoToFirstFound() {
  if (!TreeView1.IsFiltered()) return TreeView1.SetFocus();
  const NodeId first = TreeView1.FirstMatch();
  if (first == controls::kNoNode) return Global().desktop.Beep();
  ShowNode(first);
}

// From an empty box the key leads back to the tree.
bool AccountPage::EndFind() {
  if (txtFind.Text().empty()) {
    if (!txtFind.HasFocus()) return false;
    TreeView1.SetFocus();
    return true;
  }
  txtFind.SetText({});
  return true;
}

}  // namespace browser
