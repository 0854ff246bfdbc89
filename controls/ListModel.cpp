#include "controls/ListModel.h"

#include <algorithm>

#include "controls/Events.h"
#include "controls/SortKey.h"

namespace controls {
namespace {

// Letters typed within this time of one another are one text; tree views take about as long.
constexpr std::uint32_t kSearchMilliseconds = 1500;

// The letters of a text, whatever their case and accents: the first part of its sort key.
std::string LettersOf(const std::wstring& text) {
  const std::string key = SortKey(text);
  return key.substr(0, key.find('\1'));
}

}  // namespace

bool ListModel::Selected(int item) const {
  if (!Has(item)) return false;
  return kind_ == ListBox::Kind::kPlain ? item == life_.index : At(item).selected;
}

int ListModel::SelectedCount() const {
  if (kind_ == ListBox::Kind::kPlain) return life_.index >= 0 ? 1 : 0;
  return life_.selected;
}

int ListModel::Add(const std::wstring& text, std::int32_t data) {
  life_.items.push_back({text, data});
  const int item = Count() - 1;
  if (view_) view_->ItemAdded(item);
  return item;
}

void ListModel::Remove(int item) {
  Mark(item, false);
  life_.items.erase(life_.items.begin() + item);
  if (life_.index == item) {
    life_.index = -1;
  } else if (life_.index > item) {
    --life_.index;
  }
  if (view_) view_->ItemRemoved(item);
}

void ListModel::Clear() {
  life_.items.clear();
  life_.index = -1;
  life_.selected = 0;
  if (view_) view_->Cleared();
}

void ListModel::SetData(int item, std::int32_t data) {
  life_.items[static_cast<std::size_t>(item)].data = data;
  if (view_) view_->DataChanged(item);
}

void ListModel::SetIndex(int item) {
  life_.index = Has(item) ? item : -1;
  if (view_) view_->IndexChanged();
}

void ListModel::SetSelected(int item, bool selected) {
  if (kind_ == ListBox::Kind::kPlain) {
    if (selected != Selected(item)) SetIndex(selected ? item : -1);
    return;
  }
  if (!Mark(item, selected)) return;
  if (view_) view_->SelectionChanged(item);
  if (kind_ == ListBox::Kind::kChecked) RaiseCheck(item);
}

void ListModel::BeginUpdate() {
  if (life_.updates++ == 0 && view_) view_->UpdateBegins();
}

// The form may have been unloaded meanwhile, and with it what was begun.
void ListModel::EndUpdate() {
  if (life_.updates == 0 || --life_.updates > 0) return;
  if (view_) view_->UpdateEnds();
}

void ListModel::TakeFocus() {
  if (kind_ == ListBox::Kind::kChecked && life_.index < 0 && Count() > 0) SetIndex(0);
}

void ListModel::Choose(int item) {
  bool changed = life_.index != item;
  life_.index = item;
  if (kind_ == ListBox::Kind::kMultiSelect) changed |= MarkAlone(item);
  if (changed) RaiseClick();
}

void ListModel::Toggle(int item) {
  if (kind_ == ListBox::Kind::kChecked) return Check(item, !Selected(item));
  life_.index = item;
  Mark(item, !Selected(item));
  RaiseClick();
}

void ListModel::Check(int item, bool checked) {
  if (!Mark(item, checked)) return;
  if (life_.index != item) SetIndex(item);
  if (view_) view_->SelectionChanged(item);
  RaiseCheck(item);
}

void ListModel::TakeSelection(int index, const std::function<bool(int item)>& isSelected) {
  const int before = life_.index;
  life_.index = Has(index) ? index : -1;
  bool changed = life_.index != before;
  for (int item = 0; kind_ == ListBox::Kind::kMultiSelect && item < Count(); ++item) {
    changed |= Mark(item, isSelected(item));
  }
  if (changed) RaiseClick();
}

bool ListModel::IsSearching(std::uint32_t time) const {
  return !life_.search.empty() && time - life_.typed < kSearchMilliseconds;
}

void ListModel::Type(wchar_t character, std::uint32_t time) {
  const bool goesOn = IsSearching(time);
  if (!goesOn && character == L' ') {
    if (Has(life_.index)) Toggle(life_.index);
    return;
  }
  if (!goesOn) life_.search.clear();
  life_.search += character;
  life_.typed = time;
  // A first letter looks for the next item, so that the same one again and again goes through all.
  int found = Find(life_.search, goesOn ? life_.index : life_.index + 1);
  const bool oneLetter = life_.search.find_first_not_of(character) == std::wstring::npos;
  if (found < 0 && oneLetter) found = Find(std::wstring(1, character), life_.index + 1);
  if (found < 0 || found == life_.index) return;
  SetIndex(found);
  RaiseClick();
}

// The first item from the one given, round the end, whose text begins so; -1 for none.
int ListModel::Find(const std::wstring& beginning, int from) const {
  const std::string letters = LettersOf(beginning);
  for (int i = 0; i < Count(); ++i) {
    const int item = (std::max(from, 0) + i) % Count();
    if (LettersOf(Text(item)).starts_with(letters)) return item;
  }
  return -1;
}

// Notes an item's state; false when it was that already.
bool ListModel::Mark(int item, bool selected) {
  Item& marked = life_.items[static_cast<std::size_t>(item)];
  if (marked.selected == selected) return false;
  marked.selected = selected;
  life_.selected += selected ? 1 : -1;
  return true;
}

bool ListModel::MarkAlone(int item) {
  bool changed = false;
  for (int i = 0; i < Count(); ++i) changed |= Mark(i, i == item);
  return changed;
}

void ListModel::RaiseClick() const {
  Raise(list_->Owner(), list_->Click);
}

void ListModel::RaiseCheck(int item) const {
  Raise(list_->Owner(), list_->ItemCheck, item);
  RaiseClick();
}

}  // namespace controls
