#pragma once

namespace controls {

class Form;

// The user logs off, or the system is about to restart the program: whether that may happen as far
// as this form goes. Where changes would be lost, the system is told why it should wait, which it
// shows to the user, and a form that takes input asks him as when it is closed; without changes it
// stays as it is.
bool MayEndSession(Form& form, bool takesInput);

}  // namespace controls
