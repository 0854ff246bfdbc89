#pragma once

#include <windows.h>

#include <string>

#include "controls/Form.h"

namespace controls {

// What is kept of a form's place from one of its lives to the next.
class FormMemory {
 public:
  // Nothing is kept.
  FormMemory() = default;
  FormMemory(std::wstring name, Form::Kept what) : name_(std::move(name)), what_(what) {}

  // Gives a window that has not been shown its size back, and its place. True when it was
  // maximised.
  bool Restore(HWND window, const Desktop& desktop) const;
  // The window stands there now as its user finds it.
  void Shown(HWND window) { shown_ = TextOf(window); }
  // Keeps how the window stands, if that is not how the user found it.
  void Keep(HWND window, Desktop& desktop) const;

 private:
  std::wstring TextOf(HWND window) const;

  std::wstring name_;
  Form::Kept what_ = Form::Kept::kSize;
  std::wstring shown_;
};

}  // namespace controls
