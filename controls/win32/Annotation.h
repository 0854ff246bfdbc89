#pragma once

#include <string>

#include "controls/win32/Handles.h"

struct IAccPropServices;

namespace controls {

// The description that screen readers give of one item of a control, on top of what the system
// itself tells of it. Does nothing where the system offers no such service.
class Annotation {
 public:
  Annotation() = default;
  ~Annotation() { Reset(); }
  Annotation(const Annotation&) = delete;
  Annotation& operator=(const Annotation&) = delete;

  // False once the system has been found to lack the service.
  bool Possible() const { return possible_; }
  // child is the item's number in the control's accessible object.
  void Set(HWND window, DWORD child, const std::wstring& description);
  void Clear();
  // Clears, and lets the service go.
  void Reset();

 private:
  bool Prepare();

  IAccPropServices* services_ = nullptr;
  bool possible_ = true;
  HWND window_ = nullptr;
  DWORD child_ = 0;
};

}  // namespace controls
