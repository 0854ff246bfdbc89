#include "browser/lists/frmList.h"

#include <utility>

#include "app/LocaleFont.h"
#include "app/MShowHelp.h"
#include "app/StringIds.h"
#include "data/Text.h"
#include "data/TextFilter.h"
#include "resources/ResourceIds.h"

namespace browser {
namespace {

// No word has one in it: what is looked for is never found across two texts.
constexpr char kBetweenTexts = '\n';

std::string FoldedRow(const ListRow& row) {
  std::string folded;
  for (const std::wstring& text : row.texts) {
    data::AppendFoldedText(folded, text);
    folded += kBetweenTexts;
  }
  return folded;
}

}  // namespace

frmList::frmList(const app::mGlobal& global, ListSource source)
    : Form(global.desktop, IDD_LIST),
      lblList(*this, IDC_LBL_LIST),
      txtFilter(*this, IDC_TXT_FILTER),
      lblCount(*this, IDC_LBL_COUNT),
      List1(*this, IDC_LIST_ROWS),
      lblNotice(*this, IDC_LBL_NOTICE),
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON),
      global_(global),
      source_(std::move(source)) {}

void frmList::Form_Load() {
  chosen.reset();
  app::SetLocaleFont(*this);
  SettingControls();
  SetAnchors();
  SetEvents();
  FillList();
}

void frmList::SettingControls() {
  SetCaption(source_.title);
  SetIcon(IDI_PROGRAM);
  lblList.SetPlainCaption(source_.heading);
  lblNotice.SetPlainCaption(source_.notice);
  txtFilter.SetCue(Text(app::kFindCue));
  List1.SetAccessibleName(source_.heading);
  cmdOK.SetCaption(source_.action);
  cmdOK.SetVisible(!source_.action.empty());
  cmdCancel.SetCaption(Text(app::kClose));
  Command1.SetCaption(Text(app::kHelp));
  if (!source_.action.empty()) SetDefaultButton(cmdOK);
  SetCancelButton(cmdCancel);
}

void frmList::SetAnchors() {
  using namespace controls;
  lblList.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  lblCount.SetAnchors(kAnchorTop | kAnchorRight);
  List1.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
  lblNotice.SetAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
  for (CommandButton* button : {&cmdOK, &cmdCancel, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
  KeepPlace(L"List", Kept::kSize);
}

void frmList::SetEvents() {
  txtFilter.Change = [this] { txtFilter_Change(); };
  List1.Click = [this] { ShowAction(); };
  List1.GotFocus = [this] { ShowAction(); };
  if (!source_.action.empty()) List1.Activate = [this](int) { cmdOK_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
  Command1.Click = [this] { Command1_Click(); };
}

void frmList::FillList() {
  folded_.clear();
  std::vector<controls::ListView::Row> rows;
  rows.reserve(source_.rows.size());
  for (const ListRow& row : source_.rows) rows.push_back(row.texts);
  List1.SetColumns(source_.columns);
  List1.SetRows(std::move(rows));
  ShowCount();
  ShowAction();
}

void frmList::txtFilter_Change() {
  if (folded_.empty()) {
    folded_.reserve(source_.rows.size());
    for (const ListRow& row : source_.rows) folded_.push_back(FoldedRow(row));
  }
  const data::TextFilter filter(txtFilter.Text());
  List1.Filter([&](int row) { return filter.Matches(folded_[static_cast<std::size_t>(row)]); });
  ShowCount();
  lblCount.Announce();
  ShowAction();
}

void frmList::ShowCount() {
  lblCount.SetPlainCaption(
      source_.rows.empty()
          ? source_.nothing
          : app::FillIn(Text(app::kShownOf), {data::GroupedDecimal(List1.ShownCount()),
                                              data::GroupedDecimal(List1.RowCount())}));
}

const std::optional<Account>& frmList::AccountAtHand() const {
  static const std::optional<Account> kNone;
  const int row = List1.Index() >= 0 ? List1.Index() : List1.RowAt(0);
  return row < 0 ? kNone : source_.rows[static_cast<std::size_t>(row)].account;
}

void frmList::ShowAction() {
  const bool leadsOn = AccountAtHand().has_value();
  cmdOK.SetEnabled(leadsOn);
  cmdOK.SetWhyDisabled(leadsOn ? std::wstring() : Text(app::kNoRow));
}

void frmList::cmdOK_Click() {
  if (!AccountAtHand()) return;
  chosen = AccountAtHand();
  Unload();
}

void frmList::Command1_Click() {
  app::MShowHelp(global_, *this, source_.topic);
}

void frmList::Form_KeyDown(int keyCode) {
  constexpr int kFirstDigit = controls::kKeyControl + L'1';
  constexpr int kLastDigit = controls::kKeyControl + L'9';
  if (keyCode == controls::kKeyControl + L'F') {
    txtFilter.SetFocus();
  } else if (keyCode == controls::kKeyDown && txtFilter.HasFocus()) {
    List1.SetFocus();
  } else if (keyCode >= kFirstDigit && keyCode <= kLastDigit) {
    const int column = keyCode - kFirstDigit;
    const bool again = column == List1.SortColumn();
    if (column < static_cast<int>(source_.columns.size())) {
      List1.Sort(column, again && !List1.SortDescending());
    }
  }
}

void frmList::Form_KeyUp(int keyCode) {
  if (keyCode == controls::kKeyF1) Command1_Click();
}

}  // namespace browser
