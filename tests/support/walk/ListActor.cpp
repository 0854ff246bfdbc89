#include "tests/support/walk/ListActor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "controls/SortKey.h"
#include "data/Text.h"
#include "data/TextFilter.h"
#include "tests/support/controls/ShownContent.h"
#include "tests/support/journal/JournalReader.h"

namespace test_support {
namespace {

using RowTexts = std::vector<std::wstring>;

// As a list shows it.
std::wstring InOneLine(std::wstring text) {
  std::ranges::replace_if(
      text, [](wchar_t unit) { return unit < L' ' || unit == 0x7F; }, L' ');
  return text;
}

std::vector<RowTexts> Sorted(std::vector<RowTexts> rows) {
  std::ranges::sort(rows);
  return rows;
}

std::string Printed(const std::vector<RowTexts>& rows) {
  std::string text;
  for (const RowTexts& row : rows) {
    for (const std::wstring& cell : row) text += data::ToUtf8(cell) + " | ";
    text += "\n";
  }
  return text;
}

// The account that a line of the journal is about, by the name that it has there.
std::wstring NameIn(const JsonValue& line) {
  const auto name = [](const JsonValue& value) {
    const bool has = value.Has("name") && !value["name"].IsNull();
    return has ? data::FromUtf8(value["name"].Text()) : std::wstring();
  };
  if (line.Has("account") && !name(line["account"]).empty()) return name(line["account"]);
  for (const JsonValue& change : line["changes"].Items()) {
    if (!name(change).empty()) return name(change);
  }
  return {};
}

std::wstring ResultIn(const JsonValue& line) {
  if (!line.Has("error")) {
    return line["rows"].IsNull() ? std::wstring() : std::to_wstring(line["rows"].Number());
  }
  const JsonValue& error = line["error"];
  const std::wstring number = L"Erreur " + std::to_wstring(error["number"].Number());
  return error.Has("text") ? number + L" : " + data::FromUtf8(error["text"].Text()) : number;
}

// Which of a journal's columns are compared: what was done, to whom, with which result.
constexpr std::size_t kFirstJournalColumn = 2;

}  // namespace

void ListActor::Expect(ListCommand command, const Target& at) {
  coming_ = {command, at, std::nullopt};
  goneTo_.reset();
}

std::optional<std::int32_t> ListActor::Finish() {
  EXPECT_FALSE(coming_) << "a list was not shown";
  coming_.reset();
  return std::exchange(goneTo_, std::nullopt);
}

// The lines of the journal's files, the latest first.
WantedRows ListActor::JournalRows() const {
  WantedRows rows;
  const std::filesystem::path folder = walk_.user.System().answers.LocalDataFolder();
  if (!std::filesystem::exists(folder)) return rows;
  for (const JsonValue& line : JournalLines(folder)) {
    rows.push_back({{data::FromUtf8(line["what"].Text()), NameIn(line), ResultIn(line)}});
  }
  std::ranges::reverse(rows);
  return rows;
}

WantedRows ListActor::Wanted() const {
  const Target& at = coming_->at;
  switch (coming_->command) {
    case ListCommand::kHolders:
      return lists_.Holders(at.leaf);
    case ListCommand::kMembers:
      return lists_.Members(*lists_.GroupOf(at));
    case ListCommand::kCompare:
      return coming_->other ? lists_.Comparison(*lists_.UserOf(at), *coming_->other)
                            : lists_.UsersBut(*lists_.UserOf(at));
    case ListCommand::kJournal:
      break;
  }
  return JournalRows();
}

void ListActor::Use(browser::frmList& list) {
  walk_.Note("  list \"" + data::ToUtf8(list.Caption()) + "\"");
  if (!coming_) {
    ADD_FAILURE() << "a list that nobody has asked for";
    return list.Unload();
  }
  const WantedRows wanted = Wanted();
  CheckRows(list, wanted);
  EXPECT_EQ(list.lblNotice.Caption(), L"");
  if (!walk_.dice.OneIn(3)) Search(list, wanted);
  if (!walk_.dice.OneIn(3)) Sort(list);
  if (walk_.dice.OneIn(3)) Save(list);
  Choose(list, wanted);
  if (list.IsLoaded()) {
    EXPECT_TRUE(walk_.user.Try().PressKey(list, kKeyEscape));
    EXPECT_FALSE(list.IsLoaded());
    coming_.reset();
  }
}

// What is on view of the first columns; of a journal those that are compared.
std::vector<RowTexts> ListActor::RowsOf(const browser::frmList& list, std::size_t columns) {
  const bool isJournal = list.Caption() == L"Journal des modifications";
  std::vector<RowTexts> rows;
  for (ShownRow& row : ShownRows(list.List1)) {
    if (isJournal) {
      row.texts.erase(row.texts.begin(),
                      row.texts.begin() + static_cast<std::ptrdiff_t>(kFirstJournalColumn));
    }
    row.texts.resize(std::min(columns, row.texts.size()));
    rows.push_back(std::move(row.texts));
  }
  return rows;
}

void ListActor::CheckRows(browser::frmList& list, WantedRows wanted) const {
  std::vector<RowTexts> texts;
  for (WantedRow& row : wanted) {
    for (std::wstring& text : row.texts) text = InOneLine(std::move(text));
    texts.push_back(std::move(row.texts));
  }
  EXPECT_EQ(list.List1.RowCount(), static_cast<int>(texts.size()));
  const std::size_t columns = texts.empty() ? 0 : texts.front().size();
  const std::vector<RowTexts> shown = RowsOf(list, columns);
  const bool isInOrder = coming_->command == ListCommand::kJournal;
  EXPECT_EQ(isInOrder ? shown : Sorted(shown), isInOrder ? texts : Sorted(texts))
      << "shown:\n"
      << Printed(shown) << "wanted:\n"
      << Printed(texts);
}

// Every row has the words in one of its texts that is on view, and the others have them not.
void ListActor::Search(browser::frmList& list, const WantedRows& wanted) {
  constexpr const wchar_t* kWords[] = {L"a", L"E", L"direct", L"zz", L"(", L"moreau", L"1", L"%"};
  const std::wstring text = walk_.dice.Pick(kWords);
  std::vector<RowTexts> all;
  for (const ShownRow& row : ShownRows(list.List1)) all.push_back(row.texts);
  EXPECT_TRUE(walk_.user.Try().Type(list.txtFilter, text));
  const data::TextFilter filter(text);
  std::erase_if(all, [&](const RowTexts& row) {
    return std::ranges::none_of(
        row, [&](const std::wstring& cell) { return filter.Matches(data::FoldedText(cell)); });
  });
  std::vector<RowTexts> shown;
  for (ShownRow& row : ShownRows(list.List1)) shown.push_back(std::move(row.texts));
  EXPECT_EQ(shown, all) << data::ToUtf8(text);
  if (!wanted.empty()) {
    EXPECT_EQ(list.lblCount.Caption(),
              std::to_wstring(all.size()) + L" sur " + std::to_wstring(wanted.size()));
  }
}

// By a heading, once or twice. A date is in the order of the rows themselves.
void ListActor::Sort(browser::frmList& list) {
  const bool isJournal = coming_->command == ListCommand::kJournal;
  const int column = isJournal ? 2 : walk_.dice.Below(2);
  const bool descending = walk_.dice.OneIn(2);
  for (int i = 0; i < (descending ? 2 : 1); ++i) {
    EXPECT_TRUE(walk_.user.Try().ClickHeading(list.List1, column));
  }
  std::vector<std::string> keys;
  for (const ShownRow& row : ShownRows(list.List1)) {
    keys.push_back(controls::SortKey(row.texts[static_cast<std::size_t>(column)]));
  }
  EXPECT_TRUE(descending ? std::ranges::is_sorted(keys, std::ranges::greater())
                         : std::ranges::is_sorted(keys));
}

// A line for each row on view, and one of headings.
void ListActor::Save(browser::frmList& list) {
  walk_.Note("  save");
  std::filesystem::remove(walk_.ExportedFile());
  walk_.user.PressCtrl(list, 'S');
  std::ifstream file(walk_.ExportedFile(), std::ios::binary);
  const std::string table((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(std::ranges::count(table, '\n'), list.List1.ShownCount() + 1);
}

// Mostly a row that leads somewhere, where there is one.
void ListActor::Choose(browser::frmList& list, const WantedRows& wanted) {
  const int count = list.List1.ShownCount();
  if (count == 0 || wanted.front().user == -1 || walk_.dice.OneIn(3)) return;
  const int place = walk_.dice.Below(count);
  const std::vector<RowTexts> shown = RowsOf(list, 2);
  const RowTexts& row = shown[static_cast<std::size_t>(place)];
  const auto isIt = [&](const WantedRow& one) {
    return InOneLine(one.texts[0]) == row[0] && InOneLine(one.texts[1]) == row[1];
  };
  const auto user = std::ranges::find_if(wanted, isIt);
  // Two of one name: who of them was meant cannot be told from what is on view.
  if (user == wanted.end() || std::ranges::count_if(wanted, isIt) != 1) return;
  walk_.Note("  choose " + data::ToUtf8(row[0]));
  const bool compares = coming_->command == ListCommand::kCompare;
  if (compares) {
    coming_->other = user->user;
  } else {
    goneTo_ = user->user;
    coming_.reset();
  }
  EXPECT_TRUE(walk_.user.Try().DoubleClick(list.List1, place));
  EXPECT_FALSE(list.IsLoaded());
}

}  // namespace test_support
