#include "browser/trees/TreeImages.h"

#include "resources/ResourceIds.h"

namespace browser {

std::vector<int> TreeImageResources() {
  return {IDI_FOLDER_CLOSED, IDI_FOLDER_OPEN,     IDI_USER,       IDI_USER_PROTECTED,
          IDI_GROUP,         IDI_GROUP_PROTECTED, IDI_PERMISSION, IDI_PERMISSION_INHERITED};
}

}  // namespace browser
