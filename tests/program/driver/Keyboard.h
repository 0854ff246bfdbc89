#pragma once

#include <windows.h>

#include <initializer_list>
#include <vector>

#include "tests/program/driver/Window.h"

namespace driver {

// Gives the window the keyboard, and waits until the system says that it has it.
void BringToFront(const Window& window);

// Presses a key on the real keyboard, with the modifier keys held down meanwhile. It goes to
// whatever has the focus in the window, which is brought to the front first.
void PressKey(const Window& window, WORD key, std::initializer_list<WORD> modifiers = {});

// Types a text on the real keyboard.
void TypeText(const Window& window, const wchar_t* text);

// Presses the Tab key until the focus is back where it was, and answers the numbers of the controls
// it came to.
std::vector<int> WalkByTab(const Window& window, std::initializer_list<WORD> modifiers = {});

}  // namespace driver
