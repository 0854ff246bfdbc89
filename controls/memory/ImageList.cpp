#include "controls/ImageList.h"

#include <utility>

namespace controls {

// Nothing is drawn in memory: the numbers of the resources are all there is.
struct ImageList::Peer {};

ImageList::ImageList(const Desktop&, std::vector<int> iconResources)
    : iconResources_(std::move(iconResources)), peer_(std::make_unique<Peer>()) {}

ImageList::~ImageList() = default;

}  // namespace controls
