#pragma once

#include "controls/memory/FormPeer.h"

namespace test_support {

// What a key does in a form after its own key procedures have seen it.
void PressOnControls(controls::Form::Peer& form, int keyCode, bool shift);

// The same with the Control key held.
void PressCtrlOnControls(controls::Form::Peer& form, int keyCode);

// What Alt and a letter do; false where nothing answers to it.
bool PressMnemonic(controls::Form::Peer& form, wchar_t letter);

}  // namespace test_support
