#include "controls/ImageList.h"

#include <utility>

#include "controls/win32/Icons.h"
#include "controls/win32/ImageListPeer.h"

namespace controls {
namespace {

constexpr int kSize = 16;

}  // namespace

HIMAGELIST ImageList::Peer::At(unsigned dpi) {
  ImageListHandle& list = lists_[dpi];
  if (!list) list = Make(dpi);
  return list.Get();
}

ImageListHandle ImageList::Peer::Make(unsigned dpi) const {
  const int size = MulDiv(kSize, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
  const int count = static_cast<int>(icons.size());
  ImageListHandle list(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, count, 0));
  // Every number gets its place, so that an icon that is missing does not move the others.
  ImageList_SetImageCount(list.Get(), static_cast<UINT>(count));
  for (int i = 0; i < count; ++i) {
    const IconHandle icon = LoadIconOfSize(icons[static_cast<std::size_t>(i)], size);
    if (icon) ImageList_ReplaceIcon(list.Get(), i, icon.Get());
  }
  return list;
}

ImageList::ImageList(const Desktop& /*desktop*/, std::vector<int> iconResources)
    : iconResources_(std::move(iconResources)), peer_(std::make_unique<Peer>(iconResources_)) {}

ImageList::~ImageList() = default;

}  // namespace controls
