#pragma once

#include <vector>

#include "controls/AnchorLayout.h"
#include "controls/win32/ControlPeer.h"

namespace controls {

// Lays a form's controls out for its present size. What the template laid out is the base from
// which every size is worked out, so that nothing creeps.
class FormLayout {
 public:
  // The form has been made from this template, and its controls stand where that has them.
  void Capture(HWND form, int templateId, const std::vector<Control::Peer*>& controls);
  void Clear() { places_.clear(); }
  // The form has changed to another resolution: the base grows or shrinks with it.
  void Rescale(unsigned fromDpi, unsigned toDpi);
  void Apply(HWND form) const;
  // The client area of the template.
  SIZE BaseSize() const { return base_; }

 private:
  struct Place {
    const Control::Peer* control;
    RECT base;
  };

  std::vector<AnchorLayout::Item> Items(int line) const;

  std::vector<Place> places_;
  SIZE base_ = {};
};

}  // namespace controls
