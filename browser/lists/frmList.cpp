#include "browser/lists/frmList.h"

#include <algorithm>
#include <utility>

#include "app/LocaleFont.h"
#include "app/MShowHelp.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/evidence/ExportFile.h"
#include "data/Text.h"
#include "data/TextFilter.h"
#include "resources/ResourceIds.h"

namespace browser {
namespace {

// No word has one in it: what is looked for is never found across two texts.
constexpr char kBetweenTexts = '\n';

// What comes after the last column is not on view.
std::string FoldedRow(const ListRow& row, std::size_t columns) {
  std::string folded;
  for (std::size_t column = 0; column < std::min(columns, row.texts.size()); ++column) {
    data::AppendFoldedText(folded, row.texts[column]);
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
      cmdSave(*this, IDC_SAVE_AS),
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
  cmdSave.SetCaption(Text(app::kSaveAs));
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
  cmdSave.SetAnchors(kAnchorLeft | kAnchorBottom);
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
  cmdSave.Click = [this] { cmdSave_Click(); };
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
    for (const ListRow& row : source_.rows) {
      folded_.push_back(FoldedRow(row, source_.columns.size()));
    }
  }
  const data::TextFilter filter(txtFilter.Text());
  List1.Filter([&](int row) { return filter.Matches(folded_[static_cast<std::size_t>(row)]); });
  ShowCount();
  lblCount.Announce();
  ShowAction();
}

std::wstring frmList::CountText() const {
  if (source_.rows.empty()) return source_.nothing;
  return app::FillIn(Text(app::kShownOf), {data::GroupedDecimal(List1.ShownCount()),
                                           data::GroupedDecimal(List1.RowCount())});
}

void frmList::ShowCount() {
  lblCount.SetPlainCaption(CountText());
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

ShownTable frmList::OnView() const {
  ShownTable table{source_.title,      source_.heading,
                   source_.notice,     CountText(),
                   txtFilter.Text(),   {},
                   List1.ShownCount(), {}};
  for (const auto& column : source_.columns) table.columns.push_back(column.caption);
  table.Text = [this](int row, int column) -> const std::wstring& {
    return List1.Text(List1.RowAt(row), column);
  };
  return table;
}

// Until something else is searched for, the file that was saved is named where the count stands.
void frmList::cmdSave_Click() {
  const auto path = AskExportFile(global_, *this, source_.title, source_.title);
  if (!path) return;
  const app::Outcome outcome =
      app::Reported(global_, L"SaveList", [&] { WriteTableFile(global_, OnView(), *path); });
  if (outcome == app::Outcome::kFailed) return;
  const std::wstring name = path->substr(path->find_last_of(L"\\/") + 1);
  lblCount.SetPlainCaption(app::FillIn(Text(app::kListSaved), {name}));
  lblCount.Announce();
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
  } else if (keyCode == controls::kKeyControl + L'S') {
    cmdSave_Click();
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
