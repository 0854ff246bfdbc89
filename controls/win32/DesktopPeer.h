#pragma once

#include <vector>

#include "controls/Desktop.h"
#include "controls/Form.h"
#include "controls/win32/Handles.h"

namespace controls {

// The desktop's own part of the system: the loaded forms, the pointer and the message loop.
struct Desktop::Peer {
  // --- The message loop (MessageLoop.cpp) ---
  // Handles input until the form is unloaded.
  void LoopWhileLoaded(Form& form);
  // What the loop does with each message; also for tests that make messages themselves.
  void Process(MSG& message);
  // To be called before messages are handled in the middle of a procedure.
  void RepaintChanged() const;
  // Paints what waits, and lets nothing else through.
  void PaintOnly(HWND window);

  // The loaded form that a window belongs to; null when it is none of ours.
  Form::Peer* FormOf(HWND window) const;
  // The shown form that has, or would have, the input: the last one shown that is not disabled;
  // null when there is none.
  const Form* ActiveForm() const;
  void ApplyPointer() const;

  std::vector<Form::Peer*> forms;  // loaded, in that order
  MousePointer pointer = MousePointer::kDefault;
  // Whether the user sits before another machine.
  bool remote = GetSystemMetrics(SM_REMOTESESSION) != 0;
  bool inputHeld = false;
  int inputHolds = 0;  // holds without their release
};

}  // namespace controls
