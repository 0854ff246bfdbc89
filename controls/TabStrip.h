#pragma once

#include <functional>
#include <string>

#include "controls/Control.h"

namespace controls {

// A row of tabs, numbered from 0. What each tab shows is the form's affair.
class TabStrip : public Control {
 public:
  TabStrip(Form& form, int id);

  // The first tab is selected as it comes, without Click.
  void AddTab(const std::wstring& caption);
  void SetTabCaption(int tab, const std::wstring& caption);
  int TabCount() const;
  std::wstring TabCaption(int tab) const;

  // -1 while there is no tab.
  int SelectedTab() const;
  // Raises Click when the tab changes, as a user's choice does.
  void SetSelectedTab(int tab);

  // The tab after the selected one, after the last the first, or the other way round.
  void SelectNext(bool backwards);

  std::function<void()> Click;
};

}  // namespace controls
