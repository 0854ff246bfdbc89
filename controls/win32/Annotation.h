#pragma once

#include <string>

#include "controls/win32/Handles.h"

struct IAccPropServices;

namespace controls {

// What screen readers say of a control or of one item of it: a description on top of what the
// system itself tells, a name in place of the system's, or that its text is said when it changes.
// Does nothing where the system offers no such service.
class Annotation {
 public:
  enum class Kind { kDescription, kName, kLive };

  explicit Annotation(Kind kind = Kind::kDescription) : kind_(kind) {}
  ~Annotation() { Reset(); }
  Annotation(const Annotation&) = delete;
  Annotation& operator=(const Annotation&) = delete;

  // False once the system has been found to lack the service.
  bool Possible() const { return possible_; }
  // child is the item's number in the control's accessible object, CHILDID_SELF for the control. An
  // empty text takes the annotation away.
  void Set(HWND window, DWORD child, const std::wstring& text);
  // The control's text is said, when a reader has said what it is at, whenever it is announced.
  void SetLive(HWND window);
  void Clear();
  // Clears, and lets the service go.
  void Reset();

 private:
  bool Prepare();
  const GUID& Property() const;

  Kind kind_;
  IAccPropServices* services_ = nullptr;
  bool possible_ = true;
  HWND window_ = nullptr;
  DWORD child_ = 0;
};

}  // namespace controls
