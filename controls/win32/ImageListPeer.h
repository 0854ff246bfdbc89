#pragma once

#include <map>
#include <vector>

#include "controls/ImageList.h"
#include "controls/win32/Handles.h"

namespace controls {

// The images in every resolution that a window has asked for.
struct ImageList::Peer {
  explicit Peer(const std::vector<int>& resources) : icons(resources) {}

  HIMAGELIST At(unsigned dpi);

  const std::vector<int>& icons;

 private:
  ImageListHandle Make(unsigned dpi) const;

  std::map<unsigned, ImageListHandle> lists_;
};

}  // namespace controls
