#pragma once

namespace dying_server {

// Handles the messages of the calling thread as a session server does that shows a window of its
// own in a call: from when a file "pump" appears in the server's home folder until it is gone and
// no message is left. A file "pumping" tells of it. Does nothing where there is no such file.
void PumpIfAsked();

}  // namespace dying_server
