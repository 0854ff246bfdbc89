#pragma once

#include <memory>
#include <vector>

namespace controls {

class Desktop;

// Small images by number, from 0, in the order of the icon resources given. They follow the
// resolution of the window that shows them.
class ImageList {
 public:
  struct Peer;

  ImageList(const Desktop& desktop, std::vector<int> iconResources);
  ~ImageList();
  ImageList(const ImageList&) = delete;
  ImageList& operator=(const ImageList&) = delete;

  int Count() const { return static_cast<int>(iconResources_.size()); }
  const std::vector<int>& IconResources() const { return iconResources_; }
  Peer& BackEnd() const { return *peer_; }

 private:
  std::vector<int> iconResources_;
  std::unique_ptr<Peer> peer_;
};

}  // namespace controls
