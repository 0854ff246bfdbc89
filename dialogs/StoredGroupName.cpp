#include "dialogs/StoredGroupName.h"

#include "dialogs/DisplayCodes.h"

namespace dialogs {

StoredGroupName::StoredGroupName(data::SessionServer& server)
    : administrators_(server.GetDisplayName(L"Administrators", kGroupName)),
      everyone_(server.GetDisplayName(L"Everyone", kGroupName)) {}

std::wstring StoredGroupName::Of(const std::wstring& typed) const {
  if (typed == administrators_) return L"Administrators";
  if (typed == everyone_) return L"Everyone";
  return typed;
}

}  // namespace dialogs
