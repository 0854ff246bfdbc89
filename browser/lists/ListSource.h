#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/MShowHelp.h"
#include "browser/rules/Account.h"
#include "controls/ListView.h"

namespace browser {

// A row of a list window: a text a column, after them what the rows are sorted by where that is not
// what is shown, and the account that the row leads to, where it leads to one.
struct ListRow {
  controls::ListView::Row texts;
  std::optional<Account> account = std::nullopt;
};

// What a list window shows. Its texts are the program's own or come from data: neither is looked at
// for access keys, but for the caption of the button.
struct ListSource {
  std::wstring title;
  std::wstring heading;  // the line above the list
  std::vector<controls::ListView::Column> columns;
  // In the order in which they are shown until the user sorts them.
  std::vector<ListRow> rows;
  std::wstring nothing;  // said in place of the count where there are no rows
  std::wstring notice;   // said below the list, empty for nothing
  // The caption of the button that chooses the row at hand; empty where no row leads anywhere.
  std::wstring action;
  app::HelpTopic topic = app::kTopicList;
};

}  // namespace browser
