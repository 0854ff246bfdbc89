#include "controls/ListBox.h"

#include "controls/Form.h"
#include "controls/ListModel.h"

// Constructor and ModelOf are the back ends'.
namespace controls {

ListBox::Update::Update(ListBox& list) : list_(list) {
  ModelOf(list_).BeginUpdate();
}

ListBox::Update::~Update() {
  ModelOf(list_).EndUpdate();
}

int ListBox::AddItem(const std::wstring& text, std::int32_t itemData) {
  return Owner().IsLoaded() ? ModelOf(*this).Add(text, itemData) : -1;
}

void ListBox::RemoveItem(int item) {
  ListModel& model = ModelOf(*this);
  if (model.Has(item)) model.Remove(item);
}

void ListBox::Clear() {
  ModelOf(*this).Clear();
}

int ListBox::ListCount() const {
  return ModelOf(*this).Count();
}

std::wstring ListBox::List(int item) const {
  const ListModel& model = ModelOf(*this);
  return model.Has(item) ? model.Text(item) : std::wstring();
}

std::int32_t ListBox::ItemData(int item) const {
  const ListModel& model = ModelOf(*this);
  return model.Has(item) ? model.Data(item) : 0;
}

void ListBox::SetItemData(int item, std::int32_t data) {
  ListModel& model = ModelOf(*this);
  if (model.Has(item)) model.SetData(item, data);
}

int ListBox::ListIndex() const {
  return ModelOf(*this).Index();
}

void ListBox::SetListIndex(int item) {
  ModelOf(*this).SetIndex(item);
}

bool ListBox::Selected(int item) const {
  return ModelOf(*this).Selected(item);
}

void ListBox::SetSelected(int item, bool selected) {
  ListModel& model = ModelOf(*this);
  if (model.Has(item)) model.SetSelected(item, selected);
}

int ListBox::SelCount() const {
  return ModelOf(*this).SelectedCount();
}

}  // namespace controls
