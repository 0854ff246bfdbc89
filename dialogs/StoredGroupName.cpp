#include "dialogs/StoredGroupName.h"

#include "data/DisplayCodes.h"

namespace dialogs {

StoredGroupName::StoredGroupName(data::SessionServer& server)
    : administrators_(server.GetDisplayName(L"Administrators", data::kGroupName)),
      everyone_(server.GetDisplayName(L"Everyone", data::kGroupName)) {}

std::wstring StoredGroupName::Of(const std::wstring& typed) const {
  if (typed == administrators_) return L"Administrators";
  if (typed == everyone_) return L"Everyone";
  return typed;
}

}  // namespace dialogs
