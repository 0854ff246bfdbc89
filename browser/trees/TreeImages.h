#pragma once

#include <vector>

namespace browser {

// The images of the tree nodes, by their place in the window's image list.
enum TreeImage : int {
  kFolderClosed,
  kFolderOpen,
  kUserImage,
  kProtectedUserImage,
  kGroupImage,
  kProtectedGroupImage,
  kPermissionImage,           // held directly
  kInheritedPermissionImage,  // held through a group
};

// The icon resources of these images, in the same order.
std::vector<int> TreeImageResources();

}  // namespace browser
