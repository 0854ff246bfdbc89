#include "tests/program/driver/ListBox.h"

#include "data/Text.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Mouse.h"

namespace driver {

int ListBox::Count() const {
  return static_cast<int>(window_.Send(LB_GETCOUNT));
}

std::wstring ListBox::Text(int row) const {
  const LRESULT length = window_.Send(LB_GETTEXTLEN, static_cast<WPARAM>(row));
  if (length == LB_ERR) throw Failure("the list has no row " + std::to_string(row));
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  window_.Send(LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

LPARAM ListBox::Data(int row) const {
  return window_.Send(LB_GETITEMDATA, static_cast<WPARAM>(row));
}

std::vector<std::wstring> ListBox::Texts() const {
  std::vector<std::wstring> texts;
  const int count = Count();
  for (int row = 0; row < count; ++row) texts.push_back(Text(row));
  return texts;
}

int ListBox::Find(std::wstring_view text) const {
  const int count = Count();
  for (int row = 0; row < count; ++row) {
    if (Text(row) == text) return row;
  }
  throw Failure("the list has no row " + data::ToUtf8(text));
}

bool ListBox::IsSelected(int row) const {
  return window_.Send(LB_GETSEL, static_cast<WPARAM>(row)) > 0;
}

std::vector<std::wstring> ListBox::Selected() const {
  std::vector<std::wstring> texts;
  const int count = Count();
  for (int row = 0; row < count; ++row) {
    if (IsSelected(row)) texts.push_back(Text(row));
  }
  return texts;
}

POINT ListBox::Place(int row) const {
  RECT place{};
  window_.Send(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return Middle(place);
}

// The messages that select do not notify the parent, so that is done here.
void ListBox::Select(int row) const {
  const bool several = (window_.Style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
  if (several) {
    window_.Send(LB_SETSEL, TRUE, row);
  } else {
    window_.Send(LB_SETCURSEL, static_cast<WPARAM>(row));
  }
  Window(GetParent(window_.Handle()))
      .Send(WM_COMMAND, MAKEWPARAM(window_.Id(), LBN_SELCHANGE),
            reinterpret_cast<LPARAM>(window_.Handle()));
}

}  // namespace driver
